// SPDX-License-Identifier: MIT
#include "pipeline/saved_database.h"

#include "platform/files/file_system.h"
#include "platform/host/host_path.h"
#include "run/shared/run_notice.h"
#include "run/shared/run_state.h"

namespace lexmill {

SavedDatabase::SavedDatabase(const std::u16string& path)
    : path_(path.empty() ? path : platform::PathFrom(WorkFolder(), path)),
      timeBefore_(platform::ModificationTime(path_)) {}

void SavedDatabase::NoteIfMissing() const {
  if (path_.empty() || TheRun().abandoned) {
    return;
  }
  const auto time = platform::ModificationTime(path_);
  if (!time || time == timeBefore_) {
    NoteFailure(u"数据库没有另存成功：" + path_);
  }
}

}  // namespace lexmill
