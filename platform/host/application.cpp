// SPDX-License-Identifier: MIT
#include "platform/host/application.h"

#include <filesystem>
#include <map>
#include <system_error>

#include "platform/host/host_path.h"

namespace lexmill::platform {
namespace {

std::u16string FolderOfProgram() {
  std::error_code failed;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
  const auto folder = failed ? std::filesystem::current_path(failed) : program.parent_path();
  return FromHostPath(folder.native());
}

std::u16string& Folder() {
  static std::u16string folder = FolderOfProgram();
  return folder;
}

std::map<int, std::u16string_view>& StringResources() {
  static std::map<int, std::u16string_view> resources;
  return resources;
}

}  // namespace

std::u16string ApplicationFolder() {
  return Folder();
}

void SetApplicationFolder(std::u16string_view folder) {
  Folder() = folder;
}

void AddStringResource(int id, std::u16string_view text) {
  StringResources()[id] = text;
}

std::u16string_view LoadStringResource(int id) {
  const auto found = StringResources().find(id);
  return found == StringResources().end() ? std::u16string_view() : found->second;
}

}  // namespace lexmill::platform
