// SPDX-License-Identifier: MIT
// platform/win32: the desktop by native controls; with platform/host/win32 all that knows the
// system. Text on its way to the system and back, unit by unit.
#pragma once

#include <string>
#include <string_view>

#include "platform/win32/system_headers.h"

namespace lexmill::platform::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// The same units, whatever they are, as the system reads them; lives as long as `text`.
[[nodiscard]] inline const wchar_t* Wide(const std::u16string& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}
[[nodiscard]] inline const wchar_t* Wide(std::u16string_view text) = delete;

/// The same units as our text.
[[nodiscard]] inline std::u16string FromWide(std::wstring_view text) {
  return {text.begin(), text.end()};
}

/// What a window shows as its text.
[[nodiscard]] inline std::u16string TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return FromWide(text);
}

}  // namespace lexmill::platform::win32
