// SPDX-License-Identifier: MIT
// platform/files: the platform's own settings.
#pragma once

#include <string>
#include <string_view>

namespace lexmill::platform {

/// The value of `key` in section LexmillPlatform of `Lexmill.ini` in the program's folder; empty if
/// it has none.
[[nodiscard]] std::u16string PlatformSetting(std::u16string_view key);

/// Makes the page of key CodePage the system's code page, if there is one that the machine knows.
/// The environment of a run goes before the key. Called once at start by every program, before any
/// text is read. A page that is not known is reported on standard error.
void ReadPlatformSettings();

/// Chooses the code page for ReadPlatformSettings, which is called afterwards, here and in every
/// program that this one starts, whatever the settings say.
/// @param page  the number of a code page; kNoChosenPage for none, so that UTF-8 is recognised
void PassOnCodePage(std::u16string_view page);
inline constexpr std::u16string_view kNoChosenPage = u"auto";

}  // namespace lexmill::platform
