// SPDX-License-Identifier: MIT
#include "platform/files/platform_settings.h"

#include <iostream>
#include <string>

#include "platform/failure.h"
#include "platform/files/profile_file.h"
#include "platform/host/application.h"
#include "platform/host/host_path.h"
#include "platform/host/host_system.h"
#include "platform/text/ansi_text.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

constexpr std::u16string_view kPageVariable = u"LEXMILL_CODE_PAGE";

std::u16string SettingsPath() {
  return WithSeparator(ApplicationFolder()) + u"Lexmill.ini";
}

}  // namespace

std::u16string PlatformSetting(std::u16string_view key) {
  constexpr std::size_t kSize = 32767;
  return GetPrivateProfileString(u"LexmillPlatform", key, {}, kSize, SettingsPath());
}

void ReadPlatformSettings() {
  std::u16string page = EnvironmentVariable(kPageVariable);
  if (page.empty()) {
    page = PlatformSetting(u"CodePage");
  }
  if (page.empty() || page == kNoChosenPage) {
    return;
  }
  try {
    SetAnsiCodePage(ToInt32(page));
  } catch (const Failure&) {
    std::cerr << ToUtf8(SettingsPath()) << ": no such code page: " << ToUtf8(page) << '\n';
  }
}

void PassOnCodePage(std::u16string_view page) {
  SetEnvironmentVariable(kPageVariable, page);
}

}  // namespace lexmill::platform
