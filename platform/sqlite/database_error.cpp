// SPDX-License-Identifier: MIT
#include "platform/sqlite/database_error.h"

#include <cerrno>

namespace lexmill::platform::sqlite {

DatabaseError HostError() {
  const bool isFull = errno == ENOSPC || errno == EDQUOT || errno == EFBIG;
  return DatabaseError(isFull ? kFull : kInputOutput);
}

}  // namespace lexmill::platform::sqlite
