// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// What keys mean in a window whose desktop doesn't read captions itself.
#pragma once

#include <string_view>

#include "platform/controls/form.h"

namespace lexmill::platform {

/// True for a control that a user can type into or press.
[[nodiscard]] bool TakesKeys(ControlKind kind);

/// The next usable control that takes keys, by TabIndex and round the end; null if there is none.
/// @param from  where the focus is; null for before the first
[[nodiscard]] Control* NextInTabOrder(const Form& form, const Control* from, bool backwards);

/// The usable control whose caption marks that letter or digit by "&"; null if none does.
[[nodiscard]] Control* WithHotKey(const Form& form, char16_t key);

/// The control whose ShortcutKeys are `keys`, such as "Ctrl+O"; null if there is none.
[[nodiscard]] Control* WithShortcut(const Form& form, std::u16string_view keys);

}  // namespace lexmill::platform
