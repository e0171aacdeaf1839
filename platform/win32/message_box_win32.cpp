// SPDX-License-Identifier: MIT
#include <iostream>

#include "platform/controls/dialogs.h"
#include "platform/controls/program_end.h"
#include "platform/host/application.h"
#include "platform/text/text.h"
#include "platform/win32/dialog_owner.h"
#include "platform/win32/wide_text.h"

namespace lexmill::platform {

MessageAnswer ShowMessageBox(std::u16string_view text, MessageIcon icon, MessageButtons buttons) {
  if (ProgramEnd::IsAsked()) {
    std::cerr << ToUtf8(text) << std::endl;
    return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Cancel;
  }
  const UINT style = (icon == MessageIcon::Critical ? MB_ICONERROR : MB_ICONQUESTION) |
                     (buttons == MessageButtons::Ok ? MB_OK : MB_OKCANCEL);
  const std::u16string message(text);
  const std::u16string title(kApplicationTitle);
  const int answer =
      MessageBoxW(win32::DialogOwner(), win32::Wide(message), win32::Wide(title), style);
  return answer == IDOK ? MessageAnswer::Ok : MessageAnswer::Cancel;
}

}  // namespace lexmill::platform
