// SPDX-License-Identifier: MIT
#include "platform/controls/screen.h"

#include <ole2.h>

#include "platform/controls/failure_message.h"
#include "platform/host/process.h"
#include "platform/win32/form_window.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/picture.h"

namespace lexmill::platform {
namespace {

// What of the system has to be asked for before a window uses it.
class Services {
 public:
  Services() {
    constexpr INITCOMMONCONTROLSEX kControls = {sizeof kControls,
                                                ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
    InitCommonControlsEx(&kControls);
    OleInitialize(nullptr);
    SetWaiting(win32::RepaintWhileWaiting);
  }
  ~Services() {
    SetWaiting({});
    OleUninitialize();
  }
  Services(const Services&) = delete;
  Services& operator=(const Services&) = delete;

 private:
  win32::PictureService pictures_;
};

}  // namespace

bool IsScreenThere() {
  return true;
}

int RunOnScreen(int& /*argc*/, char** /*argv*/, const std::function<Form&()>& open,
                const std::function<void()>& opened) {
  constexpr int kFailed = 1;
  const Services services;
  Form* form = nullptr;
  if (!ShowFailureOf([&] { form = &open(); })) {
    return kFailed;
  }
  const win32::FormWindow window(*form);
  opened();
  return form->Visible() ? win32::RunMessageLoop() : 0;
}

}  // namespace lexmill::platform
