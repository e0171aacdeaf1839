// SPDX-License-Identifier: MIT
// platform/interchange: formats in which programs exchange data.
// The rows of a file of separated values.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/ansi_text.h"

namespace lexmill::platform {

/// Sees a row: its fields, and the line where it begins, the first being 1.
/// @return whether to go on
using OnCsvRow = std::function<bool(const std::vector<std::u16string>& fields, std::int64_t line)>;

/// Reads rows of fields with `separator`, an ASCII character, between them. A field in double
/// quotes may hold separators, line ends, and quotes written twice; blanks belong to a field. A
/// UTF-8 mark and empty lines are passed over.
/// @return the line with a quote that is never closed; none if all is well
/// @throws Failure as OpenToRead, DeviceError if the host can't read; whatever `onRow` throws
/// Source: RFC 4180
[[nodiscard]] std::optional<std::int64_t> ReadCsvRows(std::u16string_view path,
                                                      const CodePage& page, char separator,
                                                      const OnCsvRow& onRow);

}  // namespace lexmill::platform
