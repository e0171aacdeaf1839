// SPDX-License-Identifier: MIT
#include "platform/qt/tab_order.h"

#include <algorithm>

#include <QLineEdit>

#include "platform/controls/spoken_names.h"
#include "platform/controls/window_order.h"
#include "platform/qt/label_widget.h"
#include "platform/qt/qt_text.h"

namespace lexmill::platform::qt {
namespace {

void NameWidget(QWidget& widget, const SpokenName& spoken) {
  widget.setAccessibleName(ToQt(spoken.name));
  widget.setAccessibleDescription(ToQt(spoken.description));
  // A list's field has a part for typing, where the focus is.
  if (auto* part = widget.findChild<QLineEdit*>()) {
    part->setAccessibleName(ToQt(spoken.name));
  }
}

}  // namespace

QWidget& WidgetOf(Mirrors mirrors, const Control& control) {
  const auto found = std::ranges::find_if(
      mirrors, [&](const auto& mirror) { return &mirror->Shown() == &control; });
  return (*found)->Widget();
}

void ChainTabOrder(const Form& form, Mirrors mirrors) {
  QWidget* last = nullptr;
  for (const Control* control : TabOrder(form)) {
    QWidget& widget = WidgetOf(mirrors, *control);
    if ((widget.focusPolicy() & Qt::TabFocus) == 0) {
      continue;
    }
    if (last != nullptr) {
      QWidget::setTabOrder(last, &widget);
    }
    last = &widget;
  }
}

void NameFields(const Form& form, Mirrors mirrors) {
  for (const SpokenName& spoken : SpokenNames(form)) {
    QWidget& widget = WidgetOf(mirrors, *spoken.control);
    NameWidget(widget, spoken);
    if (spoken.label != nullptr) {
      static_cast<LabelWidget&>(WidgetOf(mirrors, *spoken.label)).setBuddy(&widget);
    }
  }
}

}  // namespace lexmill::platform::qt
