// SPDX-License-Identifier: MIT
#include "catalog/language_tag.h"

#include "platform/text/text.h"

namespace lexmill {
namespace {

// Ends with a dash, so that a part of a name isn't taken for the whole.
std::u16string Comparable(std::u16string_view tag) {
  return platform::ReplaceAll(platform::LowerCase(platform::Trim(tag)), u"_", u"-") + u"-";
}

}  // namespace

bool IsLanguage(std::u16string_view tag, std::u16string_view wanted) {
  const std::u16string left = Comparable(tag);
  const std::u16string right = Comparable(wanted);
  return left.size() > 1 && right.size() > 1 &&
         (left.starts_with(right) || right.starts_with(left));
}

}  // namespace lexmill
