// SPDX-License-Identifier: MIT
#include "window/frmMain.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/controls/desktop.h"
#include "platform/controls/dialogs.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/files/profile_file.h"
#include "platform/host/application.h"
#include "platform/host/host_path.h"
#include "platform/text/numbers.h"
#include "run/shared/run_state.h"
#include "window/containing_folder.h"
#include "window/path_history.h"
#include "window/resources/language_table.h"

namespace lexmill {
namespace {

constexpr std::u16string_view kTabKey = u"{tab}";

std::unique_ptr<frmMain>& TheWindow() {
  static std::unique_ptr<frmMain> window;
  return window;
}

}  // namespace

frmMain::frmMain() {
  AddLanguageTable();
  LayOut();
  ConnectEvents();
}

frmMain& frmMain::Instance() {
  if (!TheWindow()) {
    throw platform::Failure(platform::FailureNumber::ObjectNotSet,
                            platform::FailureOrigin::Runtime);
  }
  return *TheWindow();
}

frmMain& frmMain::Create() {
  TheWindow() = std::make_unique<frmMain>();
  return *TheWindow();
}

void frmMain::Form_Load() {
  Window.Caption(std::u16string(platform::kApplicationTitle) + u" v" +
                 platform::ToText(platform::kMajorVersion) + u"." +
                 platform::ToText(platform::kMinorVersion));
  fraOptAdv.Visible(true);
  chkAdvMode.Value(1);
  // On and off again, so that its click event leaves its dependants disabled.
  chkSaveRefDB.Value(1);
  chkSaveRefDB.Value(0);
  modMain::LoadComboHistory(cboToDo);
  modMain::LoadComboHistory(cboRefer);
  modMain::LoadComboHistory(cboFinal);
  CfgLoadMaxToCtrl();
  CfgLoadIniToCtrl();
  cmdStart.Enabled(false);
}

void frmMain::Form_QueryUnload() {
  modMain::SaveComboHistory(cboToDo);
  modMain::SaveComboHistory(cboRefer);
  modMain::SaveComboHistory(cboFinal);
  CfgSaveCtrlToIni();
  platform::FlushProfileFiles();
}

void frmMain::Form_CloseKept() {
  lblSummary.Caption(u"将在完成后关闭；再关一次就放弃这次处理");
}

void frmMain::Form_HelpWanted() {
  const std::u16string guide =
      platform::WithSeparator(platform::ApplicationFolder()) + u"docs/guide.zh-CN.md";
  if (platform::FileSystemObject().FileExists(guide)) {
    platform::ShellOpen(guide);
  } else {
    platform::ShowMessageBox(u"找不到使用指南:\r\n" + guide, platform::MessageIcon::Critical,
                             platform::MessageButtons::Ok);
  }
}

void frmMain::cmdClose_Click() {
  const auto answer = platform::ShowMessageBox(u"确实要关闭吗？", platform::MessageIcon::Question,
                                               platform::MessageButtons::OkCancel);
  if (answer == platform::MessageAnswer::Ok) {
    Window.Close();
  }
}

void frmMain::EnableStart() {
  cmdStart.Enabled(!cboToDo.Text().empty() && !cboRefer.Text().empty() && !cboFinal.Text().empty());
}

void frmMain::chkAdvMode_Click() {
  if (chkAdvMode.Value() == 0) {
    fraOptAdv.Visible(false);
  } else {
    fraOptAdv.Visible(true);
    fraOptAdv.ZOrderFront();
  }
  platform::SendKeys(kTabKey);
}

void frmMain::picState_GotFocus() {
  platform::SendKeys(kTabKey);
}

void frmMain::chkaAndX_Click() {
  const bool enabled = chkaAndX.Value() != 0;
  for (platform::TextBox* box : {&txttAndXBK1, &txttAndXBK2, &txtrAndXBK1, &txtrAndXBK2}) {
    box->Enabled(enabled);
  }
  chkrAndXEER.Enabled(enabled);
  chkNotAddANDX.Enabled(enabled);
}

void frmMain::chkSaveRefDB_Click() {
  const bool enabled = chkSaveRefDB.Value() != 0;
  txtSaveRefDB.Enabled(enabled);
  optXRefDB.Enabled(enabled);
}

void frmMain::lalFinal_DblClick() {
  modMain::OpenContainingFolder(cboFinal.Text());
}

void frmMain::LabelEmail_Click() {
  platform::ShellOpen(u"mailto:" + LabelEmail.Caption());
}

void frmMain::LabelWeb_Click() {
  platform::ShellOpen(LabelWeb.Caption());
}

void frmMain::lblSummary_Click() {
  if (lblSummary.HandPointer()) {
    platform::ShellOpen(TheRun().reportPath);
  }
}

void frmMain::ConnectEvents() {
  const auto connect = [this](auto& event, void (frmMain::*handler)()) {
    connections_.push_back(event.Connect([this, handler] { (this->*handler)(); }));
  };
  const auto connectArray = [this](auto& controls, void (frmMain::*handler)(std::int16_t)) {
    for (std::int16_t i = 0; i < controls.Count(); ++i) {
      connections_.push_back(
          controls(i).Click.Connect([this, handler, i] { (this->*handler)(i); }));
    }
  };
  connect(Window.Load, &frmMain::Form_Load);
  connect(Window.QueryUnload, &frmMain::Form_QueryUnload);
  connect(Window.HelpWanted, &frmMain::Form_HelpWanted);
  connect(Window.CloseKept, &frmMain::Form_CloseKept);
  connect(Window.CloseInsisted, &frmMain::AbandonRun);
  for (platform::ComboBox* combo : {&cboToDo, &cboRefer, &cboFinal}) {
    connect(combo->Change, &frmMain::EnableStart);
    connect(combo->Click, &frmMain::EnableStart);
  }
  connectArray(cmdOpen, &frmMain::cmdOpen_Click);
  connectArray(cmdPreset, &frmMain::cmdPreset_Click);
  connect(cmdSave.Click, &frmMain::cmdSave_Click);
  connect(cmdStart.Click, &frmMain::cmdStart_Click);
  connect(cmdClose.Click, &frmMain::cmdClose_Click);
  connect(chkAdvMode.Click, &frmMain::chkAdvMode_Click);
  connect(chkaAndX.Click, &frmMain::chkaAndX_Click);
  connect(chkSaveRefDB.Click, &frmMain::chkSaveRefDB_Click);
  connect(optXRefDB.Click, &frmMain::optXRefDB_Click);
  connect(lalFinal.DblClick, &frmMain::lalFinal_DblClick);
  connect(LabelEmail.Click, &frmMain::LabelEmail_Click);
  connect(LabelWeb.Click, &frmMain::LabelWeb_Click);
  connect(lblSummary.Click, &frmMain::lblSummary_Click);
  connect(picState.GotFocus, &frmMain::picState_GotFocus);
  ConnectDrops();
}

}  // namespace lexmill
