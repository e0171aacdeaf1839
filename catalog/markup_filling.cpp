// SPDX-License-Identifier: MIT
#include "catalog/markup_filling.h"

#include <algorithm>
#include <string>

#include "catalog/markup_text.h"

namespace lexmill {
namespace {

using Language = MarkupPlace::Language;

std::u16string EndTag(std::u16string_view tag) {
  return u"</" + std::u16string(NameInTag(tag)) + u">";
}

// A tag of the entry's own, with the prefix that its source has.
std::u16string OwnTag(const MarkupPlace& place, std::u16string_view name) {
  const std::u16string_view source = NameInTag(place.source.tag);
  const std::size_t colon = source.find(u':');
  const std::size_t prefix = colon == std::u16string_view::npos ? 0 : colon + 1;
  return u"<" + std::u16string(source.substr(0, prefix)) + std::u16string(name) + u">";
}

std::u16string TargetTag(const MarkupPlace& place, const Filling& filling) {
  const bool isTs = place.language == Language::Ts;
  const std::u16string tag =
      place.target ? place.target->tag : OwnTag(place, isTs ? u"translation" : u"target");
  if (!isTs) {
    return WithAttribute(tag, u"state", filling.state);
  }
  return filling.needsReview ? WithAttribute(tag, u"type", u"unfinished")
                             : WithoutAttribute(tag, u"type");
}

// An element whose content becomes `content`, with `tag` as its start tag. `tag` is written only
// where it differs.
void SetContent(const MarkupElement& element, const std::u16string& tag,
                const std::u16string& content, Changes& changes) {
  if (IsEmptyTag(tag)) {
    changes.push_back({element.tagRange, OpenedTag(tag) + content + EndTag(tag)});
    return;
  }
  if (tag != element.tag) {
    changes.push_back({element.tagRange, tag});
  }
  changes.push_back({element.content, content});
}

void AddTsComment(const MarkupPlace& place, const std::u16string& text, Changes& changes) {
  if (place.comment && IsEmptyTag(place.comment->tag)) {
    SetContent(*place.comment, place.comment->tag, text, changes);
  } else if (place.comment) {
    const auto [begin, end] = place.comment->content;
    changes.push_back({platform::PlaceAt(end), (begin < end ? u"\n" : u"") + text});
  } else {
    const std::u16string tag = OwnTag(place, u"translatorcomment");
    const std::u16string element = tag + text + EndTag(tag);
    changes.push_back(
        place.target
            ? Change{platform::PlaceAt(place.target->tagRange.begin), element + place.indent}
            : Change{platform::PlaceAt(place.afterSource), place.indent + element});
  }
}

void AddNote(const MarkupPlace& place, const std::u16string& text, Changes& changes) {
  const std::u16string tag = OwnTag(place, u"note");
  const std::int64_t at = place.target ? place.target->end : place.afterSource;
  changes.push_back({platform::PlaceAt(at),
                     place.indent + WithAttribute(tag, u"from", u"Lexmill") + text + EndTag(tag)});
}

}  // namespace

Changes FillMarkupEntry(const MarkupPlace& place, const Filling& filling) {
  Changes changes;
  const std::u16string comment = EscapedForMarkup(filling.comment, place);
  if (!comment.empty() && place.language == Language::Ts) {
    AddTsComment(place, u"Lexmill: " + comment, changes);
  }
  const std::u16string content = EscapedForMarkup(filling.target, place);
  const std::u16string tag = TargetTag(place, filling);
  if (place.target) {
    SetContent(*place.target, tag, content, changes);
  } else {
    changes.push_back(
        {platform::PlaceAt(place.afterSource), place.indent + tag + content + EndTag(tag)});
  }
  if (!comment.empty() && place.language == Language::Xliff) {
    AddNote(place, comment, changes);
  }
  std::stable_sort(changes.begin(), changes.end(), [](const Change& left, const Change& right) {
    return left.range.begin < right.range.begin;
  });
  return changes;
}

}  // namespace lexmill
