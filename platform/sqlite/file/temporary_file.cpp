// SPDX-License-Identifier: MIT
#include "platform/sqlite/file/temporary_file.h"

#include <utility>

#include "platform/sqlite/database_error.h"
#include "platform/text/text.h"

namespace lexmill::platform::sqlite {

HostFile OpenTemporary(const std::string& neighbour) {
  auto file = HostFile::OpenTemporary(HostPath(FromUtf8(neighbour)));
  if (!file) {
    throw DatabaseError(kCannotOpen);
  }
  return *std::move(file);
}

}  // namespace lexmill::platform::sqlite
