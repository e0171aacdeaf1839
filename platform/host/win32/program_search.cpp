// SPDX-License-Identifier: MIT
#include "platform/host/win32/program_search.h"

#include <algorithm>
#include <vector>

#include "platform/host/application.h"
#include "platform/host/host_file.h"
#include "platform/host/host_system.h"
#include "platform/host/program_start.h"
#include "platform/host/win32/path.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

constexpr std::u16string_view kSuffix = u".exe";

/// The folders of PATH.
std::vector<std::u16string> SystemFolders() {
  const std::u16string path = ReplaceAll(EnvironmentVariable(u"PATH"), u"\"", u"");
  std::vector<std::u16string> folders;
  for (std::size_t begin = 0; begin < path.size();) {
    const std::size_t end = std::min(path.find(u';', begin), path.size());
    if (end > begin) {
      folders.push_back(path.substr(begin, end - begin));
    }
    begin = end + 1;
  }
  return folders;
}

std::u16string InFolder(std::u16string_view folder, std::u16string_view name) {
  return folder.empty() ? std::u16string(name) : PathFrom(folder, name);
}

bool IsFile(const std::u16string& path) {
  const auto status = StatusOf(HostPath(path));
  return status && status->kind == FileKind::Regular;
}

}  // namespace

namespace system {

std::optional<std::wstring> ProgramFile(std::u16string_view program,
                                        std::u16string_view directory) {
  const bool hasSuffix = LowerCase(program).ends_with(kSuffix);
  const std::u16string name = std::u16string(program) + std::u16string(hasSuffix ? u"" : kSuffix);
  std::vector<std::u16string> folders = {std::u16string(directory)};
  if (FolderPart(name).empty()) {
    folders.push_back(ApplicationFolder());
    const auto others = SystemFolders();
    folders.insert(folders.end(), others.begin(), others.end());
  }
  for (const auto& folder : folders) {
    const std::u16string file = AbsolutePath(InFolder(folder, name));
    if (IsFile(file)) {
      const auto found = NameForStart(HostPath(file));
      return found ? std::optional(*found) : std::nullopt;
    }
  }
  return std::nullopt;
}

}  // namespace system

bool IsProgramThere(std::u16string_view program, std::u16string_view directory) {
  return system::ProgramFile(program, directory).has_value();
}

}  // namespace lexmill::platform
