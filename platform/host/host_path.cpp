// SPDX-License-Identifier: MIT
#include "platform/host/host_path.h"

#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

std::u16string_view WithoutLastSeparators(std::u16string_view path) {
  const auto last = path.find_last_not_of(kPathSeparator);
  return path.substr(0, last == std::u16string_view::npos ? 0 : last + 1);
}

}  // namespace

std::string ToHostPath(std::u16string_view path) {
  return ToUtf8(path);
}

std::u16string FromHostPath(std::string_view path) {
  return FromUtf8(path);
}

std::u16string ParentFolder(std::u16string_view path) {
  const std::u16string_view trimmed = WithoutLastSeparators(path);
  const auto separator = trimmed.rfind(kPathSeparator);
  if (separator == std::u16string_view::npos) {
    return {};
  }
  const std::u16string_view folder = WithoutLastSeparators(trimmed.substr(0, separator));
  return std::u16string(folder.empty() ? path.substr(0, 1) : folder);
}

std::u16string_view FileName(std::u16string_view path) {
  return path.substr(path.rfind(kPathSeparator) + 1);
}

std::u16string PathFrom(std::u16string_view folder, std::u16string_view path) {
  const bool isAbsolute = path.starts_with(kPathSeparator);
  return (isAbsolute ? std::u16string() : WithSeparator(folder)) + std::u16string(path);
}

std::u16string WithSeparator(std::u16string_view folder) {
  std::u16string result(WithoutLastSeparators(folder));
  result += kPathSeparator;
  return result;
}

}  // namespace lexmill::platform
