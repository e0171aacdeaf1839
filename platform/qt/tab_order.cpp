// SPDX-License-Identifier: MIT
#include "platform/qt/tab_order.h"

#include <algorithm>
#include <vector>

#include <QLineEdit>

#include "platform/qt/label_widget.h"
#include "platform/qt/qt_text.h"

namespace lexmill::platform::qt {
namespace {

std::vector<const ControlMirror*> ByTabIndex(Mirrors mirrors) {
  std::vector<const ControlMirror*> sorted;
  for (const auto& mirror : mirrors) {
    sorted.push_back(mirror.get());
  }
  std::ranges::stable_sort(sorted, {},
                           [](const auto* mirror) { return mirror->Shown().TabIndex(); });
  return sorted;
}

bool IsField(const Control& control) {
  return control.Kind() == ControlKind::TextBox || control.Kind() == ControlKind::ComboBox;
}

// A label that has nothing to say as yet.
bool IsOutput(const Control& control) {
  return control.Kind() == ControlKind::Label && control.Caption().empty();
}

bool NamesFields(const Control& control) {
  return control.Kind() == ControlKind::Label || control.Kind() == ControlKind::CheckBox;
}

QString NameFrom(const ControlMirror& namer) {
  return ToQt(namer.Shown().Caption()).replace(QStringLiteral("&&"), QStringLiteral("&"));
}

void NameField(const ControlMirror& field, const ControlMirror& namer) {
  field.Widget().setAccessibleName(NameFrom(namer));
  // A list's field has a part for typing, where the focus is.
  if (auto* part = field.Widget().findChild<QLineEdit*>()) {
    part->setAccessibleName(NameFrom(namer));
  }
}

// A button whose caption says nothing.
void NameByHint(const ControlMirror& button) {
  if (button.Shown().Caption() == u"...") {
    button.Widget().setAccessibleName(ToQt(button.Shown().ToolTipText()));
  }
}

}  // namespace

void ChainTabOrder(Mirrors mirrors) {
  QWidget* last = nullptr;
  for (const ControlMirror* mirror : ByTabIndex(mirrors)) {
    QWidget& widget = mirror->Widget();
    if ((widget.focusPolicy() & Qt::TabFocus) == 0) {
      continue;
    }
    if (last != nullptr) {
      QWidget::setTabOrder(last, &widget);
    }
    last = &widget;
  }
}

void NameFields(Mirrors mirrors) {
  const ControlMirror* namer = nullptr;
  const ControlMirror* before = nullptr;
  for (const ControlMirror* mirror : ByTabIndex(mirrors)) {
    const Control& control = mirror->Shown();
    NameByHint(*mirror);
    if (IsOutput(control) && namer != nullptr && namer == before) {
      mirror->Widget().setAccessibleDescription(NameFrom(*namer));
    } else if (NamesFields(control)) {
      namer = mirror;
    } else if (IsField(control) && namer != nullptr &&
               namer->Shown().Container() == control.Container()) {
      NameField(*mirror, *namer);
      if (namer == before && namer->Shown().Kind() == ControlKind::Label) {
        static_cast<LabelWidget&>(namer->Widget()).setBuddy(&mirror->Widget());
      }
    }
    before = mirror;
  }
}

}  // namespace lexmill::platform::qt
