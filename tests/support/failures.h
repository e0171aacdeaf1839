// SPDX-License-Identifier: MIT
// tests/support: a small world for tests.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/failure.h"

namespace lexmill::test {

/// Number of the failure that `action` ends with; 0 if it ends well.
[[nodiscard]] inline std::int32_t FailureOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const platform::Failure& failure) {
    return failure.Number();
  }
  return 0;
}

}  // namespace lexmill::test
