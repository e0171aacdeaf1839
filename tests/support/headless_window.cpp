// SPDX-License-Identifier: MIT
#include "tests/support/headless_window.h"

#include "run/shared/option_set.h"
#include "run/shared/run_state.h"

namespace lexmill::test {

HeadlessWindow::HeadlessWindow()
    : window(frmMain::Create()), session(platform::headless::TheSession()) {
  session = {};
  RunOptions() = {};
  TheRun() = {};
  TheRun().AppPath = folder.File("");
}

}  // namespace lexmill::test
