// SPDX-License-Identifier: MIT
#include "platform/win32/form_window.h"

#include <algorithm>

#include "platform/controls/controls.h"
#include "platform/controls/pixels.h"
#include "platform/controls/spoken_names.h"
#include "platform/controls/window_keys.h"
#include "platform/controls/window_order.h"
#include "platform/win32/dialog_owner.h"
#include "platform/win32/fields.h"
#include "platform/win32/keyboard.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/spoken.h"
#include "platform/win32/wide_text.h"

namespace lexmill::platform::win32 {
namespace {

constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_CONTROLPARENT;

PixelPlace FromRect(const RECT& room) {
  return {.left = room.left,
          .top = room.top,
          .width = room.right - room.left,
          .height = room.bottom - room.top};
}

PixelPlace FrameOf(HWND window) {
  RECT room = {};
  GetWindowRect(window, &room);
  return FromRect(room);
}

// The size of a window with a client area of that size.
PixelSize WithFrame(const PixelSize& client, int dpi) {
  RECT room = {0, 0, client.width, client.height};
  AdjustWindowRectExForDpi(&room, kStyle, FALSE, kExtendedStyle, static_cast<UINT>(dpi));
  return {.width = room.right - room.left, .height = room.bottom - room.top};
}

// What the screen that `window` is on leaves to windows.
PixelPlace WorkAreaOf(HWND window) {
  MONITORINFO screen = {};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &screen);
  return FromRect(screen.rcWork);
}

// The window of a box to check is opaque beyond its caption, where a field may lie.
bool IsBehindFields(const Control& control) {
  return control.Kind() == ControlKind::CheckBox &&
         !static_cast<const CheckBox&>(control).PushButtonStyle();
}

}  // namespace

FormWindow::FormWindow(Form& form)
    : form_(form),
      window_(Make(*this)),
      fonts_(static_cast<int>(GetDpiForWindow(window_))),
      tips_(window_),
      surroundings_{.form = form, .window = window_, .fonts = fonts_, .tips = tips_},
      icon_(MakeIcon(form.Icon(), GetSystemMetrics(SM_CXICON))),
      smallIcon_(MakeIcon(form.Icon(), GetSystemMetrics(SM_CXSMICON))),
      end_(form, CloseDialogs) {
  surroundings_.rearrange = [this] { Arrange(); };
  surroundings_.showEnabled = [this] { ShowEnabled(); };
  surroundings_.restoreFocus = [this] { RestoreFocus(); };
  SendMessageW(window_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon_.get()));
  SendMessageW(window_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon_.get()));
  for (Control* control : form.Controls()) {
    mirrors_.push_back(std::make_unique<ControlMirror>(*control, surroundings_));
  }
  Arrange();
  NameControls();
  ShowAll();
  changed_ = form.Changed.Connect([this](FormProperty what) { Show(what); });
  SetKeyFilter([this](const MSG& message) { return TakeKey(form_, window_, message); });
  for (const auto what : {FormProperty::Caption, FormProperty::Size, FormProperty::Visible}) {
    Show(what);
  }
}

FormWindow::~FormWindow() {
  SetKeyFilter({});
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

HWND FormWindow::Make(FormWindow& owner) {
  WNDCLASSW kind = {};
  kind.lpfnWndProc = Procedure;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.lpszClassName = kFormKind;
  RegisterClassW(&kind);
  HWND window = CreateWindowExW(kExtendedStyle, kind.lpszClassName, L"", kStyle, CW_USEDEFAULT,
                                CW_USEDEFAULT, 0, 0, nullptr, nullptr, kind.hInstance, nullptr);
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&owner));
  return window;
}

void FormWindow::ShowAnew() {
  ShowAll();
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void FormWindow::Show(FormProperty what) {
  switch (what) {
    case FormProperty::Caption:
      SetWindowTextW(window_, Wide(form_.Caption()));
      break;
    case FormProperty::Size:
      ShowSize();
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

void FormWindow::ShowSize() const {
  const PixelPlace own = FrameOf(window_);
  ShowAt(own.left, own.top);
}

// Place and size at once: a window that had the size of one screen at a place on another would be
// asked to take the resolution of either in turn.
void FormWindow::ShowAt(int left, int top) const {
  const int dpi = fonts_.Dpi();
  const PixelSize size = WithFrame(
      {.width = ToPixels(form_.ScaleWidth(), dpi), .height = ToPixels(form_.ScaleHeight(), dpi)},
      dpi);
  SetWindowPos(window_, nullptr, left, top, size.width, size.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::ShowVisible() {
  if (form_.Visible()) {
    const PixelPlace desktop = WorkAreaOf(window_);
    const PixelPlace own = FrameOf(window_);
    // The title stays on a screen that is too small for the window.
    ShowAt(desktop.left + std::max(0, (desktop.width - own.width) / 2),
           desktop.top + std::max(0, (desktop.height - own.height) / 2));
    ShowWindow(window_, SW_SHOWNORMAL);
    RestoreFocus();
  } else if (IsWindowVisible(window_) != FALSE) {
    ShowWindow(window_, SW_HIDE);
    PostQuitMessage(0);
  }
}

void FormWindow::ShowPlace() const {
  const PixelPlace place =
      ToPixels(Rectangle{form_.Left(), form_.Top(), form_.Width(), form_.Height()}, fonts_.Dpi());
  SetWindowPos(window_, nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::ShowState() const {
  const FormState state = form_.WindowState();
  ShowWindow(window_, state == FormState::Maximised   ? SW_MAXIMIZE
                      : state == FormState::Minimised ? SW_MINIMIZE
                                                      : SW_RESTORE);
}

void FormWindow::ReportPlace() {
  if (IsIconic(window_) != FALSE) {
    return;
  }
  const PixelPlace frame = FrameOf(window_);
  const int dpi = fonts_.Dpi();
  form_.UserMoves({.left = ToTwips(frame.left, dpi),
                   .top = ToTwips(frame.top, dpi),
                   .width = ToTwips(frame.width, dpi),
                   .height = ToTwips(frame.height, dpi)});
}

void FormWindow::ShowAll() {
  for (const auto& mirror : mirrors_) {
    mirror->ShowAll();
  }
}

void FormWindow::Arrange() {
  for (const Control* control : BackToFront(form_)) {
    HWND window = WindowOf(*control);
    if (window == nullptr) {
      continue;
    }
    HWND parent = control->Container() == nullptr ? window_ : WindowOf(*control->Container());
    if (GetParent(window) != parent) {
      SetParent(window, parent);
    }
    SetWindowPos(window, IsBehindFields(*control) ? HWND_BOTTOM : HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
}

void FormWindow::ShowEnabled() {
  for (const auto& mirror : mirrors_) {
    mirror->ShowEnabled();
  }
}

// The focus is where the form has it, or at the first control that takes it.
void FormWindow::RestoreFocus() {
  const Control* active = form_.ActiveControl();
  if (active == nullptr) {
    active = NextInTabOrder(form_, nullptr, false);
  }
  if (active == nullptr || GetActiveWindow() != window_) {
    return;
  }
  if (ControlMirror* mirror = MirrorOf(WindowOf(*active))) {
    mirror->TakeFocus();
  }
}

void FormWindow::NameControls() {
  for (const SpokenName& spoken : SpokenNames(form_)) {
    HWND window = WindowOf(*spoken.control);
    Annotate(window, spoken);
    // A list's field has a part for typing, where the focus is.
    if (spoken.control->Kind() == ControlKind::ComboBox) {
      Annotate(TypingPart(window), spoken);
    }
  }
}

ControlMirror* FormWindow::MirrorOf(HWND window) const {
  const auto found = std::ranges::find_if(mirrors_, [&](const auto& mirror) {
    return mirror->Window() != nullptr && mirror->Window() == window;
  });
  return found == mirrors_.end() ? nullptr : found->get();
}

HWND FormWindow::WindowOf(const Control& control) const {
  const auto found = std::ranges::find_if(
      mirrors_, [&](const auto& mirror) { return &mirror->Shown() == &control; });
  return (*found)->Window();
}

}  // namespace lexmill::platform::win32
