// SPDX-License-Identifier: MIT
#include "platform/host/host_path.h"

#include <system_error>
#include <utility>

namespace lexmill::platform {
namespace {

std::u16string_view WithoutLastSeparators(std::u16string_view path) {
  const auto last = path.find_last_not_of(kPathSeparators);
  return path.substr(0, last == std::u16string_view::npos ? 0 : last + 1);
}

}  // namespace

HostPath HostPath::FromNative(std::filesystem::path native) {
  HostPath path;
  path.native_ = std::move(native);
  return path;
}

std::u16string ParentFolder(std::u16string_view path) {
  const std::u16string_view before = FolderPart(WithoutLastSeparators(path));
  if (before.empty()) {
    return {};
  }
  const std::u16string_view folder = WithoutLastSeparators(before);
  return std::u16string(folder.empty() ? path.substr(0, 1) : folder);
}

std::u16string_view FileName(std::u16string_view path) {
  return path.substr(FolderPart(path).size());
}

std::u16string_view FolderPart(std::u16string_view path) {
  return path.substr(0, path.find_last_of(kPathSeparators) + 1);
}

std::u16string PathFrom(std::u16string_view folder, std::u16string_view path) {
  const bool isAbsolute = HostPath(path).Native().is_absolute();
  return (isAbsolute ? std::u16string() : WithSeparator(folder)) + std::u16string(path);
}

std::u16string WithSeparator(std::u16string_view folder) {
  std::u16string result(WithoutLastSeparators(folder));
  result += kPathSeparators.front();
  return result;
}

std::u16string AbsolutePath(std::u16string_view path) {
  std::error_code refused;
  const auto absolute = std::filesystem::absolute(HostPath(path).Native(), refused);
  return refused ? std::u16string(path) : HostPath::FromNative(absolute).Text();
}

std::u16string NormalPath(std::u16string_view path) {
  return HostPath::FromNative(HostPath(path).Native().lexically_normal()).Text();
}

std::u16string CurrentFolder() {
  std::error_code none;
  return HostPath::FromNative(std::filesystem::current_path(none)).Text();
}

}  // namespace lexmill::platform
