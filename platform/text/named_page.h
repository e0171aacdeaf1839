// SPDX-License-Identifier: MIT
// platform/text: code pages by the names that files give them.
#pragma once

#include <memory>
#include <string_view>

#include "platform/text/ansi_text.h"

namespace lexmill::platform {

/// True for "UTF-8" and what some programs write for it, such as "utf8".
[[nodiscard]] bool IsNameOfUtf8(std::u16string_view charset);

/// Opens the page called `charset`, a name of the IANA registry or an alias, in any case: "UTF-8",
/// "ISO-8859-2", "EUC-JP", "UTF-16LE" …
/// Its Encode fails for what the page has no exact bytes for; an undecodable byte survives as in
/// every page.
/// @throws Failure InvalidCall if the machine's converters do not know it
[[nodiscard]] std::unique_ptr<const CodePage> OpenNamedPage(std::u16string_view charset);

}  // namespace lexmill::platform
