// SPDX-License-Identifier: MIT
#include "catalog/po_comment.h"

#include "platform/text/text.h"

namespace lexmill {
namespace {

constexpr std::u16string_view kFuzzy = u"fuzzy";
constexpr std::size_t kSignLength = 2;  // of "#,"

std::u16string_view Trimmed(std::u16string_view flag) {
  constexpr std::u16string_view kBlanks = u" \t\r\f\v";
  const std::size_t begin = flag.find_first_not_of(kBlanks);
  if (begin == std::u16string_view::npos) {
    return {};
  }
  return flag.substr(begin, flag.find_last_not_of(kBlanks) + 1 - begin);
}

}  // namespace

PoCommentKind KindOfPoComment(std::u16string_view line) {
  switch (line.size() > 1 ? line[1] : u' ') {
    case u',':
    case u'=':
      return PoCommentKind::Flags;
    case u'|':
      return PoCommentKind::Previous;
    case u'~':
      return PoCommentKind::Obsolete;
    case u'.':
    case u':':
      return PoCommentKind::Other;
    default:
      return PoCommentKind::Translator;
  }
}

bool HasFuzzyFlag(std::u16string_view line) {
  for (const std::u16string_view flag : platform::Split(line.substr(kSignLength), u',')) {
    if (Trimmed(flag) == kFuzzy) {
      return true;
    }
  }
  return false;
}

std::u16string WithFuzzyFlag(std::u16string_view line) {
  const std::u16string others(line.substr(kSignLength));
  return std::u16string(line.substr(0, kSignLength)) + u" fuzzy" +
         (Trimmed(others).empty() ? u"" : u"," + others);
}

std::u16string WithoutFuzzyFlag(std::u16string_view line) {
  std::u16string others;
  for (const std::u16string_view flag : platform::Split(line.substr(kSignLength), u',')) {
    if (Trimmed(flag) != kFuzzy && !Trimmed(flag).empty()) {
      others.append(others.empty() ? u" " : u", ").append(Trimmed(flag));
    }
  }
  return others.empty() ? others : std::u16string(line.substr(0, kSignLength)) + others;
}

}  // namespace lexmill
