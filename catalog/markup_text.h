// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// Tags and texts as XML writes them.
#pragma once

#include <string>
#include <string_view>

#include "catalog/markup_place.h"

namespace lexmill {

/// `text` as content of an element of the file that `place` lies in. What its encoding lacks is
/// written as a reference; what XML can't hold, as the element that the format has for it, or else
/// as the replacement character.
[[nodiscard]] std::u16string EscapedForMarkup(std::u16string_view text, const MarkupPlace& place);

/// A start tag with the attribute `name` set to `value`, which needs no escapes, in its place if
/// the tag has it, else after the others and in their quotes.
[[nodiscard]] std::u16string WithAttribute(std::u16string_view tag, std::u16string_view name,
                                           std::u16string_view value);
/// A start tag without the attribute `name` and the blanks before it.
[[nodiscard]] std::u16string WithoutAttribute(std::u16string_view tag, std::u16string_view name);

/// The name of a tag's element, with its prefix.
[[nodiscard]] std::u16string_view NameInTag(std::u16string_view tag);
/// True for the tag of an empty element, such as <a/>.
[[nodiscard]] bool IsEmptyTag(std::u16string_view tag);
/// The start tag that an empty element's tag would be if it had content.
[[nodiscard]] std::u16string OpenedTag(std::u16string_view tag);

}  // namespace lexmill
