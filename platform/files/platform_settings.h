// SPDX-License-Identifier: MIT
// platform/files: the platform's own settings.
#pragma once

namespace lexmill::platform {

/// Reads the key CodePage of section LexmillPlatform from `Lexmill.ini` in the program's folder
/// and, if it holds a page that the machine knows, makes that the system's code page. Called once
/// at start by every program, before anything else. A page that is not known is told on standard
/// error.
void ReadPlatformSettings();

}  // namespace lexmill::platform
