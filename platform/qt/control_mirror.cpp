// SPDX-License-Identifier: MIT
#include "platform/qt/control_mirror.h"

#include <utility>

#include <QEvent>

#include "platform/qt/control_widgets.h"
#include "platform/qt/qt_place.h"
#include "platform/qt/qt_text.h"

namespace lexmill::platform::qt {
namespace {

QString NameOf(const Control& control) {
  const QString name = ToQt(control.Name());
  return control.Index() == kNoIndex ? name
                                     : QStringLiteral("%1(%2)").arg(name).arg(control.Index());
}

void DropFocusWithin(const QWidget& widget) {
  QWidget* focus = widget.window()->focusWidget();
  if (focus != nullptr && (focus == &widget || widget.isAncestorOf(focus))) {
    focus->clearFocus();
  }
}

}  // namespace

ControlMirror::ControlMirror(const Form& form, Control& control, QWidget& parent,
                             std::function<void()> rearrange)
    : form_(form),
      control_(control),
      widget_(*MakeWidget(control, parent)),
      rearrange_(std::move(rearrange)) {
  widget_.setObjectName(NameOf(control));
  widget_.installEventFilter(this);
  changed_ = control.Changed.Connect([this](ControlProperty what) { Show(what); });
}

void ControlMirror::ShowAll() {
  for (const auto what :
       {ControlProperty::Look, ControlProperty::Place, ControlProperty::Enabled,
        ControlProperty::Caption, ControlProperty::Colors, ControlProperty::List,
        ControlProperty::Text, ControlProperty::Value, ControlProperty::Visible}) {
    Show(what);
  }
}

void ControlMirror::Show(ControlProperty what) {
  switch (what) {
    case ControlProperty::Container:
    case ControlProperty::ZOrder:
    case ControlProperty::TabIndex:
      rearrange_();
      return;
    case ControlProperty::Visible:
      ShowVisible();
      return;
    case ControlProperty::Enabled:
      widget_.setEnabled(control_.Enabled());
      return;
    case ControlProperty::Focus:
      widget_.setFocus();
      return;
    case ControlProperty::Place:
      widget_.setGeometry(ToQt(ToPixels(control_.Place())));
      break;
    case ControlProperty::Look:
      ShowLook();
      break;
    default:
      break;
  }
  ShowOwnProperty(control_, what, widget_);
}

// The toolkit hands the focus of a widget that goes to the next one, as if the user had gone there;
// the window's controls go all at once, and the user is to find the focus where it was.
void ControlMirror::ShowVisible() {
  if (!control_.Visible()) {
    DropFocusWithin(widget_);
  }
  widget_.setVisible(control_.Visible());
  if (form_.ActiveControl() == &control_ && control_.IsUsable()) {
    widget_.setFocus();
  }
}

void ControlMirror::ShowLook() {
  widget_.setToolTip(ToQt(control_.Hint()));
  if (!control_.FontName().empty()) {
    QFont font = widget_.font();
    font.setFamily(ToQt(control_.FontName()));
    widget_.setFont(font);
  }
}

bool ControlMirror::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FontChange) {
    Show(ControlProperty::Caption);
  }
  if (event->type() == QEvent::FocusIn && control_.IsUsable()) {
    control_.SetFocus();
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace lexmill::platform::qt
