// SPDX-License-Identifier: MIT
#include "text/text_entry.h"

#include <string>

#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "run/shared/run_state.h"

namespace lexmill {

std::optional<std::u16string_view> SourceOfHeadLine(std::u16string_view line) {
  const std::size_t colon = platform::Find(line, u':');
  if (colon == line.size() || !platform::IsNumeric(line.substr(0, colon))) {
    return std::nullopt;
  }
  return line.substr(colon + 1);
}

void ForEachEntry(platform::TextReader& input, ProgressTick& progress,
                  const std::function<void(const TextEntry&)>& onEntry) {
  // A line's view ends with the next read, but a head line is needed beside its target line.
  std::u16string headLine;
  std::int64_t lineNumber = 0;
  do {
    progress.ShowStarIfDue();
    const std::u16string_view line = input.ReadLine();
    ++lineNumber;
    if (const auto source = SourceOfHeadLine(line)) {
      const std::size_t sourceStart = line.size() - source->size();
      headLine = line;
      onEntry({headLine, std::u16string_view(headLine).substr(sourceStart), input.ReadLine(),
               lineNumber});
      ++lineNumber;  // of the target line
    }
  } while (!TheRun().abandoned && !input.AtEndOfStream());
}

}  // namespace lexmill
