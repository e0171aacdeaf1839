// SPDX-License-Identifier: MIT
#include "platform/expression/replacement_template.h"

namespace lexmill::platform {
namespace {

/// What a $ and the units after it give, and how many units that form has with its $.
struct Expansion {
  std::u16string_view text;
  std::size_t length = 1;
};

/// The group that the first `count` units of `digits` name; 0 if they name none.
std::size_t GroupNumber(std::u16string_view digits, std::size_t count, std::size_t groups) {
  if (digits.size() < count) {
    return 0;
  }
  std::size_t number = 0;
  for (const char16_t digit : digits.substr(0, count)) {
    if (digit < u'0' || digit > u'9') {
      return 0;
    }
    number = number * 10 + (digit - std::size_t{u'0'});
  }
  return number < groups ? number : 0;
}

/// Expands the $ that `rest` begins with. The longer number wins where its group exists.
Expansion Expand(std::u16string_view rest, const ExpressionMatch& match) {
  const std::u16string_view afterSign = rest.substr(1);
  for (const std::size_t digits : {2, 1}) {
    if (const auto group = GroupNumber(afterSign, digits, match.groups.size()); group > 0) {
      return {match.groups[group], digits + 1};
    }
  }
  switch (afterSign.empty() ? u'\0' : afterSign[0]) {
    case u'$':
      return {rest.substr(0, 1), 2};
    case u'&':
      return {match.groups[0], 2};
    case u'`':
      return {match.before, 2};
    case u'\'':
      return {match.after, 2};
    default:
      return {rest.substr(0, 1), 1};
  }
}

}  // namespace

void ExpandReplacement(std::u16string_view replacement, const ExpressionMatch& match,
                       std::u16string& result) {
  for (std::size_t at = 0; at < replacement.size();) {
    if (replacement[at] != u'$') {
      result += replacement[at++];
      continue;
    }
    const Expansion expansion = Expand(replacement.substr(at), match);
    result += expansion.text;
    at += expansion.length;
  }
}

}  // namespace lexmill::platform
