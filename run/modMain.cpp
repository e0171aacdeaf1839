// SPDX-License-Identifier: MIT
#include "run/modMain.h"

#include "platform/files/platform_settings.h"
#include "platform/host/application.h"
#include "platform/host/host_path.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"

namespace lexmill::modMain {

void Main() {
  TheRun().AppPath = platform::WithSeparator(platform::ApplicationFolder());
  if (const std::u16string folder = platform::PlatformSetting(u"WorkDir"); !folder.empty()) {
    TheRun().WorkDir = platform::WithSeparator(platform::PathFrom(TheRun().AppPath, folder));
  }
  TheRun().firstReferenceOnly = platform::PlatformSetting(u"FirstReferenceOnly") == u"1";
  frmMain::Create().Show();
}

}  // namespace lexmill::modMain
