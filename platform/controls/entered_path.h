// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// Paths as they come from a user's hand or clipboard.
#pragma once

#include <string>
#include <string_view>

namespace lexmill::platform {

/// The path that a user means by `text`: line ends at its end go, and the address of a file on this
/// machine, such as file:///home/%E5%AD%97.glo, becomes the path that it names, byte for byte, and
/// what the host's file manager copies the path in it. Any other text comes back as it is.
/// Source: RFC 8089 for the address.
[[nodiscard]] std::u16string EnteredPath(std::u16string_view text);

}  // namespace lexmill::platform
