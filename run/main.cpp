// SPDX-License-Identifier: MIT
// lexmill: the window.
#include <filesystem>
#include <iostream>
#include <system_error>

#include "platform/controls/dialogs.h"
#include "platform/controls/screen.h"
#include "platform/files/platform_settings.h"
#include "platform/host/application.h"
#include "platform/host/host_file.h"
#include "platform/host/host_system.h"
#include "run/modMain.h"
#include "run/run_report.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"

namespace {

// A relative path means the same to every part of a run.
void EnterProgramFolder() {
  std::error_code failed;
  std::filesystem::current_path(
      lexmill::platform::HostPath(lexmill::platform::ApplicationFolder()).Native(), failed);
}

void WarnOfReadOnlyFolder() {
  const bool isChosen = !lexmill::TheRun().WorkDir.empty();
  const std::u16string folder =
      isChosen ? lexmill::TheRun().WorkDir : lexmill::platform::ApplicationFolder();
  if (!lexmill::platform::MayWrite(lexmill::platform::HostPath(folder))) {
    lexmill::platform::ShowMessageBox(
        (isChosen ? u"存放临时文件的文件夹不可写入，处理不能进行:\r\n"
                  : u"程序所在的文件夹不可写入，设置不能保存，处理不能进行:\r\n") +
            folder,
        lexmill::platform::MessageIcon::Critical, lexmill::platform::MessageButtons::Ok);
  }
}

lexmill::platform::Form& OpenWindow() {
  lexmill::modMain::Main();
  lexmill::ReadReportSetting();
  return lexmill::frmMain::Instance().Window;
}

}  // namespace

int main(int argc, char** argv) {
  if (!lexmill::platform::IsScreenThere()) {
    std::cerr << "lexmill: no display; lexmill-run performs a run without one\n";
    return 1;
  }
  lexmill::platform::SurviveFileSizeLimit();
  lexmill::platform::ReadPlatformSettings();
  EnterProgramFolder();
  return lexmill::platform::RunOnScreen(argc, argv, OpenWindow, WarnOfReadOnlyFolder);
}
