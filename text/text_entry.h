// SPDX-License-Identifier: MIT
// text: the stages for the text format (点睛), a file of numbered entries.
// An entry of a text: how it is recognised, and the way through all entries of a file.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "platform/files/file_system.h"
#include "run/shared/progress_tick.h"

namespace lexmill {

/// An entry: a head line, which is a number, ":" and the source, and the target line after it.
struct TextEntry {
  std::u16string_view headLine;
  std::u16string_view source;  ///< what comes after the first ":" of the head line
  std::u16string_view target;
  std::int64_t line = 0;  ///< of the head line, counted from 1
};

/// Whether a line that is no target line opens an entry: there is a number before its first
/// ":".
/// @return the source, a piece of `line`, maybe empty; none if the line opens no entry
[[nodiscard]] std::optional<std::u16string_view> SourceOfHeadLine(std::u16string_view line);

/// Reads `input` to its end, or until the run is abandoned, and reports its entries in order; other
/// lines are passed over. Shows a star of `progress` when one is due.
/// @param onEntry  its entry's views live until it returns
/// @throws platform::Failure InputPastEnd for a file without a line or one that ends with a head
///   line, others as TextReader::ReadLine, and whatever `onEntry` throws
void ForEachEntry(platform::TextReader& input, ProgressTick& progress,
                  const std::function<void(const TextEntry&)>& onEntry);

}  // namespace lexmill
