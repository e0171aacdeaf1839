// SPDX-License-Identifier: MIT
// INI files of any content: what is written is read back, and nothing else changes.
#include <map>
#include <utility>

#include "fuzz/fuzz_input.h"
#include "platform/ansi_text.h"
#include "platform/profile_text.h"
#include "platform/text.h"

namespace lexmill::fuzz {
namespace {

using platform::ProfileText;
using Values = std::map<std::pair<std::u16string, std::u16string>, std::u16string>;

Values AllValues(const ProfileText& text) {
  Values values;
  for (const auto& section : text.Sections()) {
    for (const auto& key : text.Keys(section).value_or(std::vector<std::u16string>())) {
      values.insert_or_assign({section, key}, text.Value(section, key).value_or(u""));
    }
  }
  return values;
}

/// `text` as a name or a value that a line can carry.
std::u16string OneLine(std::u16string_view text, std::u16string_view forbidden) {
  std::u16string line;
  for (const char16_t unit : text) {
    if (unit != 0 && forbidden.find(unit) == std::u16string_view::npos) {
      line += unit;
    }
  }
  return std::u16string(platform::TrimBlanks(line));
}

std::u16string WithoutQuotes(std::u16string text) {
  const bool isQuoted = text.size() > 1 && text.front() == text.back() &&
                        (text.front() == u'"' || text.front() == u'\'');
  return isQuoted ? text.substr(1, text.size() - 2) : text;
}

void Check(std::string_view file, const std::u16string& section, const std::u16string& key,
           const std::u16string& value) {
  ProfileText text(file);
  Require(text.Bytes() == file || file.starts_with("\xFF\xFE"), "a file that is read stays");
  Values before = AllValues(text);
  const bool isNew = !text.Value(section, key);
  if (!text.Set(section, key, value)) {
    return;
  }
  const ProfileText again(text.Bytes());
  Require(again.Value(section, key) == WithoutQuotes(value), "a value that is written is read");
  Values after = AllValues(again);
  if (isNew) {
    Require(after.size() == before.size() + 1, "a new key is one more");
  }
  for (const auto& [name, old] : before) {
    const auto found = after.find(name);
    Require(found != after.end(), "no key goes");
    Require(found->second == old || found->second == WithoutQuotes(value),
            "no other value changes");
  }
}

}  // namespace
}  // namespace lexmill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lexmill::fuzz::Input input(data, size);
  const auto take = [&input](std::u16string_view forbidden) {
    return lexmill::fuzz::OneLine(lexmill::platform::FromAnsi(input.TakePiece()), forbidden);
  };
  const std::u16string section = take(u"\r\n[]");
  const std::u16string key = take(u"\r\n=;[]");
  const std::u16string value = take(u"\r\n");
  if (!section.empty() && !key.empty()) {
    lexmill::fuzz::Check(input.Rest(), section, key, value);
  }
  return 0;
}
