// SPDX-License-Identifier: MIT
// platform/interchange: formats in which programs exchange data.
// The encodings of XML files.
#pragma once

#include <memory>
#include <string_view>

#include <expat.h>

#include "platform/text/ansi_text.h"

namespace lexmill::platform {

/// The page of an XML file that begins with the two bytes `start`, and whose declaration names
/// `declared`, which may be empty; none if nobody knows it. A page that was described for the
/// library lacks the characters of more than two bytes.
[[nodiscard]] std::shared_ptr<const CodePage> PageOfMarkup(std::string_view start,
                                                           std::u16string_view declared);

/// As OpenNamedPage, but none for an unknown name.
[[nodiscard]] std::shared_ptr<const CodePage> OpenPageOrNone(std::u16string_view name);

/// Describes a page of one or two bytes a character for the library. `page` has to live as long as
/// the parser. @return false for a page that ASCII isn't a part of
[[nodiscard]] bool DescribePage(const CodePage& page, XML_Encoding& description);

}  // namespace lexmill::platform
