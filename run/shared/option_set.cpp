// SPDX-License-Identifier: MIT
#include "run/shared/option_set.h"

namespace lexmill {

OptionSet& RunOptions() {
  static OptionSet options;
  return options;
}

}  // namespace lexmill
