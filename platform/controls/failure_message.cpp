// SPDX-License-Identifier: MIT
#include "platform/controls/failure_message.h"

#include <new>

#include "platform/controls/dialogs.h"
#include "platform/failure.h"
#include "platform/text/numbers.h"

namespace lexmill::platform {
namespace {

void Show(const Failure& failure) {
  ShowMessageBox(u"错误:" + ToText(failure.Number()) + u"\r\n" + failure.Description(),
                 MessageIcon::Critical, MessageButtons::Ok);
}

}  // namespace

bool ShowFailureOf(const std::function<void()>& body) {
  try {
    body();
    return true;
  } catch (const Failure& failure) {
    Show(failure);
  } catch (const std::bad_alloc&) {
    Show(Failure(FailureNumber::OutOfMemory, FailureOrigin::Runtime));
  }
  return false;
}

}  // namespace lexmill::platform
