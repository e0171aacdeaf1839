// SPDX-License-Identifier: MIT
#include "pipeline/line_listing.h"

#include <algorithm>
#include <cstdint>

#include "platform/files/file_system.h"
#include "run/shared/progress_tick.h"
#include "run/shared/run_state.h"
#include "window/frmMain.h"

namespace lexmill {
namespace {

constexpr std::int16_t kResultRow = 3;
// The column's name in five places and " = ".
constexpr std::size_t kHeadLength = 8;

void CopyLines(platform::TextReader& listing, platform::TextWriter& result, ProgressTick& tick) {
  do {
    tick.ShowStarIfDue();
    const std::u16string_view line = listing.ReadLine();
    result.WriteLine(line.substr(std::min(line.size(), kHeadLength)));
  } while (!TheRun().abandoned && !listing.AtEndOfStream());
}

}  // namespace

void ConvertLineListing(const std::u16string& listing, const std::u16string& result) {
  if (TheRun().abandoned) {
    return;
  }
  frmMain& window = frmMain::Instance();
  const platform::FileSystemObject files;
  auto input = files.OpenTextFile(listing);
  auto output = files.CreateTextFile(result, true, TheRun().resultEncoding);
  ProgressTick tick;
  tick.StateLabel(window.lblState(kResultRow));
  tick.Start();
  output.WriteLine();
  CopyLines(input, output, tick);
  if (TheRun().abandoned) {
    output.Discard();
  }
  input.Close();
  output.Close();
  TheRun().counts.resultWritten = true;
  window.UpdateStateLabel(kResultRow, tick.Elapsed(), u"");
}

}  // namespace lexmill
