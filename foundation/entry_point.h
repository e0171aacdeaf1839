// SPDX-License-Identifier: MIT
// foundation: services that every room builds on.
// Where failures end. The only place above the platform that catches them.
#pragma once

#include <functional>
#include <string_view>

#include "platform/event.h"
#include "platform/failure.h"

namespace lexmill {

/// Runs `body` and shows the failure that ends it, if one does, in a message box of three lines:
/// number and place after their labels, and the description between them. Returns normally in
/// either case.
/// @param place  such as "Class Module 'clsLexGLO1' -> 'DoItNow'"
/// @return true if `body` ran to its end
bool ReportFailures(std::u16string_view place, const std::function<void()>& body);

/// Raised by ReportFailures for each failure, once it has been shown.
[[nodiscard]] platform::Event<const platform::Failure&>& FailureShown();

/// Runs one step and drops its failure, so that the next step runs.
/// @return true if the step ran to its end
bool IgnoreFailures(const std::function<void()>& step);

}  // namespace lexmill
