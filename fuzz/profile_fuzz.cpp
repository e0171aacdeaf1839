// SPDX-License-Identifier: MIT
// INI files of any content: what is written is read back, and nothing else changes.
#include <map>
#include <utility>

#include "fuzz/fuzz_input.h"
#include "platform/files/profile_text.h"
#include "platform/text/ansi_text.h"
#include "platform/text/text.h"

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

/// `bytes` as a value that a line can hold.
std::u16string AsValue(std::string_view piece) {
  std::string bytes(piece);
  std::erase_if(bytes, [](char byte) { return byte == 0 || byte == '\r' || byte == '\n'; });
  return std::u16string(platform::TrimBlanks(platform::FromAnsi(bytes)));
}

/// `bytes` as the name of a section or a key. A byte that is no text might make a character with
/// the sign after the name.
std::u16string AsName(std::string_view bytes) {
  std::u16string name = AsValue(bytes);
  std::erase_if(name, [](char16_t unit) {
    return platform::IsSurvivingByte(unit) ||
           std::u16string_view(u"[]=;").find(unit) != std::u16string_view::npos;
  });
  return std::u16string(platform::TrimBlanks(name));
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
    Require(after.size() > before.size(), "a new key is one more");
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
  const std::u16string section = lexmill::fuzz::AsName(input.TakePiece());
  const std::u16string key = lexmill::fuzz::AsName(input.TakePiece());
  const std::u16string value = lexmill::fuzz::AsValue(input.TakePiece());
  if (!section.empty() && !key.empty()) {
    lexmill::fuzz::Check(input.Rest(), section, key, value);
  }
  return 0;
}
