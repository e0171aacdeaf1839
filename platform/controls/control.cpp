// SPDX-License-Identifier: MIT
#include "platform/controls/control.h"

#include "platform/controls/form.h"
#include "platform/failure.h"

namespace lexmill::platform {

Control::Control(ControlKind kind, const ControlIdentity& identity)
    : kind_(kind), index_(identity.index), form_(identity.form), name_(identity.name) {
  if (form_ != nullptr) {
    form_->Add(*this);
  }
}

Control::~Control() {
  if (form_ != nullptr) {
    form_->Remove(*this);
  }
}

bool Control::IsShown() const {
  return visible_ && (container_ == nullptr || container_->IsShown());
}

bool Control::IsEnabled() const {
  return enabled_ && (container_ == nullptr || container_->IsEnabled());
}

bool Control::IsUsable() const {
  return IsShown() && IsEnabled();
}

std::u16string Control::Hint() const {
  if (toolTipText_.empty() || shortcutKeys_.empty()) {
    return toolTipText_ + shortcutKeys_;
  }
  return toolTipText_ + u" (" + shortcutKeys_ + u")";
}

void Control::ZOrderFront() {
  if (form_ != nullptr) {
    form_->BringToFront(*this);
    Changed.Raise(ControlProperty::ZOrder);
  }
}

void Control::SetFocus() {
  if (!IsUsable()) {
    throw Failure(FailureNumber::InvalidCall, FailureOrigin::Runtime);
  }
  if (form_ == nullptr || !Assign(form_->active_, this, ControlProperty::Focus)) {
    return;
  }
  GotFocus.Raise();
}

}  // namespace lexmill::platform
