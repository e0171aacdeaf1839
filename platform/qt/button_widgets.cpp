// SPDX-License-Identifier: MIT
#include "platform/qt/button_widgets.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>

namespace lexmill::platform::qt {
namespace {

constexpr std::int16_t kChecked = 1;
constexpr std::int16_t kGreyed = 2;

// The toolkit's button is pressed again and again by an Enter key that is held down.
class PushButton final : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!event->isAutoRepeat()) {
      QPushButton::keyPressEvent(event);
    }
  }
};

QPushButton* MakeStayingButton(QWidget& parent) {
  auto* widget = new PushButton(&parent);
  widget->setCheckable(true);
  return widget;
}

// The widget changes its own state with a click, and the control may think otherwise.
template <class Checked>
QAbstractButton* Wire(Checked& control, QAbstractButton* widget) {
  QObject::connect(widget, &QAbstractButton::clicked, widget, [&control, widget] {
    control.UserClicks();
    ShowState(control, *widget);
  });
  return widget;
}

}  // namespace

QAbstractButton* MakeButton(CheckBox& box, QWidget& parent) {
  if (box.PushButtonStyle()) {
    return Wire(box, MakeStayingButton(parent));
  }
  return Wire(box, new QCheckBox(&parent));
}

QAbstractButton* MakeButton(OptionButton& button, QWidget& parent) {
  return Wire(button, MakeStayingButton(parent));
}

QAbstractButton* MakeButton(Button& button, QWidget& parent) {
  auto* widget = new PushButton(&parent);
  QObject::connect(widget, &QPushButton::clicked, widget, [&button] { button.UserClicks(); });
  return widget;
}

void ShowState(const CheckBox& box, QAbstractButton& widget) {
  auto* withGrey = qobject_cast<QCheckBox*>(&widget);
  if (withGrey != nullptr && box.Value() == kGreyed) {
    withGrey->setCheckState(Qt::PartiallyChecked);
  } else {
    widget.setChecked(box.Value() >= kChecked);
  }
}

void ShowState(const OptionButton& button, QAbstractButton& widget) {
  widget.setChecked(button.Value());
}

void ShowRole(const Button& button, QAbstractButton& widget) {
  static_cast<QPushButton&>(widget).setDefault(button.Default());
}

}  // namespace lexmill::platform::qt
