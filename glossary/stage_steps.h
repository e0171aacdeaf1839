// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
// Steps that several stages take in the same way.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "glossary/record_scanner.h"
#include "platform/files/file_system.h"
#include "run/shared/progress_tick.h"

namespace lexmill {

/// Scans the TAB-separated file `path` from its first record to its last.
/// @throws as RecordScanner::ScanAction
void ScanTabSeparated(RecordScanner& scanner, std::u16string_view path);

/// Shows the scanner's percentage if a refresh of `progress` is due.
void ShowScanProgress(ProgressTick& progress, const RecordScanner& scanner);

/// Ends a stage: takes its time, then closes `output` and drops it.
/// @return the stage's time in milliseconds
/// @throws as TextWriter::Close; `output` is then kept
[[nodiscard]] std::int32_t FinishStage(const ProgressTick& progress,
                                       std::optional<platform::TextWriter>& output);

}  // namespace lexmill
