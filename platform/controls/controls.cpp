// SPDX-License-Identifier: MIT
#include "platform/controls/controls.h"

#include "platform/controls/entered_path.h"
#include "platform/failure.h"

namespace lexmill::platform {
namespace {

constexpr std::int16_t kUnchecked = 0;
constexpr std::int16_t kChecked = 1;
constexpr std::int16_t kGreyed = 2;

[[noreturn]] void FailInvalidCall() {
  throw Failure(FailureNumber::InvalidCall, FailureOrigin::Runtime);
}

}  // namespace

void Label::UserClicks() {
  if (IsUsable()) {
    Click.Raise();
  }
}

void Label::UserDoubleClicks() {
  if (IsUsable()) {
    DblClick.Raise();
  }
}

void TextBox::Text(std::u16string_view text) {
  const auto cut = maxLength_ == 0 ? text : text.substr(0, maxLength_);
  if (Assign(text_, cut, ControlProperty::Text)) {
    Change.Raise();
  }
}

void TextBox::UserEnters(std::u16string_view text) {
  Text(holdsPath_ ? EnteredPath(text) : std::u16string(text));
}

void ComboBox::UserChooses(std::size_t position) {
  if (!IsUsable() || position >= list_.size()) {
    return;
  }
  Assign(text_, list_[position], ControlProperty::Text);
  Click.Raise();
}

std::u16string ComboBox::TextFor(const std::vector<std::u16string>& files) const {
  std::u16string text = files.front();
  for (std::size_t i = 1; takesSeveralFiles_ && i < files.size(); ++i) {
    text += u';' + files[i];
  }
  return text;
}

void ComboBox::UserDropsFile(std::u16string_view path) {
  if (IsUsable()) {
    FileDropped.Raise(path);
  }
}

void ComboBox::Text(std::u16string_view text) {
  if (Assign(text_, text, ControlProperty::Text)) {
    Change.Raise();
  }
}

void ComboBox::UserEnters(std::u16string_view text) {
  Text(EnteredPath(text));
}

std::u16string_view ComboBox::List(std::size_t position) const {
  return position < list_.size() ? std::u16string_view(list_[position]) : std::u16string_view();
}

void ComboBox::List(std::size_t position, std::u16string_view text) {
  if (position >= list_.size()) {
    AddItem(text, position);
    return;
  }
  Assign(list_[position], text, ControlProperty::List);
}

void ComboBox::AddItem(std::u16string_view text, std::size_t position) {
  if (position > list_.size()) {
    FailInvalidCall();
  }
  list_.emplace(list_.begin() + static_cast<std::ptrdiff_t>(position), text);
  Changed.Raise(ControlProperty::List);
}

void ComboBox::RemoveItem(std::size_t position) {
  if (position >= list_.size()) {
    FailInvalidCall();
  }
  list_.erase(list_.begin() + static_cast<std::ptrdiff_t>(position));
  Changed.Raise(ControlProperty::List);
}

void CheckBox::UserClicks() {
  if (IsUsable()) {
    Value(value_ == kUnchecked ? kChecked : kUnchecked);
  }
}

void CheckBox::Value(std::int16_t value) {
  if (value < kUnchecked || value > kGreyed) {
    throw Failure(FailureNumber::InvalidPropertyValue, FailureOrigin::Runtime);
  }
  if (Assign(value_, value, ControlProperty::Value)) {
    Click.Raise();
  }
}

void Button::UserClicks() {
  if (IsUsable()) {
    Click.Raise();
  }
}

void OptionButton::UserClicks() {
  if (IsUsable()) {
    Value(true);
  }
}

void OptionButton::Value(bool on) {
  if (Assign(value_, on, ControlProperty::Value) && on) {
    Click.Raise();
  }
}

std::size_t CheckedIndex(std::int16_t index, std::size_t count) {
  if (index < 0 || static_cast<std::size_t>(index) >= count) {
    FailInvalidCall();
  }
  return static_cast<std::size_t>(index);
}

}  // namespace lexmill::platform
