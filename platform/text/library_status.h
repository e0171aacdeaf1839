// SPDX-License-Identifier: MIT
// platform/text: what the Unicode library reports, as a failure of the platform.
#pragma once

#include <unicode/utypes.h>

#include "platform/failure.h"

namespace lexmill::platform {

/// @throws Failure InvalidCall if `status` is an error; warnings pass
inline void ThrowIfError(UErrorCode status) {
  if (U_FAILURE(status)) {
    throw Failure(FailureNumber::InvalidCall, FailureOrigin::Runtime);
  }
}

}  // namespace lexmill::platform
