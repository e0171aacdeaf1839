// SPDX-License-Identifier: MIT
#include "platform/controls/window_keys.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/controls/window_order.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

bool Marks(std::u16string_view caption, std::u16string_view key) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') {
      continue;
    }
    ++i;
    if (caption[i] != u'&') {
      return LowerCase(caption.substr(i, 1)) == key;
    }
  }
  return false;
}

}  // namespace

bool TakesKeys(ControlKind kind) {
  return kind == ControlKind::TextBox || kind == ControlKind::ComboBox ||
         kind == ControlKind::CheckBox || kind == ControlKind::Button ||
         kind == ControlKind::OptionButton;
}

Control* NextInTabOrder(const Form& form, const Control* from, bool backwards) {
  std::vector<Control*> order = TabOrder(form);
  if (backwards) {
    std::ranges::reverse(order);
  }
  const auto start = std::ranges::find(order, from);
  if (start != order.end()) {
    std::rotate(order.begin(), start + 1, order.end());  // clang can't compile the other
  }
  const auto found = std::ranges::find_if(order, [](const Control* control) {
    return TakesKeys(control->Kind()) && control->IsUsable();
  });
  return found == order.end() ? nullptr : *found;
}

Control* WithHotKey(const Form& form, char16_t key) {
  const std::u16string wanted = LowerCase(std::u16string_view(&key, 1));
  const auto found = std::ranges::find_if(form.Controls(), [&](const Control* control) {
    return TakesKeys(control->Kind()) && control->IsUsable() && Marks(control->Caption(), wanted);
  });
  return found == form.Controls().end() ? nullptr : *found;
}

Control* WithShortcut(const Form& form, std::u16string_view keys) {
  const auto found = std::ranges::find_if(
      form.Controls(), [&](const Control* control) { return control->ShortcutKeys() == keys; });
  return found == form.Controls().end() ? nullptr : *found;
}

}  // namespace lexmill::platform
