// SPDX-License-Identifier: MIT
// platform/host: all that the host system is asked for.
#pragma once

#include <string_view>

namespace lexmill::platform {

/// True if both paths lead to one file, by whatever names or links; false if one leads nowhere.
[[nodiscard]] bool IsSameFile(std::u16string_view path, std::u16string_view other);

}  // namespace lexmill::platform
