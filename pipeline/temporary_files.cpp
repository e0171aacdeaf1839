// SPDX-License-Identifier: MIT
#include "pipeline/temporary_files.h"

#include "foundation/entry_point.h"
#include "platform/file_system.h"
#include "run/shared/file_extension.h"
#include "run/shared/run_state.h"

namespace lexmill {
namespace {

std::u16string DrawName(const std::u16string& extension) {
  const platform::FileSystemObject files;
  return modMain::ChangeFileExtension(files.GetTempName(), extension);
}

}  // namespace

void DrawNames(GlossaryRunFiles& files) {
  files.sDbFile = DrawName(u".db");
  files.sRefSqlFile = DrawName(u".sql");
  files.sToDoSqlFile = DrawName(u".sql");
  files.sReadyFile = DrawName(u".txt");
  files.sBatFile = InAppPath(DrawName(u".bat"));
}

void DrawNames(TextRunFiles& files) {
  files.sDbFile = DrawName(u".db");
  files.sRefSqlFile = DrawName(u".sql");
  files.sEntrySqlFile = DrawName(u".sql");
  files.sToDoSqlFile = DrawName(u".sql");
  files.sUpdateSqlFile = DrawName(u".sql");
  files.sReadyFile = DrawName(u".txt");
  files.sLineFile = DrawName(u".txt");
  files.sBatFile = InAppPath(DrawName(u".bat"));
  files.sBatFile2 = InAppPath(DrawName(u".bat"));
}

std::u16string InAppPath(std::u16string_view name) {
  return TheRun().AppPath + std::u16string(name);
}

void DeleteFiles(std::initializer_list<std::u16string> paths) {
  const platform::FileSystemObject files;
  for (const auto& path : paths) {
    IgnoreFailures([&] { files.DeleteFile(path); });
  }
}

}  // namespace lexmill
