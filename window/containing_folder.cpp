// SPDX-License-Identifier: MIT
#include "window/containing_folder.h"

#include <string>

#include "foundation/entry_point.h"
#include "platform/controls/desktop.h"
#include "platform/files/file_system.h"

namespace lexmill::modMain {

void OpenContainingFolder(std::u16string_view path) {
  if (path.empty()) {
    return;
  }
  IgnoreFailures([&] {
    const platform::FileSystemObject fso;
    const std::u16string folder = fso.GetParentFolderName(path);
    if (fso.FolderExists(folder)) {
      platform::ShellOpen(folder);
    }
  });
}

}  // namespace lexmill::modMain
