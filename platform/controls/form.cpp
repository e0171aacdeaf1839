// SPDX-License-Identifier: MIT
#include "platform/controls/form.h"

#include <algorithm>

#include "platform/controls/controls.h"

namespace lexmill::platform {
namespace {

Button* FindButton(std::span<Control* const> controls, bool (Button::*hasRole)() const) {
  for (Control* control : controls) {
    if (control->Kind() == ControlKind::Button) {
      auto* button = static_cast<Button*>(control);
      if ((button->*hasRole)()) {
        return button;
      }
    }
  }
  return nullptr;
}

}  // namespace

void Form::Caption(std::u16string_view caption) {
  caption_ = caption;
  Changed.Raise(FormProperty::Caption);
}

void Form::ScaleSize(std::int32_t width, std::int32_t height) {
  scaleWidth_ = width;
  scaleHeight_ = height;
  Changed.Raise(FormProperty::Size);
}

void Form::Move(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
  place_ = {.left = left, .top = top, .width = width, .height = height};
  Changed.Raise(FormProperty::Place);
}

void Form::WindowState(FormState state) {
  state_ = state;
  Changed.Raise(FormProperty::State);
}

void Form::Show() {
  if (!loaded_) {
    loaded_ = true;
    Load.Raise();
  }
  SetVisible(true);
}

void Form::Close() {
  if (!loaded_) {
    return;
  }
  if (!busy_) {
    Unload();
  } else if (!closeWanted_) {
    closeWanted_ = true;
    CloseKept.Raise();
  } else {
    CloseInsisted.Raise();
  }
}

void Form::Unload() {
  // Not loaded from here on, so that a request that comes while a listener shows a message does not
  // start a second unload; and gone in the end also if a listener fails, so that the program ends.
  struct Leave {
    Form& form;
    ~Leave() { form.SetVisible(false); }
  };
  const Leave leave{*this};
  loaded_ = false;
  closeWanted_ = false;
  QueryUnload.Raise();
}

void Form::Busy(bool busy) {
  busy_ = busy;
  if (!busy_ && closeWanted_) {
    Unload();
  }
}

void Form::SetVisible(bool visible) {
  visible_ = visible;
  Changed.Raise(FormProperty::Visible);
}

Button* Form::EnterButton() const {
  const bool onButton =
      active_ != nullptr && active_->Kind() == ControlKind::Button && active_->IsUsable();
  return onButton ? static_cast<Button*>(active_) : FindButton(controls_, &Button::Default);
}

void Form::UserPressesEnter() {
  if (Button* button = EnterButton()) {
    button->UserClicks();
  }
}

void Form::UserPressesEscape() {
  if (Button* button = FindButton(controls_, &Button::Cancel)) {
    button->UserClicks();
  }
}

void Form::UserPressesShortcut(Control& control) {
  if (!control.IsUsable()) {
    return;
  }
  if (control.Kind() == ControlKind::Button) {
    static_cast<Button&>(control).UserClicks();
    return;
  }
  control.SetFocus();
  if (control.Kind() == ControlKind::CheckBox) {
    static_cast<CheckBox&>(control).UserClicks();
  }
}

void Form::UserWantsHelp() {
  if (!busy_) {
    HelpWanted.Raise();
  }
}

Control* Form::Find(std::u16string_view name, std::int16_t index) const {
  const auto found = std::ranges::find_if(controls_, [&](const Control* control) {
    return control->Name() == name && control->Index() == index;
  });
  return found == controls_.end() ? nullptr : *found;
}

void Form::Add(Control& control) {
  controls_.push_back(&control);
  frontToBack_.push_back(&control);
}

void Form::Remove(const Control& control) {
  std::erase(controls_, &control);
  std::erase(frontToBack_, &control);
  if (active_ == &control) {
    active_ = nullptr;
  }
}

void Form::BringToFront(Control& control) {
  const auto found = std::ranges::find(frontToBack_, &control);
  std::rotate(frontToBack_.begin(), found, std::next(found));
}

}  // namespace lexmill::platform
