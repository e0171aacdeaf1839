// SPDX-License-Identifier: MIT
#include "platform/files/platform_settings.h"

#include <iostream>
#include <string>

#include "platform/failure.h"
#include "platform/files/profile_file.h"
#include "platform/host/application.h"
#include "platform/host/host_path.h"
#include "platform/text/ansi_text.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"

namespace lexmill::platform {

void ReadPlatformSettings() {
  constexpr std::size_t kSize = 64;
  const std::u16string path = WithSeparator(ApplicationFolder()) + u"Lexmill.ini";
  const std::u16string page =
      GetPrivateProfileString(u"LexmillPlatform", u"CodePage", {}, kSize, path);
  if (page.empty()) {
    return;
  }
  try {
    SetAnsiCodePage(ToInt32(page));
  } catch (const Failure&) {
    std::cerr << ToHostPath(path) << ": no such code page: " << ToUtf8(page) << '\n';
  }
}

}  // namespace lexmill::platform
