// SPDX-License-Identifier: MIT
// The window through its native controls.
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/controls/spoken_names.h"
#include "platform/host/application.h"
#include "platform/text/text.h"
#include "platform/win32/file_drop.h"
#include "platform/win32/form_window.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/native_window.h"
#include "platform/win32/wide_text.h"
#include "run/modMain.h"
#include "tests/support/files.h"
#include "window/frmMain.h"

#include <shlobj.h>

namespace lexmill::test {
namespace {

using platform::Control;
using platform::ControlKind;
using platform::win32::TextOf;

class Window : public testing::Test {
 protected:
  Window() {
    platform::SetApplicationFolder(platform::FromUtf8(folder_.Path().string()));
    modMain::Main();
    shown_ = std::make_unique<platform::win32::FormWindow>(Main().Window);
  }
  void SetUp() override {
    if (shown_->Window() == nullptr) {
      GTEST_SKIP() << "no display";
    }
  }

  static frmMain& Main() { return frmMain::Instance(); }
  HWND Of(const Control& control) const { return shown_->WindowOf(control); }
  static HWND TypingPart(HWND combo) { return GetWindow(combo, GW_CHILD); }

  // Moves the window to a screen of that resolution.
  void MoveTo(WPARAM dpi) const {
    RECT place = {0, 0, 1, 1};
    SendMessageW(shown_->Window(), WM_DPICHANGED, dpi | dpi << 16,
                 reinterpret_cast<LPARAM>(&place));
  }

  // Drops files on a window, as the shell does.
  static void Drop(HWND window, std::u16string_view paths) {
    HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + (paths.size() + 1) * sizeof(wchar_t));
    auto* head = static_cast<DROPFILES*>(GlobalLock(memory));
    head->pFiles = sizeof(DROPFILES);
    head->fWide = TRUE;
    std::memcpy(head + 1, paths.data(), paths.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    platform::win32::DeliverPending();
  }

  TemporaryFolder folder_;
  std::unique_ptr<platform::win32::FormWindow> shown_;
};

// The width of what a window shows, in its own font.
int CaptionWidth(HWND window) {
  const std::u16string text = platform::WithoutMarks(TextOf(window));
  HDC device = GetDC(window);
  HGDIOBJ before = SelectObject(device, GetWindowFont(window));
  SIZE size = {};
  GetTextExtentPoint32W(device, platform::win32::Wide(text), static_cast<int>(text.size()), &size);
  SelectObject(device, before);
  ReleaseDC(window, device);
  return size.cx;
}

TEST_F(Window, PutsControlsAtTheirPlacesAndCutsNoCaptionWhateverTheResolution) {
  for (const int dpi : {192, 144, 120, 96}) {
    MoveTo(static_cast<WPARAM>(dpi));
    for (const Control* control : Main().Window.Controls()) {
      SCOPED_TRACE(platform::ToUtf8(control->Name()) + " at " + std::to_string(dpi));
      HWND window = Of(*control);
      if (window == nullptr) {
        continue;
      }
      const auto wanted = platform::ToPixels(control->Place(), dpi);
      const auto place = platform::win32::PlaceOf(window);
      if (control->Kind() == ControlKind::TextBox) {
        EXPECT_GE(place.height, wanted.height);
      } else if (control->Kind() == ControlKind::Label) {
        EXPECT_LE(CaptionWidth(window), place.width);
      } else {
        EXPECT_EQ(place, wanted);
        EXPECT_LE(control->Kind() == ControlKind::ComboBox ? 0 : CaptionWidth(window), place.width);
      }
    }
  }
}

TEST_F(Window, KeepsWhatIsTypedWhateverTheListHoldsAndTheWheelDoes) {
  auto& combo = Main().cboToDo;
  HWND field = Of(combo);
  for (const wchar_t unit : std::wstring_view(L"字a")) {
    SendMessageW(TypingPart(field), WM_CHAR, unit, 0);
  }
  EXPECT_EQ(combo.Text(), u"字a");
  EXPECT_FALSE(Main().cmdStart.Enabled());
  combo.AddItem(u"字abc", 0);
  EXPECT_EQ(TextOf(field), u"字a");
  SendMessageW(TypingPart(field), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)), 0);
  SendMessageW(field, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)), 0);
  EXPECT_EQ(TextOf(field), u"字a");
}

TEST_F(Window, MakesAPathOfWhatIsPasted) {
  HWND field = Of(Main().cboToDo);
  for (const wchar_t* pasted : {L"\"C:\\a b\\字.glo\"", L"file:///C:/a%20b/%E5%AD%97.glo"}) {
    SendMessageW(TypingPart(field), EM_SETSEL, 0, -1);
    SendMessageW(TypingPart(field), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(pasted));
    EXPECT_EQ(TextOf(field), u"C:\\a b\\字.glo");
  }
}

TEST_F(Window, TakesDroppedFilesAsTheirFieldDoes) {
  using namespace std::string_view_literals;
  Drop(Of(Main().cboToDo), u"C:\\词 典.glo\0C:\\b.glo\0"sv);
  Drop(TypingPart(Of(Main().cboRefer)), u"C:\\词 典.glo\0C:\\b.glo\0"sv);
  EXPECT_EQ(Main().cboToDo.Text(), u"C:\\词 典.glo");
  EXPECT_EQ(TextOf(Of(Main().cboRefer)), u"C:\\词 典.glo;C:\\b.glo");
}

TEST_F(Window, ShowsAGreyedBoxAndUnchecksItByAClick) {
  Main().chkaMTab.Value(2);
  HWND box = Of(Main().chkaMTab);
  EXPECT_EQ(Button_GetCheck(box), BST_INDETERMINATE);
  SendMessageW(box, BM_CLICK, 0, 0);
  EXPECT_EQ(Main().chkaMTab.Value(), 0);
  EXPECT_EQ(Button_GetCheck(box), BST_UNCHECKED);
}

TEST_F(Window, SavesItsSettingsAndGoesAtTheEndOfTheSession) {
  EXPECT_EQ(SendMessageW(shown_->Window(), WM_QUERYENDSESSION, 0, 0), TRUE);
  EXPECT_FALSE(IsWindowVisible(shown_->Window()));
  EXPECT_NE(folder_.Listing().find("Lexmill.ini"), std::string::npos);
  EXPECT_EQ(platform::win32::RunMessageLoop(), 0);
}

}  // namespace
}  // namespace lexmill::test
