// SPDX-License-Identifier: MIT
#include "run/dictionary_encoding.h"

#include <algorithm>
#include <string>

#include "foundation/entry_point.h"
#include "platform/controls/desktop.h"
#include "platform/files/file_system.h"
#include "platform/files/utf8_file.h"
#include "platform/text/ansi_text.h"
#include "run/file_inspection.h"
#include "run/shared/run_state.h"

namespace lexmill {
namespace {

DictionaryKind ReadAndRecognise(std::u16string_view path) {
  const auto shown = platform::RecogniseUtf8(path, platform::DoEvents);
  return shown ? DictionaryKind{.encoding = shown->Result(), .isPlainAscii = shown->IsPlainAscii()}
               : DictionaryKind();
}

bool BeginsWithMark(std::u16string_view path) {
  return platform::ReadBinary(path, 0, platform::kUtf8Mark.size()) == platform::kUtf8Mark;
}

}  // namespace

DictionaryKind RecogniseEncoding(std::u16string_view path) {
  DictionaryKind kind;
  if (!platform::IsAnsiCodePageChosen()) {
    IgnoreFailures([&] { kind = ReadAndRecognise(path); });
  } else if (platform::IsAnsiCodePageUtf8()) {
    IgnoreFailures([&] {
      kind.encoding = BeginsWithMark(path) ? platform::TextEncoding::Utf8WithMark
                                           : platform::TextEncoding::Ansi;
    });
  }
  return kind;
}

void KeepEncoding(const std::u16string& path) {
  auto& dictionaries = TheRun().dictionaries;
  if (!dictionaries.contains(path)) {
    dictionaries[path] = RecogniseEncoding(path);
    dictionaries[path].facts = InspectFile(path);
  }
}

platform::TextEncoding ResultEncoding(std::u16string_view toDo,
                                      std::span<const std::u16string> references) {
  const DictionaryKind own = KindOf(toDo);
  if (!own.isPlainAscii) {
    return own.encoding;
  }
  const auto deciding = std::ranges::find_if(
      references, [](const std::u16string& path) { return !KindOf(path).isPlainAscii; });
  return deciding == references.end() ? own.encoding : KindOf(*deciding).encoding;
}

}  // namespace lexmill
