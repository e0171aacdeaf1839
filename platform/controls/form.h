// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// A window: its controls, its life from load to unload, its two special keys.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"
#include "platform/event.h"

namespace lexmill::platform {

/// What of a window has changed.
enum class FormProperty { Caption, Size, Visible, Place, State };

enum class FormState : std::int16_t { Normal = 0, Minimised = 1, Maximised = 2 };

class Button;

/// A window as state and events. Controls enter themselves when they are made for it and leave when
/// they are destroyed; it must outlive them.
class Form {
 public:
  explicit Form(std::u16string_view name) : name_(name) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  Event<> Load;         ///< the window is about to be shown for the first time
  Event<> QueryUnload;  ///< the window is about to close
  /// The user has asked to close a busy window, which closes when it no longer is.
  Event<> CloseKept;
  Event<> HelpWanted;  ///< the user has pressed the key for help
  /// The user asks once more to close a busy window, or the system asks: the work is to end now.
  Event<> CloseInsisted;
  /// For whoever shows the window: raised after each change, with what changed.
  Event<FormProperty> Changed;

  [[nodiscard]] const std::u16string& Name() const { return name_; }

  /// The bytes of a picture file that stands for the window; they have to live as long as it.
  [[nodiscard]] std::string_view Icon() const { return icon_; }
  void Icon(std::string_view file) { icon_ = file; }

  [[nodiscard]] const std::u16string& Caption() const { return caption_; }
  void Caption(std::u16string_view caption);

  /// Size of the client area in twips.
  [[nodiscard]] std::int32_t ScaleWidth() const { return scaleWidth_; }
  [[nodiscard]] std::int32_t ScaleHeight() const { return scaleHeight_; }
  /// Sets the size of the client area, in twips.
  void ScaleSize(std::int32_t width, std::int32_t height);

  /// Place of the whole window on the screen, its frame included, in twips. All 0 until the window
  /// is shown on a screen or moved.
  [[nodiscard]] std::int32_t Left() const { return place_.left; }
  [[nodiscard]] std::int32_t Top() const { return place_.top; }
  [[nodiscard]] std::int32_t Width() const { return place_.width; }
  [[nodiscard]] std::int32_t Height() const { return place_.height; }
  /// Puts the window there, in twips.
  void Move(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height);
  /// The user, or whoever shows the window, has moved it there.
  void UserMoves(const Rectangle& place) { place_ = place; }

  [[nodiscard]] FormState WindowState() const { return state_; }
  void WindowState(FormState state);

  /// Raises Load, the first time or after a close, and makes the window visible.
  void Show();
  [[nodiscard]] bool Visible() const { return visible_; }

  /// What the window's close box does, and a program that closes the window: raises QueryUnload and
  /// takes the window away. While the window is busy the request is kept until it no longer is. A
  /// window that is not loaded, or is closing already, stays as it is.
  void Close();
  /// True while the window is at work and must not close.
  [[nodiscard]] bool Busy() const { return busy_; }
  /// Going from true to false performs a close request that was kept.
  void Busy(bool busy);

  /// The button for the Enter key: the one that has the focus, if it is usable, else the default
  /// button; null if there is neither.
  [[nodiscard]] Button* EnterButton() const;
  /// The user presses Enter: clicks the button for it, if it is usable.
  void UserPressesEnter();
  /// The user presses Esc: clicks the cancel button, if it is usable.
  void UserPressesEscape();
  /// The user presses the ShortcutKeys of `control`, one of this window's: a button is clicked, a
  /// check box gets the focus and is clicked, any other gets the focus. Nothing while the control
  /// is not usable, as input is not during a run.
  void UserPressesShortcut(Control& control);
  /// The user presses the key for help. Nothing while the window is busy.
  void UserWantsHelp();

  /// All controls in the order in which they were made, each member of a control array by itself.
  /// The view lives until a control comes or goes.
  [[nodiscard]] std::span<Control* const> Controls() const { return controls_; }
  /// All controls from the front to the back. At first, the earlier made lies before the later.
  [[nodiscard]] std::span<Control* const> FrontToBack() const { return frontToBack_; }
  /// The control of that name and index, or null.
  [[nodiscard]] Control* Find(std::u16string_view name, std::int16_t index = kNoIndex) const;
  /// The control that has the keyboard focus, or null.
  [[nodiscard]] Control* ActiveControl() const { return active_; }

 private:
  friend class Control;
  void Unload();
  void SetVisible(bool visible);
  void Add(Control& control);
  void Remove(const Control& control);
  void BringToFront(Control& control);

  std::u16string name_;
  std::u16string caption_;
  std::string_view icon_;
  std::int32_t scaleWidth_ = 0;
  std::int32_t scaleHeight_ = 0;
  Rectangle place_;
  FormState state_ = FormState::Normal;
  bool loaded_ = false;
  bool visible_ = false;
  bool busy_ = false;
  bool closeWanted_ = false;
  std::vector<Control*> controls_;
  std::vector<Control*> frontToBack_;
  Control* active_ = nullptr;
};

}  // namespace lexmill::platform
