// SPDX-License-Identifier: MIT
#include "platform/qt/form_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>

#include "platform/controls/pixels.h"
#include "platform/controls/window_order.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/tab_order.h"

namespace lexmill::platform::qt {

namespace {

// The places of a window are drawn for Chinese characters of that size; the toolkit scales both.
constexpr int kFontPixels = 12;

// The desktop's font in that size, also when the desktop changes it later.
QFont WindowFont(QFont font) {
  font.setPixelSize(kFontPixels);
  return font;
}

QPixmap PictureOf(std::string_view file) {
  QPixmap picture;
  picture.loadFromData(reinterpret_cast<const uchar*>(file.data()), static_cast<uint>(file.size()));
  return picture;
}

void SetKeys(QWidget& window, const QKeySequence& keys, const std::function<void()>& pressed) {
  auto* shortcut = new QShortcut(keys, &window);
  shortcut->setAutoRepeat(false);
  QObject::connect(shortcut, &QShortcut::activated, &window, pressed);
}

}  // namespace

FormWindow::FormWindow(Form& form) : form_(form) {
  setObjectName(ToQt(form.Name()));
  setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
  setFont(WindowFont(font()));
  setWindowIcon(PictureOf(form.Icon()));
  for (Control* control : form.Controls()) {
    mirrors_.push_back(
        std::make_unique<ControlMirror>(form, *control, *this, [this] { Arrange(); }));
  }
  Arrange();
  NameFields(form_, mirrors_);
  SetShortcuts();
  for (const auto& mirror : mirrors_) {
    mirror->ShowAll();
  }
  changed_ = form.Changed.Connect([this](FormProperty what) { Show(what); });
  for (const auto what : {FormProperty::Caption, FormProperty::Size, FormProperty::Visible}) {
    Show(what);
  }
}

void FormWindow::SetShortcuts() {
  for (Control* control : form_.Controls()) {
    if (!control->ShortcutKeys().empty()) {
      SetKeys(*this, QKeySequence(ToQt(control->ShortcutKeys())),
              [this, control] { form_.UserPressesShortcut(*control); });
    }
  }
  SetKeys(*this, Qt::Key_F1, [this] { form_.UserWantsHelp(); });
}

void FormWindow::Show(FormProperty what) {
  switch (what) {
    case FormProperty::Caption:
      setWindowTitle(ToQt(form_.Caption()));
      break;
    case FormProperty::Size:
      setFixedSize(ToPixels(form_.ScaleWidth()), ToPixels(form_.ScaleHeight()));
      break;
    case FormProperty::Visible:
      ShowVisible();
      break;
    case FormProperty::Place:
      ShowPlace();
      break;
    case FormProperty::State:
      ShowState();
      break;
  }
}

// The place is that of the frame, which the toolkit keeps out of a window's size.
void FormWindow::ShowPlace() {
  const QSize frame = frameGeometry().size() - size();
  move(ToPixels(form_.Left()), ToPixels(form_.Top()));
  setFixedSize(QSize(ToPixels(form_.Width()), ToPixels(form_.Height())) - frame);
}

void FormWindow::ShowState() {
  const FormState state = form_.WindowState();
  setWindowState(state == FormState::Maximised   ? Qt::WindowMaximized
                 : state == FormState::Minimised ? Qt::WindowMinimized
                                                 : Qt::WindowNoState);
}

void FormWindow::ReportPlace() {
  const QRect place = frameGeometry();
  form_.UserMoves({.left = ToTwips(place.x()),
                   .top = ToTwips(place.y()),
                   .width = ToTwips(place.width()),
                   .height = ToTwips(place.height())});
}

void FormWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  ReportPlace();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  ReportPlace();
}

void FormWindow::ShowVisible() {
  if (form_.Visible()) {
    const QRect desktop = screen()->availableGeometry();
    move(desktop.center() - rect().center());
    show();
  } else if (isVisible()) {
    hide();
    QCoreApplication::exit();
  }
}

void FormWindow::Arrange() {
  for (const auto& mirror : mirrors_) {
    const Control* container = mirror->Shown().Container();
    QWidget* parent = container == nullptr ? this : &WidgetOf(mirrors_, *container);
    if (mirror->Widget().parentWidget() != parent) {
      mirror->Widget().setParent(parent);
      mirror->Widget().setVisible(mirror->Shown().Visible());
    }
  }
  for (const Control* control : BackToFront(form_)) {
    WidgetOf(mirrors_, *control).raise();
  }
  ChainTabOrder(form_, mirrors_);
}

bool FormWindow::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->isAutoRepeat()) {
    event->accept();  // a key that is held down presses no button
    return true;
  }
  if (event->type() == QEvent::ApplicationPaletteChange) {
    for (const auto& mirror : mirrors_) {
      mirror->Show(ControlProperty::Colors);
    }
  }
  return QWidget::event(event);
}

// A key that is held down counts once: what it starts may be over before it is let go.
void FormWindow::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (event->isAutoRepeat() || (!isEnter && event->key() != Qt::Key_Escape)) {
    QWidget::keyPressEvent(event);
  } else if (isEnter) {
    form_.UserPressesEnter();
  } else {
    form_.UserPressesEscape();
  }
}

void FormWindow::closeEvent(QCloseEvent* event) {
  form_.Close();
  event->setAccepted(!form_.Visible());
}

}  // namespace lexmill::platform::qt
