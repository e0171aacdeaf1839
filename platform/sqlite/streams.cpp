// SPDX-License-Identifier: MIT
#include "platform/sqlite/streams.h"

namespace lexmill::platform::sqlite {

void OutputBuffer::Flush() {
  const bool isWritten = bytes_.empty() || write_(bytes_);
  bytes_.clear();
  if (!isWritten) {
    throw StreamFailure{"cannot write the output"};
  }
}

}  // namespace lexmill::platform::sqlite
