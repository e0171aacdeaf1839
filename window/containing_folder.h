// SPDX-License-Identifier: MIT
// window: the program's one window outside a run.
#pragma once

#include <string_view>

namespace lexmill::modMain {

/// Has the desktop's shell open the folder that holds the file `path`. Nothing if there is no such
/// folder. Never fails.
void OpenContainingFolder(std::u16string_view path);

}  // namespace lexmill::modMain
