// SPDX-License-Identifier: MIT
// The window through its native controls.
#include <array>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/controls/dialogs.h"
#include "platform/controls/spoken_names.h"
#include "platform/host/application.h"
#include "platform/text/text.h"
#include "platform/win32/dialog_owner.h"
#include "platform/win32/file_drop.h"
#include "platform/win32/form_window.h"
#include "platform/win32/keyboard.h"
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
  void SetUp() override { ASSERT_NE(shown_->Window(), nullptr) << "no screen"; }

  static frmMain& Main() { return frmMain::Instance(); }
  HWND Of(const Control& control) const { return shown_->WindowOf(control); }
  static HWND TypingPart(HWND combo) { return GetWindow(combo, GW_CHILD); }

  // Moves the window to a screen of that resolution.
  void MoveTo(WPARAM dpi) const {
    RECT place = {0, 0, 1, 1};
    SendMessageW(shown_->Window(), WM_DPICHANGED, dpi | dpi << 16,
                 reinterpret_cast<LPARAM>(&place));
  }

  // @return whether the window has taken the key
  bool Press(HWND field, WPARAM key, std::initializer_list<int> held) const {
    std::array<BYTE, 256> keys = {};
    for (const int one : held) {
      keys[static_cast<std::size_t>(one)] = 0x80;
    }
    SetKeyboardState(keys.data());
    MSG press = {};
    press.hwnd = field;
    press.message = WM_KEYDOWN;
    press.wParam = key;
    const bool isTaken = platform::win32::TakeKey(Main().Window, shown_->Window(), press);
    keys = {};
    SetKeyboardState(keys.data());
    return isTaken;
  }

  // Files as the shell hands them over.
  static HGLOBAL Files(std::u16string_view paths) {
    HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + (paths.size() + 1) * sizeof(wchar_t));
    auto* head = static_cast<DROPFILES*>(GlobalLock(memory));
    head->pFiles = sizeof(DROPFILES);
    head->fWide = TRUE;
    std::memcpy(head + 1, paths.data(), paths.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    return memory;
  }
  static void Drop(HWND window, std::u16string_view paths) {
    PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(Files(paths)), 0);
    platform::win32::DeliverPending();
  }
  void Copy(std::u16string_view paths) const {
    OpenClipboard(shown_->Window());
    EmptyClipboard();
    SetClipboardData(CF_HDROP, Files(paths));
    CloseClipboard();
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
  SendMessageW(TypingPart(field), EM_SETSEL, 1, 1);
  combo.AddItem(u"字abc", 0);
  EXPECT_EQ(TextOf(field), u"字a");
  EXPECT_EQ(SendMessageW(TypingPart(field), EM_GETSEL, 0, 0), MAKELRESULT(1, 1));
  SendMessageW(TypingPart(field), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)), 0);
  SendMessageW(field, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)), 0);
  EXPECT_EQ(TextOf(field), u"字a");
}

TEST_F(Window, TakesKeysOfFieldsAndNoOthersThanAShortcuts) {
  HWND field = TypingPart(Of(Main().cboToDo));
  SetWindowTextW(field, L"C:\\a b\\c.glo");
  SendMessageW(field, EM_SETSEL, 10, 10);
  EXPECT_TRUE(Press(field, VK_BACK, {VK_CONTROL}));
  EXPECT_TRUE(Press(field, VK_BACK, {VK_CONTROL}));
  EXPECT_EQ(Main().cboToDo.Text(), u"C:\\a b\\lo");
  EXPECT_TRUE(Press(field, u'A', {VK_CONTROL}));
  EXPECT_TRUE(Press(field, VK_BACK, {VK_CONTROL}));
  EXPECT_EQ(Main().cboToDo.Text(), u"");
  EXPECT_FALSE(Press(field, u'O', {VK_CONTROL, VK_SHIFT}));
}

TEST_F(Window, ShowsAShapeOfAGroupInItsNewColour) {
  HWND group = Of(Main().picState);
  ShowWindow(group, SW_SHOW);
  ValidateRect(group, nullptr);
  Main().shpState(0).BackColor(platform::kBlack);
  EXPECT_TRUE(GetUpdateRect(group, nullptr, FALSE));
}

TEST_F(Window, IsBlockedByAMessageAlsoWhileTheUserIsElsewhere) {
  const HWND elsewhere = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9,
                                         nullptr, nullptr, nullptr, nullptr);
  SetActiveWindow(elsewhere);
  static BOOL isEnabled;
  isEnabled = TRUE;
  SetTimer(shown_->Window(), 1, 100, [](HWND window, UINT, UINT_PTR timer, DWORD) {
    isEnabled = IsWindowEnabled(window);
    KillTimer(window, timer);
    platform::win32::CloseDialogs();
  });
  const auto answer = platform::ShowMessageBox(u"?", platform::MessageIcon::Question,
                                               platform::MessageButtons::OkCancel);
  DestroyWindow(elsewhere);
  EXPECT_EQ(answer, platform::MessageAnswer::Cancel);
  EXPECT_FALSE(isEnabled);
}

TEST_F(Window, MakesAPathOfWhatIsPasted) {
  HWND field = Of(Main().cboToDo);
  for (const wchar_t* pasted : {L"\"C:\\a b\\字.glo\"", L"file:///C:/a%20b/%E5%AD%97.glo"}) {
    SendMessageW(TypingPart(field), EM_SETSEL, 0, -1);
    SendMessageW(TypingPart(field), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(pasted));
    EXPECT_EQ(TextOf(field), u"C:\\a b\\字.glo");
  }
}

TEST_F(Window, TakesDroppedAndCopiedFilesAsTheirFieldDoes) {
  using namespace std::string_view_literals;
  Drop(Of(Main().cboToDo), u"C:\\词 典.glo\0C:\\b.glo\0"sv);
  Drop(TypingPart(Of(Main().cboRefer)), u"C:\\词 典.glo\0C:\\b.glo\0"sv);
  EXPECT_EQ(Main().cboToDo.Text(), u"C:\\词 典.glo");
  EXPECT_EQ(TextOf(Of(Main().cboRefer)), u"C:\\词 典.glo;C:\\b.glo");
  Copy(u"C:\\字.glo\0C:\\b.glo\0"sv);
  SendMessageW(TypingPart(Of(Main().cboFinal)), WM_PASTE, 0, 0);
  EXPECT_EQ(Main().cboFinal.Text(), u"C:\\字.glo");
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
  SendMessageW(shown_->Window(), WM_ENDSESSION, FALSE, 0);
  EXPECT_TRUE(IsWindowVisible(shown_->Window())) << "the session goes on";
  SendMessageW(shown_->Window(), WM_ENDSESSION, TRUE, 0);
  EXPECT_FALSE(IsWindowVisible(shown_->Window()));
  EXPECT_NE(folder_.Listing().find("Lexmill.ini"), std::string::npos);
  EXPECT_EQ(platform::win32::RunMessageLoop(), 0);
}

}  // namespace
}  // namespace lexmill::test
