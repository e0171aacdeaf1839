// SPDX-License-Identifier: MIT
#include <cstdlib>

#include <gtest/gtest.h>

#include "platform/files/platform_settings.h"
#include "platform/host/application.h"
#include "platform/host/host_path.h"
#include "platform/text/ansi_text.h"
#include "tests/support/files.h"

namespace lexmill::platform {
namespace {

/// Runs in a process of its own, since a page stays chosen for the life of a process.
void ExitWithTextOfE9(std::u16string_view folder) {
  SetApplicationFolder(folder);
  ReadPlatformSettings();
  std::_Exit(IsAnsiCodePageChosen() && FromAnsi("\xE9") == u"\u00E9" ? 1 : 0);
}

TEST(PlatformSettings, CodePageComesFromTheSettingsFileIfTheMachineKnowsIt) {
  struct {
    std::string_view file;
    int western;
    const char* message;
  } const kCases[] = {
      {"[LexmillPlatform]\r\nCodePage=1252\r\n", 1, ""},
      {"[Other]\r\nName=\xE9\xB0\n[LexmillPlatform]\n codepage = 1252", 1, ""},
      {"[Other]\r\nCodePage=1252\r\n", 0, "^$"},
      {"[LexmillPlatform]\r\nCodePage=\r\n", 0, "^$"},
      {"[LexmillPlatform]\r\nCodePage=12345\r\n", 0, "Lexmill.ini: no such code page: 12345"},
      {"[LexmillPlatform]\r\nCodePage=gbk\r\n", 0, "no such code page: gbk"},
      {"[LexmillPlatform]\r\nCodePage=1e99\r\n", 0, "no such code page: 1e99"},
  };
  for (const auto& [file, western, message] : kCases) {
    const test::TemporaryFolder folder;
    test::WriteBytes(folder.File("Lexmill.ini"), file);
    EXPECT_EXIT(ExitWithTextOfE9(HostPath::FromNative(folder.Path()).Text()),
                testing::ExitedWithCode(western), message)
        << file;
  }
}

TEST(PlatformSettings, NoFileLeavesTheDefaultPage) {
  const test::TemporaryFolder folder;
  EXPECT_EXIT(ExitWithTextOfE9(HostPath::FromNative(folder.Path()).Text()),
              testing::ExitedWithCode(0), "^$");
}

}  // namespace
}  // namespace lexmill::platform
