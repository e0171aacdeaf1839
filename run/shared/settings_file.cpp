// SPDX-License-Identifier: MIT
#include "run/shared/settings_file.h"

#include "run/shared/run_state.h"

namespace lexmill {

std::u16string SettingsFile() {
  return TheRun().AppPath + u"Lexmill.ini";
}

}  // namespace lexmill
