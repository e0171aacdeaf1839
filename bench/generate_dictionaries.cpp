// SPDX-License-Identifier: MIT
// generate_dictionaries FOLDER REFERENCE UNTRANSLATED [KNOWN_PERCENT [long]]
#include <charconv>
#include <iostream>
#include <span>
#include <string_view>

#include "bench/dictionary_files.h"
#include "platform/failure.h"
#include "platform/text/text.h"

namespace {

using lexmill::bench::DictionarySizes;
using lexmill::platform::Failure;

bool ReadNumber(std::string_view text, std::uint64_t& number) {
  const char* const end = text.data() + text.size();
  const auto [read, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && read == end;
}

bool ReadSizes(std::span<char*> arguments, DictionarySizes& sizes) {
  sizes.hasLongStrings = arguments.size() == 6 && arguments[5] == std::string_view("long");
  return arguments.size() >= 4 && (arguments.size() <= 5 || sizes.hasLongStrings) &&
         ReadNumber(arguments[2], sizes.reference) && sizes.reference > 0 &&
         ReadNumber(arguments[3], sizes.untranslated) &&
         (arguments.size() == 4 || ReadNumber(arguments[4], sizes.knownPercent));
}

}  // namespace

int main(int count, char** values) {
  const std::span arguments(values, static_cast<std::size_t>(count));
  DictionarySizes sizes;
  if (!ReadSizes(arguments, sizes)) {
    std::cerr << "usage: generate_dictionaries FOLDER REFERENCE UNTRANSLATED "
                 "[KNOWN_PERCENT [long]]\n";
    return 2;
  }
  try {
    lexmill::bench::WriteDictionaries(lexmill::platform::FromUtf8(arguments[1]) + u'/', sizes);
  } catch (const Failure& failure) {
    std::cerr << lexmill::platform::ToUtf8(failure.Description()) << '\n';
    return 1;
  }
  return 0;
}
