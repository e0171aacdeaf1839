// SPDX-License-Identifier: MIT
// The settings files that users get with the program.
#include <string>

#include <gtest/gtest.h>

#include "tests/support/headless_window.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

struct PresetFiles : testing::Test {
  test::HeadlessWindow world;

  static std::string Shipped(const std::string& name) {
    return test::ReadBytes(platform::FromUtf8("../presets/" + name + ".ini"));
  }
  // What the options of the window look like once they are stored.
  [[nodiscard]] std::string Stored() const {
    const std::u16string path = world.folder.File("stored.ini");
    world.window.CfgSaveCtrlToIni(path);
    return test::ReadBytes(path);
  }
};

TEST_F(PresetFiles, HoldWhatTheButtonsSet) {
  world.window.CfgLoadMaxToCtrl();
  EXPECT_EQ(Shipped("full"), Stored());
  world.window.CfgLoadMinToCtrl();
  EXPECT_EQ(Shipped("minimal"), Stored());
}

TEST_F(PresetFiles, KeepFullWidthColonLeavesNothingElseOut) {
  world.window.CfgLoadMaxToCtrl();
  world.window.chkrQuanMaoHao.Value(0);
  EXPECT_EQ(Shipped("keep-full-width-colon"), Stored());
}

}  // namespace
}  // namespace lexmill
