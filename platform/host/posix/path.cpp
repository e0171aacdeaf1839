// SPDX-License-Identifier: MIT
#include "platform/host/posix/path.h"

#include <system_error>

#include "platform/host/system_path.h"
#include "platform/text/text.h"

namespace lexmill::platform {

const std::u16string_view kPathSeparators = u"/";
const std::u16string_view kNullDevice = u"/dev/null";

HostPath::HostPath(std::u16string_view text) : native_(ToUtf8(text)) {}

std::u16string HostPath::Text() const {
  return FromUtf8(native_.native());
}

std::u16string AbsolutePath(std::u16string_view path) {
  std::error_code refused;
  const auto absolute = std::filesystem::absolute(HostPath(path).Native(), refused);
  return refused ? std::u16string(path) : HostPath::FromNative(absolute).Text();
}

std::u16string NormalPath(std::u16string_view path) {
  return HostPath::FromNative(HostPath(path).Native().lexically_normal()).Text();
}

std::u16string_view CopiedPath(std::u16string_view text) {
  return text;
}

std::u16string AddressedPath(std::u16string_view text) {
  return std::u16string(text);
}

std::u16string CurrentFolder() {
  std::error_code none;
  return HostPath::FromNative(std::filesystem::current_path(none)).Text();
}

namespace system {

const char* NameOf(const HostPath& path) {
  const std::string& name = path.Native().native();
  return name.find('\0') == std::string::npos ? name.c_str() : "";
}

std::size_t RootLength(std::u16string_view path) {
  return path.starts_with(u'/') ? 1 : 0;
}

std::size_t NameLength(std::u16string_view name) {
  return ToUtf8(name).size();
}

}  // namespace system
}  // namespace lexmill::platform
