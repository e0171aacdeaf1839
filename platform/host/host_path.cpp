// SPDX-License-Identifier: MIT
#include "platform/host/host_path.h"

#include <algorithm>
#include <utility>

#include "platform/host/system_path.h"

namespace lexmill::platform {
namespace {

/// Several separators in a row count as one, as for every host.
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

// The root is set aside first: its separators are its own, and it has no parent.
std::u16string ParentFolder(std::u16string_view path) {
  const std::size_t root = system::RootLength(path);
  const std::u16string_view name = WithoutLastSeparators(path.substr(root));
  if (name.empty()) {
    return {};
  }
  const auto end = name.find_last_of(kPathSeparators);
  const std::u16string_view folder = WithoutLastSeparators(name.substr(0, end + 1));
  return std::u16string(path.substr(0, root + folder.size()));
}

std::u16string_view FileName(std::u16string_view path) {
  return path.substr(FolderPart(path).size());
}

std::u16string_view FolderPart(std::u16string_view path) {
  return path.substr(0, std::max(path.find_last_of(kPathSeparators) + 1, system::RootLength(path)));
}

std::u16string PathFrom(std::u16string_view folder, std::u16string_view path) {
  const bool hasRoot = system::RootLength(path) > 0;
  return (hasRoot ? std::u16string() : WithSeparator(folder)) + std::u16string(path);
}

std::u16string WithSeparator(std::u16string_view folder) {
  std::u16string result(WithoutLastSeparators(folder));
  result += kPathSeparators.front();
  return result;
}

}  // namespace lexmill::platform
