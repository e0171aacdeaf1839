// SPDX-License-Identifier: MIT
#include "glossary/stage_steps.h"

namespace lexmill {

void ScanTabSeparated(RecordScanner& scanner, std::u16string_view path) {
  scanner.FieldSeparator(u"\t");
  scanner.ScanFile(path);
  scanner.ScanAction(RecordScanner::kRun);
}

void ShowScanProgress(ProgressTick& progress, const RecordScanner& scanner) {
  if (progress.IsDue()) {
    progress.ShowPercent(scanner.ProgressPercent());
  }
}

std::int32_t FinishStage(const ProgressTick& progress,
                         std::optional<platform::TextWriter>& output) {
  const std::int32_t time = progress.Elapsed();
  output->Close();
  output.reset();
  return time;
}

}  // namespace lexmill
