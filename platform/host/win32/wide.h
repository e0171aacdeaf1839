// SPDX-License-Identifier: MIT
// platform/host/win32: text as the system's calls take it.
#pragma once

#include <string>
#include <string_view>

namespace lexmill::platform::system {

[[nodiscard]] inline std::wstring Wide(std::u16string_view text) {
  return {text.begin(), text.end()};
}
[[nodiscard]] inline std::u16string TextOf(std::wstring_view wide) {
  return {wide.begin(), wide.end()};
}

/// What a call gives that fills a buffer, from `Call(wchar_t* buffer, DWORD size)`, which returns
/// the units it has written, or at least `size` if the buffer is too small; empty if it fails.
template <class Call>
[[nodiscard]] std::wstring Filled(Call call) {
  std::wstring buffer(256, L'\0');
  while (true) {
    const auto length = call(buffer.data(), static_cast<unsigned long>(buffer.size()));
    if (length < buffer.size()) {
      buffer.resize(length);
      return buffer;
    }
    buffer.resize(buffer.size() * 2);
  }
}

}  // namespace lexmill::platform::system
