// SPDX-License-Identifier: MIT
#include "platform/qt/control_widgets.h"

#include <QGroupBox>

#include "platform/controls/control_kinds.h"
#include "platform/qt/button_widgets.h"
#include "platform/qt/caption_fit.h"
#include "platform/qt/drawing_widgets.h"
#include "platform/qt/field_widgets.h"
#include "platform/qt/label_widget.h"
#include "platform/qt/qt_text.h"

namespace lexmill::platform::qt {
namespace {

struct Maker {
  QWidget& parent;

  QWidget* operator()(Label& label) const { return new LabelWidget(label, parent); }
  QWidget* operator()(TextBox& box) const { return MakeField(box, parent); }
  QWidget* operator()(ComboBox& combo) const { return MakeField(combo, parent); }
  QWidget* operator()(CheckBox& box) const { return MakeButton(box, parent); }
  QWidget* operator()(Button& button) const { return MakeButton(button, parent); }
  QWidget* operator()(OptionButton& button) const { return MakeButton(button, parent); }
  QWidget* operator()(PictureBox& panel) const { return new PanelWidget(panel, parent); }
  QWidget* operator()(Image& /*image*/) const { return new ImageWidget(parent); }
  QWidget* operator()(Line& line) const { return new LineWidget(line, parent); }
  QWidget* operator()(Shape& shape) const { return new ShapeWidget(shape, parent); }
  // A group covers what lies behind it; the toolkit's lets it through.
  QWidget* operator()(Frame& /*frame*/) const {
    auto* group = new QGroupBox(&parent);
    group->setAutoFillBackground(true);
    return group;
  }
};

// Brings one property to the widget of a control of some kind. Most kinds add little to what all
// controls have.
struct Shower {
  ControlProperty what;
  QWidget& widget;

  void operator()(Label& /*label*/) const {
    auto& shown = static_cast<LabelWidget&>(widget);
    if (what == ControlProperty::Caption || what == ControlProperty::Place) {
      shown.ShowPlace();
    } else {
      shown.ShowLook();
    }
  }
  void operator()(const TextBox& box) const { ShowField(box, static_cast<QLineEdit&>(widget)); }
  void operator()(const ComboBox& combo) const {
    auto& field = static_cast<QComboBox&>(widget);
    what == ControlProperty::List ? ShowList(combo, field) : ShowField(combo, field);
  }
  void operator()(const CheckBox& box) const {
    ShowCaption(box);
    ShowState(box, static_cast<QAbstractButton&>(widget));
  }
  void operator()(const Button& button) const {
    ShowCaption(button);
    ShowRole(button, static_cast<QAbstractButton&>(widget));
  }
  void operator()(const OptionButton& button) const {
    ShowCaption(button);
    ShowState(button, static_cast<QAbstractButton&>(widget));
  }
  void operator()(const Frame& frame) const {
    static_cast<QGroupBox&>(widget).setTitle(ToQt(frame.Caption()));
  }
  void operator()(const Image& image) const {
    static_cast<ImageWidget&>(widget).ShowPicture(image.Picture());
  }
  void operator()(const Line& /*line*/) const {
    static_cast<LineWidget&>(widget).ShowPlace();
    widget.update();
  }
  void operator()(const Shape& /*shape*/) const { widget.update(); }
  void operator()(const PictureBox& /*panel*/) const { widget.update(); }

 private:
  void ShowCaption(const Control& control) const {
    auto& button = static_cast<QAbstractButton&>(widget);
    button.setText(ToQt(control.Caption()));
    FitCaption(button);
  }
};

}  // namespace

QWidget* MakeWidget(Control& control, QWidget& parent) {
  return VisitKind(control, Maker{parent});
}

void ShowOwnProperty(Control& control, ControlProperty what, QWidget& widget) {
  VisitKind(control, Shower{what, widget});
}

}  // namespace lexmill::platform::qt
