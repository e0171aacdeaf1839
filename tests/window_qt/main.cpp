// SPDX-License-Identifier: MIT
// The tests of the window on a screen that nobody sees.
#include <gtest/gtest.h>

#include "platform/qt/screen.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const lexmill::platform::qt::Screen screen(argc, argv);
  return RUN_ALL_TESTS();
}
