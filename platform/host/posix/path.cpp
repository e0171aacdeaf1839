// SPDX-License-Identifier: MIT
#include "platform/host/posix/path.h"

#include "platform/host/system_file.h"
#include "platform/text/text.h"

namespace lexmill::platform {

const std::u16string_view kPathSeparators = u"/";
const std::u16string_view kNullDevice = u"/dev/null";

HostPath::HostPath(std::u16string_view text) : native_(ToUtf8(text)) {}

std::u16string HostPath::Text() const {
  return FromUtf8(native_.native());
}

namespace system {

const char* NameOf(const HostPath& path) {
  const std::string& name = path.Native().native();
  return name.find('\0') == std::string::npos ? name.c_str() : "";
}

std::size_t NameLength(std::u16string_view name) {
  return ToUtf8(name).size();
}

}  // namespace system
}  // namespace lexmill::platform
