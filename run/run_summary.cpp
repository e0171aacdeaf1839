// SPDX-License-Identifier: MIT
#include "run/run_summary.h"

#include "platform/text/numbers.h"

namespace lexmill {

std::u16string SummaryOf(const RunCounts& counts) {
  if (!counts.Complete()) {
    return {};
  }
  std::u16string text = u"译出 " + platform::FormatGrouped(counts.filled) + u" / " +
                        platform::FormatGrouped(counts.ToDo()) + u" 条";
  if (counts.several > 0) {
    text += u"；" + platform::FormatGrouped(counts.several) + u" 条有多种译法";
  }
  return text;
}

double FilledPercent(const RunCounts& counts) {
  constexpr double kWhole = 100;
  const auto toDo = static_cast<double>(counts.ToDo());
  return toDo == 0 ? kWhole : static_cast<double>(counts.filled) * kWhole / toDo;
}

}  // namespace lexmill
