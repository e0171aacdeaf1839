// SPDX-License-Identifier: MIT
#include "platform/sqlite/streams.h"

#include <algorithm>

namespace lexmill::platform::sqlite {

void OutputBuffer::AppendLines(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    if (line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    Append(line);
    EndLine();
  }
}

void OutputBuffer::Flush() {
  const bool isWritten = bytes_.empty() || write_(bytes_);
  bytes_.clear();
  if (!isWritten) {
    throw StreamFailure{"cannot write the output"};
  }
}

}  // namespace lexmill::platform::sqlite
