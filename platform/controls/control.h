// SPDX-License-Identifier: MIT
// platform/controls: stands in for the desktop system; knows nothing of dictionaries.
// What all controls of a window have in common. A control is state and events; nothing here draws.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/event.h"

namespace lexmill::platform {

class Form;

enum class ControlKind {
  Label,
  ComboBox,
  CheckBox,
  TextBox,
  Button,
  OptionButton,
  PictureBox,
  Frame,
  Image,
  Line,
  Shape,
};

/// What of a control has changed.
enum class ControlProperty {
  Container,
  Place,
  ZOrder,
  Visible,
  Enabled,
  Focus,
  TabIndex,
  Caption,
  Text,
  List,
  Value,
  Colors,
  Look,  ///< alignment, font, tool tip, pointer, border and whatever a kind adds to its drawing
};

enum class Alignment { Left, Right, Center };

/// A colour 0xBBGGRR, or one of the system's, told by its top bit.
using Color = std::uint32_t;
inline constexpr Color kBlack = 0x000000;
inline constexpr Color kWhite = 0xFFFFFF;
/// What the system gives a control of that kind.
inline constexpr Color kDefaultColor = 0xFFFFFFFF;
inline constexpr Color kHighlightColor = 0x8000000D;
inline constexpr Color kButtonShadowColor = 0x80000010;
inline constexpr Color kButtonHighlightColor = 0x80000014;

/// A place in a container or in the window's client area, in twips (15 to the pixel at 96 dpi).
struct Rectangle {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;

  bool operator==(const Rectangle&) const = default;
};

/// Index of a control that is in no control array.
inline constexpr std::int16_t kNoIndex = -1;

/// By what a window knows a control.
struct ControlIdentity {
  Form* form = nullptr;  ///< the window that lists the control, must outlive it; null for none
  std::u16string_view name{};
  std::int16_t index = kNoIndex;
};

/// The properties that every control has. Each change of one raises Changed; writing the value that
/// it has already does nothing. Made only as one of the kinds in controls.h; Kind says which.
class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  /// For whoever shows the control: raised after each change, with what changed.
  Event<ControlProperty> Changed;
  /// The control has got the keyboard focus.
  Event<> GotFocus;

  [[nodiscard]] ControlKind Kind() const { return kind_; }
  [[nodiscard]] const std::u16string& Name() const { return name_; }
  /// Position in the control array of this name, from 0, or kNoIndex.
  [[nodiscard]] std::int16_t Index() const { return index_; }

  /// The group that the control lies in, or null for the window itself. The group must outlive it.
  [[nodiscard]] const Control* Container() const { return container_; }
  void Container(const Control* container) {
    Assign(container_, container, ControlProperty::Container);
  }

  /// Twips, relative to the container.
  [[nodiscard]] const Rectangle& Place() const { return place_; }
  void Place(const Rectangle& place) { Assign(place_, place, ControlProperty::Place); }

  /// Position in the order in which the tab key goes round.
  [[nodiscard]] int TabIndex() const { return tabIndex_; }
  void TabIndex(int position) { Assign(tabIndex_, position, ControlProperty::TabIndex); }

  /// The control's own setting; see IsShown.
  [[nodiscard]] bool Visible() const { return visible_; }
  void Visible(bool visible) { Assign(visible_, visible, ControlProperty::Visible); }
  [[nodiscard]] bool Enabled() const { return enabled_; }
  void Enabled(bool enabled) { Assign(enabled_, enabled, ControlProperty::Enabled); }

  /// True if the control and all groups round it are visible.
  [[nodiscard]] bool IsShown() const;
  /// True if the control and all groups round it are enabled.
  [[nodiscard]] bool IsEnabled() const;
  /// True if a user can work the control: it is shown, and it and all groups round it are enabled.
  [[nodiscard]] bool IsUsable() const;

  /// Text on the control; "&" marks a hot key, "&&" shows one ampersand. Empty for kinds without.
  [[nodiscard]] const std::u16string& Caption() const { return caption_; }
  void Caption(std::u16string_view caption) { Assign(caption_, caption, ControlProperty::Caption); }

  [[nodiscard]] Color BackColor() const { return backColor_; }
  void BackColor(Color color) { Assign(backColor_, color, ControlProperty::Colors); }
  [[nodiscard]] Color ForeColor() const { return foreColor_; }
  void ForeColor(Color color) { Assign(foreColor_, color, ControlProperty::Colors); }

  [[nodiscard]] const std::u16string& ToolTipText() const { return toolTipText_; }
  void ToolTipText(std::u16string_view text) { Assign(toolTipText_, text, ControlProperty::Look); }
  /// Keys that work the control from anywhere in its window, such as "Ctrl+O"; empty for none.
  [[nodiscard]] const std::u16string& ShortcutKeys() const { return shortcutKeys_; }
  void ShortcutKeys(std::u16string_view keys) {
    Assign(shortcutKeys_, keys, ControlProperty::Look);
  }
  /// What a user is shown who stays over the control: its tool tip and its keys.
  [[nodiscard]] std::u16string Hint() const;
  /// Name of the font; empty for the window's.
  [[nodiscard]] const std::u16string& FontName() const { return fontName_; }
  void FontName(std::u16string_view name) { Assign(fontName_, name, ControlProperty::Look); }

  /// Puts the control before all others of its window.
  void ZOrderFront();

  /// Gives the control the keyboard focus; raises GotFocus unless it has it already. Also what
  /// whoever shows the control calls when the user moves the focus there.
  /// @throws Failure InvalidCall if the control is not usable
  void SetFocus();

 protected:
  Control(ControlKind kind, const ControlIdentity& identity);
  ~Control();

  /// Stores `value` and raises Changed if that makes a difference. @return whether it does
  template <class T, class V>
  bool Assign(T& property, const V& value, ControlProperty what) {
    if (property == value) {
      return false;
    }
    property = value;
    Changed.Raise(what);
    return true;
  }

 private:
  ControlKind kind_;
  std::int16_t index_;
  bool visible_ = true;
  bool enabled_ = true;
  int tabIndex_ = 0;
  Form* form_;
  const Control* container_ = nullptr;
  Rectangle place_;
  Color backColor_ = kDefaultColor;
  Color foreColor_ = kDefaultColor;
  std::u16string name_;
  std::u16string caption_;
  std::u16string toolTipText_;
  std::u16string shortcutKeys_;
  std::u16string fontName_;
};

}  // namespace lexmill::platform
