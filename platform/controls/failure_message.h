// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// Failures that reach the edge of the program.
#pragma once

#include <functional>

namespace lexmill::platform {

/// Runs `body` and shows the failure that ends it, if one does, in a message box.
/// @return whether it ran to its end
bool ShowFailureOf(const std::function<void()>& body);

}  // namespace lexmill::platform
