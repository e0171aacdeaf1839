// SPDX-License-Identifier: MIT
#include "run/dictionary_format.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/cInifile.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/host/application.h"
#include "platform/text/text.h"
#include "run/shared/run_state.h"
#include "text/text_entry.h"
#include "window/resources/language_table.h"

namespace lexmill::modMain {
namespace {

constexpr char16_t kTab = u'\t';
// How many lines of a format are enough to stop reading.
constexpr int kGlossaryLines = 10;
constexpr int kTextEntries = 5;

bool HasOneTab(std::u16string_view line) {
  const auto first = line.find(kTab);
  return first != std::u16string_view::npos &&
         line.find(kTab, first + 1) == std::u16string_view::npos;
}

using Columns = std::vector<std::u16string>;

// The columns of the head line of a glossary; none for a file that isn't one. As long as one line
// with exactly one TAB has been seen, a line with more of them takes its place.
std::optional<Columns> ReadGlossaryHead(std::u16string_view path) {
  auto stream = platform::FileSystemObject().OpenTextFile(path, KindOf(path).encoding);
  Columns head;
  int found = 0;
  do {
    const std::u16string_view line = stream.ReadLine();
    if (HasOneTab(line)) {
      ++found;
    }
    if (found == 1 && line.find(kTab) != std::u16string_view::npos) {
      const auto columns = platform::Split(line, kTab);
      head.assign(columns.begin(), columns.end());
    }
    // A text has no TAB from its first line to its last, so only lines with one are worth decoding.
    stream.PassOverLinesWithout('\t');
  } while (found < kGlossaryLines && !stream.AtEndOfStream());
  return found > 0 ? std::optional(head) : std::nullopt;
}

// Writes the language table anew each time, so that a run never depends on an edited one.
std::u16string WriteLanguageTable() {
  std::u16string path = WorkFolder() + u"POLOLID.ini";
  auto stream = platform::FileSystemObject().CreateTextFile(path, true);
  stream.Write(platform::LoadStringResource(kLanguageTableId));
  stream.Close();
  return path;
}

void TakeLanguagePair(const Columns& head, std::u16string& languagePair) {
  cInifile table;
  table.Path(WriteLanguageTable());
  table.Section(u"Language IDs");
  const auto isKnown = [&](std::u16string_view key) {
    table.Key(key);
    return !table.Value().empty();
  };
  if (isKnown(head[0]) && isKnown(head[1])) {
    languagePair = head[0] + kTab + head[1];
  }
}

bool HasTextEntries(std::u16string_view path) {
  auto stream = platform::FileSystemObject().OpenTextFile(path, KindOf(path).encoding);
  int found = 0;
  do {
    if (SourceOfHeadLine(stream.ReadLine()).has_value() && !stream.ReadLine().empty()) {
      ++found;
    }
  } while (found < kTextEntries && !stream.AtEndOfStream());
  return found > 0;
}

template <class OnGlossaryHead>
DictionaryFormat Detect(std::u16string_view path, OnGlossaryHead onGlossaryHead) {
  if (!platform::FileSystemObject().FileExists(path)) {
    return DictionaryFormat::Unknown;
  }
  if (const auto head = ReadGlossaryHead(path)) {
    onGlossaryHead(*head);
    return DictionaryFormat::PassoloGlossary;
  }
  return HasTextEntries(path) ? DictionaryFormat::DianjingText : DictionaryFormat::Unknown;
}

}  // namespace

DictionaryFormat DetectDictionaryFormat(std::u16string_view path, std::u16string& languagePair) {
  return Detect(path, [&](const Columns& head) { TakeLanguagePair(head, languagePair); });
}

DictionaryFormat DetectDictionaryFormat(std::u16string_view path) {
  return Detect(path, [](const Columns& /*head*/) {});
}

void RefuseUnknownFormat(std::u16string_view path) {
  throw platform::Failure(1, u"不能检测出“未译字典”或“参照字典”的文件格式", std::u16string(path));
}

}  // namespace lexmill::modMain
