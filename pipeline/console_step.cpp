// SPDX-License-Identifier: MIT
#include "pipeline/console_step.h"

#include <tuple>

#include "platform/controls/desktop.h"
#include "platform/event.h"
#include "platform/host/application.h"
#include "platform/host/clock.h"
#include "platform/text/numbers.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"

namespace lexmill {
namespace {

constexpr std::int16_t kReadyRow = 2;

}  // namespace

void MovePercentage(std::int32_t& lPercent, PercentageStep step) {
  platform::Randomize();
  lPercent += static_cast<std::int32_t>(platform::Random() * step.range + step.least);
  frmMain::Instance().lblState(kReadyRow).Caption(platform::ToText(lPercent) + u"%");
  platform::DoEvents();
}

void RunConsoleStep(std::optional<cCaptureConsole>& oShellC, const std::u16string& batFile,
                    const std::function<void(std::u16string)>& outputAvailable) {
  if (TheRun().abandoned) {
    return;
  }
  oShellC.emplace();
  const platform::Connection connection = oShellC->OutputAvailable.Connect(outputAvailable);
  const std::int32_t start = platform::GetTickCount();
  std::ignore = oShellC->ShellConsole(batFile, WorkFolder(), false, true, true, true);
  const std::int32_t elapsed = platform::Elapsed(start, platform::GetTickCount());
  frmMain::Instance().UpdateStateLabel(kReadyRow, elapsed, u"");
  oShellC.reset();
}

}  // namespace lexmill
