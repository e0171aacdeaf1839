// SPDX-License-Identifier: MIT
#include "run/modMain.h"

#include "platform/host/application.h"
#include "platform/host/host_path.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"

namespace lexmill::modMain {

void Main() {
  TheRun().AppPath = platform::WithSeparator(platform::ApplicationFolder());
  frmMain::Create().Show();
}

}  // namespace lexmill::modMain
