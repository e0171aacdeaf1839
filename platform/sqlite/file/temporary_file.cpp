// SPDX-License-Identifier: MIT
#include "platform/sqlite/file/temporary_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {

HostFile OpenTemporary(const std::string& neighbour) {
  std::filesystem::path folder = std::filesystem::path(neighbour).parent_path();
  if (folder.empty()) {
    folder = ".";
  }
  HostFile file = HostFile::Open(folder.string(), O_TMPFILE | O_RDWR, 0600);
  if (!file.IsOpen()) {
    // Not every file system has nameless files.
    const std::string name = neighbour + "-sort" + std::to_string(getpid());
    file = HostFile::Open(name, O_RDWR | O_CREAT | O_EXCL, 0600);
    if (file.IsOpen()) {
      RemoveFile(name);
    }
  }
  if (!file.IsOpen()) {
    throw DatabaseError(kCannotOpen);
  }
  return file;
}

}  // namespace lexmill::platform::sqlite
