// SPDX-License-Identifier: MIT
#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {

DatabaseError TransferError(HostError error) {
  return DatabaseError(error == HostError::Full ? kFull : kInputOutput);
}

void ThrowUnless(const HostOutcome& outcome) {
  if (!outcome) {
    throw TransferError(outcome.Error());
  }
}

}  // namespace lexmill::platform::sqlite
