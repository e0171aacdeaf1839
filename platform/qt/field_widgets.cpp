// SPDX-License-Identifier: MIT
#include "platform/qt/field_widgets.h"

#include <limits>

#include <QAbstractItemView>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "platform/qt/file_drop.h"
#include "platform/qt/qt_text.h"

namespace lexmill::platform::qt {
namespace {

void ShowText(const std::u16string& text, QLineEdit& field) {
  if (const QString shown = ToQt(text); field.text() != shown) {
    field.setText(shown);
  }
}

// The toolkit's field takes another text from its list when the wheel turns over it.
class PathField final : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace

QLineEdit* MakeField(TextBox& box, QWidget& parent) {
  auto* field = new QLineEdit(&parent);
  QObject::connect(field, &QLineEdit::textEdited, field, [&box, field](const QString& text) {
    box.UserEnters(FromQt(text));
    ShowField(box, *field);
  });
  return field;
}

QComboBox* MakeField(ComboBox& combo, QWidget& parent) {
  auto* field = new PathField(&parent);
  field->setEditable(true);
  field->setInsertPolicy(QComboBox::NoInsert);
  // A path that completes itself to one of the list can't be typed.
  field->setCompleter(nullptr);
  field->view()->setTextElideMode(Qt::ElideMiddle);
  field->lineEdit()->setMaxLength(std::numeric_limits<int>::max());
  QObject::connect(field->lineEdit(), &QLineEdit::textEdited, field,
                   [&combo, field](const QString& text) {
                     combo.UserEnters(FromQt(text));
                     ShowField(combo, *field);
                   });
  QObject::connect(field, &QComboBox::activated, field, [&combo](int position) {
    combo.UserChooses(static_cast<std::size_t>(position));
  });
  TakeDroppedFiles(combo, *field);
  return field;
}

void ShowField(const TextBox& box, QLineEdit& field) {
  const std::size_t limit = box.MaxLength();
  field.setMaxLength(limit == 0 ? std::numeric_limits<int>::max() : static_cast<int>(limit));
  ShowText(box.Text(), field);
}

void ShowField(const ComboBox& combo, QComboBox& field) {
  ShowText(combo.Text(), *field.lineEdit());
}

void ShowList(const ComboBox& combo, QComboBox& field) {
  const QSignalBlocker quiet(field);
  field.clear();
  for (std::size_t i = 0; i < combo.ListCount(); ++i) {
    const QString item = ToQt(combo.List(i));
    field.addItem(item);
    field.setItemData(static_cast<int>(i), item, Qt::ToolTipRole);
  }
  field.setCurrentIndex(-1);
  ShowField(combo, field);
}

}  // namespace lexmill::platform::qt
