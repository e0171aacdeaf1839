// SPDX-License-Identifier: MIT
// platform/host/win32: links by name.
#pragma once

#include <string>

namespace lexmill::platform::system {

[[nodiscard]] bool IsLink(const std::wstring& name);
/// The path that the link `name` itself holds, taken from the link's folder if it is relative;
/// empty if it can't be read.
[[nodiscard]] std::u16string LinkedPath(const std::wstring& name);

}  // namespace lexmill::platform::system
