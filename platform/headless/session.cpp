// SPDX-License-Identifier: MIT
#include "platform/headless/headless.h"

namespace lexmill::platform::headless {

Session& TheSession() {
  static Session session;
  return session;
}

}  // namespace lexmill::platform::headless
