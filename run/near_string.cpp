// SPDX-License-Identifier: MIT
#include "run/near_string.h"

#include <algorithm>

#include "platform/text/text.h"

namespace lexmill {
namespace {

/// The fewest first, all of them last.
constexpr std::array<Differences, 7> kSets = {{
    {.letterCase = true},
    {.ending = true},
    {.hotKey = true},
    {.letterCase = true, .ending = true},
    {.letterCase = true, .hotKey = true},
    {.ending = true, .hotKey = true},
    {.letterCase = true, .ending = true, .hotKey = true},
}};

std::u16string_view WithoutEnding(std::u16string_view text) {
  constexpr std::u16string_view kMarks = u" .:;,!?*…：；，。、！？";
  text = platform::TrimLeft(text.substr(0, text.find(u"\\t")));
  for (;;) {
    const std::size_t last = text.find_last_not_of(kMarks);
    text = text.substr(0, last == std::u16string_view::npos ? 0 : last + 1);
    if (!text.ends_with(u"\\n") && !text.ends_with(u"\\r")) {
      return text;
    }
    text.remove_suffix(2);
  }
}

// What rules that take "&" out leave of "(&X)" goes, too.
std::u16string WithoutHotKey(std::u16string_view text) {
  constexpr std::size_t kBracketed = 3;
  std::u16string bare(text);
  std::erase_if(bare, [](char16_t unit) { return unit == u'&' || unit == u'_' || unit == u'~'; });
  const std::u16string_view end =
      std::u16string_view(bare).substr(bare.size() - std::min(bare.size(), kBracketed));
  if (end.size() == kBracketed && end.front() == u'(' && end.back() == u')' &&
      ((end[1] >= u'A' && end[1] <= u'Z') || (end[1] >= u'0' && end[1] <= u'9'))) {
    bare.resize(bare.size() - kBracketed);
  }
  return bare;
}

std::u16string Without(const Differences& set, std::u16string_view text) {
  std::u16string folded(set.ending ? WithoutEnding(text) : text);
  if (set.hotKey) {
    folded = WithoutHotKey(folded);
  }
  if (set.ending) {
    folded = WithoutEnding(folded);
  }
  return set.letterCase ? platform::UpperCase(folded) : folded;
}

}  // namespace

NearString::NearString(std::u16string_view string) {
  std::ranges::transform(kSets, folded_.begin(),
                         [&](const Differences& set) { return Without(set, string); });
}

std::optional<Differences> NearString::Compare(std::u16string_view other) const {
  if (folded_.back().empty() || Without(kSets.back(), other) != folded_.back()) {
    return std::nullopt;
  }
  const auto* const fewest = std::ranges::find_if(kSets, [&](const Differences& set) {
    const auto place = static_cast<std::size_t>(&set - kSets.data());
    return Without(set, other) == folded_.at(place);
  });
  return *fewest;
}

}  // namespace lexmill
