// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
#pragma once

#include <string_view>

#include "run/shared/file_facts.h"

namespace lexmill {

/// Looks at the bytes of a dictionary: at all of a small file, at eight places of a large one, so
/// that it costs no time that a user would notice. Never fails: of a file that can't be read
/// nothing is known.
[[nodiscard]] FileFacts InspectFile(std::u16string_view path);

}  // namespace lexmill
