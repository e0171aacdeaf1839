// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// The kinds of controls. Members that begin with User are what a user does to the control; whoever
// shows it calls them. They do nothing while the control is not usable.
//
// A control is made for a window, which it enters, or for none; its events come on the caller's
// thread, inside the member that causes them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"

namespace lexmill::platform {

/// A text that cannot be edited.
class Label : public Control {
 public:
  explicit Label(const ControlIdentity& identity = {}) : Control(ControlKind::Label, identity) {}

  Event<> Click;  ///< the user has clicked the label
  Event<>
      DblClick;  ///< the user has clicked it twice in quick succession; Click came for the first
  void UserClicks();
  void UserDoubleClicks();

  [[nodiscard]] platform::Alignment Alignment() const { return alignment_; }
  void Alignment(platform::Alignment alignment) {
    Assign(alignment_, alignment, ControlProperty::Look);
  }
  /// True if what lies behind the label shows instead of its BackColor.
  [[nodiscard]] bool Transparent() const { return transparent_; }
  void Transparent(bool transparent) { Assign(transparent_, transparent, ControlProperty::Look); }
  /// True if the mouse pointer over the label is a hand.
  [[nodiscard]] bool HandPointer() const { return handPointer_; }
  void HandPointer(bool hand) { Assign(handPointer_, hand, ControlProperty::Look); }

 private:
  platform::Alignment alignment_ = platform::Alignment::Left;
  bool transparent_ = false;
  bool handPointer_ = false;
};

/// A field for one line of text.
class TextBox : public Control {
 public:
  explicit TextBox(const ControlIdentity& identity = {})
      : Control(ControlKind::TextBox, identity) {}

  Event<> Change;  ///< the text has become another one, by whatever hand

  [[nodiscard]] const std::u16string& Text() const { return text_; }
  /// Sets the text, cut to MaxLength.
  void Text(std::u16string_view text);
  /// The user makes it that text; in a field for a path, the path that is meant by it.
  void UserEnters(std::u16string_view text);

  /// True if the text is a path.
  [[nodiscard]] bool HoldsPath() const { return holdsPath_; }
  void HoldsPath(bool path) { holdsPath_ = path; }

  /// Most 16-bit units of a text that is set from now on; 0 for no limit.
  [[nodiscard]] std::size_t MaxLength() const { return maxLength_; }
  void MaxLength(std::size_t units) { Assign(maxLength_, units, ControlProperty::Look); }

 private:
  std::u16string text_;
  std::size_t maxLength_ = 0;
  bool holdsPath_ = false;
};

/// A field for a path, with a list of paths to choose from.
class ComboBox : public Control {
 public:
  explicit ComboBox(const ControlIdentity& identity = {})
      : Control(ControlKind::ComboBox, identity) {}

  Event<> Change;  ///< the text has become another one, but by no choice from the list
  Event<> Click;   ///< the user has chosen from the list
  Event<std::u16string_view> FileDropped;  ///< the user has dropped a file of that path on the box
  /// The user chooses entry `position`, which becomes the text. Nothing if there is none.
  void UserChooses(std::size_t position);
  /// Sets whether the box takes several files at a time, as one text of their paths with ";"
  /// between two; otherwise the first of them counts, which is so at first.
  void TakesSeveralFiles(bool several) { takesSeveralFiles_ = several; }
  /// The text for files that are given at a time, at least one: for as many as the box takes.
  [[nodiscard]] std::u16string TextFor(const std::vector<std::u16string>& files) const;
  /// The user drops a file. The box itself stays as it is.
  void UserDropsFile(std::u16string_view path);

  [[nodiscard]] const std::u16string& Text() const { return text_; }
  /// Sets the text and leaves the list alone.
  void Text(std::u16string_view text);
  /// The user makes it the path that is meant by `text`.
  void UserEnters(std::u16string_view text);

  /// Number of texts to choose from.
  [[nodiscard]] std::size_t ListCount() const { return list_.size(); }
  /// Entry `position`, from 0; empty beyond the end.
  [[nodiscard]] std::u16string_view List(std::size_t position) const;
  /// Replaces an entry, or adds one if `position` is the end.
  /// @throws Failure InvalidCall beyond the end; so do the next two
  void List(std::size_t position, std::u16string_view text);
  /// Inserts an entry, so that it gets that position.
  void AddItem(std::u16string_view text, std::size_t position);
  void RemoveItem(std::size_t position);

 private:
  bool takesSeveralFiles_ = false;
  std::u16string text_;
  std::vector<std::u16string> list_;
};

/// A box with a caption: 0 unchecked, 1 checked, 2 greyed.
class CheckBox : public Control {
 public:
  explicit CheckBox(const ControlIdentity& identity = {})
      : Control(ControlKind::CheckBox, identity) {}

  Event<> Click;  ///< the value has changed, by whatever hand
  /// The user checks the box, or unchecks it if it is checked or greyed.
  void UserClicks();

  [[nodiscard]] std::int16_t Value() const { return value_; }
  /// @throws Failure InvalidPropertyValue for anything but 0, 1 and 2
  void Value(std::int16_t value);

  /// True if the box is drawn as a push button that stays pressed while it is checked.
  [[nodiscard]] bool PushButtonStyle() const { return pushButtonStyle_; }
  void PushButtonStyle(bool push) { Assign(pushButtonStyle_, push, ControlProperty::Look); }

 private:
  std::int16_t value_ = 0;
  bool pushButtonStyle_ = false;
};

/// A push button.
class Button : public Control {
 public:
  explicit Button(const ControlIdentity& identity = {}) : Control(ControlKind::Button, identity) {}

  Event<> Click;  ///< the user has pressed the button, with the mouse or a key
  void UserClicks();

  /// True for the window's button for the Enter key.
  [[nodiscard]] bool Default() const { return default_; }
  void Default(bool isDefault) { Assign(default_, isDefault, ControlProperty::Look); }
  /// True for the window's button for the Esc key.
  [[nodiscard]] bool Cancel() const { return cancel_; }
  void Cancel(bool isCancel) { Assign(cancel_, isCancel, ControlProperty::Look); }

 private:
  bool default_ = false;
  bool cancel_ = false;
};

/// A button that is on or off, drawn as a push button.
class OptionButton : public Control {
 public:
  explicit OptionButton(const ControlIdentity& identity = {})
      : Control(ControlKind::OptionButton, identity) {}

  Event<> Click;  ///< the button has gone on, by whatever hand
  /// The user presses the button, which goes on. Nothing if it is on.
  void UserClicks();

  /// True while the button is on. Turning one on turns no other off.
  [[nodiscard]] bool Value() const { return value_; }
  void Value(bool on);

 private:
  bool value_ = false;
};

/// A group with a background and, on request, a border.
class PictureBox : public Control {
 public:
  explicit PictureBox(const ControlIdentity& identity = {})
      : Control(ControlKind::PictureBox, identity) {}

  /// True if a line is drawn round the group.
  [[nodiscard]] bool Border() const { return border_; }
  void Border(bool border) { Assign(border_, border, ControlProperty::Look); }

 private:
  bool border_ = false;
};

/// A group inside an etched line.
class Frame : public Control {
 public:
  explicit Frame(const ControlIdentity& identity = {}) : Control(ControlKind::Frame, identity) {}
};

/// A picture.
class Image : public Control {
 public:
  explicit Image(const ControlIdentity& identity = {}) : Control(ControlKind::Image, identity) {}

  /// The bytes of a picture file; they have to live as long as the control.
  [[nodiscard]] std::string_view Picture() const { return picture_; }
  void Picture(std::string_view file) { Assign(picture_, file, ControlProperty::Look); }

 private:
  std::string_view picture_;
};

/// A line one pixel wide from the left top of its place to the right bottom, in its ForeColor.
class Line : public Control {
 public:
  explicit Line(const ControlIdentity& identity = {}) : Control(ControlKind::Line, identity) {}
};

/// A rectangle with a frame one pixel wide in its ForeColor and a fill in its BackColor.
class Shape : public Control {
 public:
  explicit Shape(const ControlIdentity& identity = {}) : Control(ControlKind::Shape, identity) {}
};

/// Controls of one kind under one name, told apart by their index from 0.
template <class T>
class ControlArray {
 public:
  /// Makes `count` controls for `form`, which must outlive them; null for none.
  ControlArray(Form* form, std::u16string_view name, std::int16_t count) {
    for (std::int16_t i = 0; i < count; ++i) {
      controls_.emplace_back(ControlIdentity{form, name, i});
    }
  }

  /// @throws Failure InvalidCall if there is no control of that index
  [[nodiscard]] T& operator()(std::int16_t index) { return controls_[Checked(index)]; }
  [[nodiscard]] const T& operator()(std::int16_t index) const { return controls_[Checked(index)]; }

  /// Number of controls; the highest index is one less.
  [[nodiscard]] std::int16_t Count() const { return static_cast<std::int16_t>(controls_.size()); }

 private:
  [[nodiscard]] std::size_t Checked(std::int16_t index) const;

  std::deque<T> controls_;
};

/// @throws Failure InvalidCall unless `index` is at least 0 and below `count`
[[nodiscard]] std::size_t CheckedIndex(std::int16_t index, std::size_t count);

template <class T>
std::size_t ControlArray<T>::Checked(std::int16_t index) const {
  return CheckedIndex(index, controls_.size());
}

}  // namespace lexmill::platform
