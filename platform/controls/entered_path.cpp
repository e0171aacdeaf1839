// SPDX-License-Identifier: MIT
#include "platform/controls/entered_path.h"

#include <charconv>
#include <optional>

#include "platform/host/host_path.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

// What follows the machine's name in the address of a file that lies here.
std::optional<std::u16string_view> LocalPart(std::u16string_view text) {
  for (const std::u16string_view start : {u"file://localhost/", u"file:///"}) {
    if (LowerCase(text.substr(0, start.size())) == start) {
      return text.substr(start.size() - 1);
    }
  }
  return std::nullopt;
}

// The byte that two hexadecimal digits after a percent sign stand for.
std::optional<char> EscapedByte(std::string_view escape) {
  constexpr std::size_t kLength = 3;
  constexpr int kHexadecimal = 16;
  unsigned char byte = 0;
  if (escape.size() < kLength || escape.front() != '%') {
    return std::nullopt;
  }
  const char* const end = escape.data() + kLength;
  const auto [rest, failure] = std::from_chars(escape.data() + 1, end, byte, kHexadecimal);
  return failure == std::errc() && rest == end && byte != 0 ? std::optional(static_cast<char>(byte))
                                                            : std::nullopt;
}

std::string Unescaped(std::string_view address) {
  std::string path;
  while (!address.empty()) {
    const auto byte = EscapedByte(address);
    path += byte.value_or(address.front());
    address.remove_prefix(byte ? 3 : 1);
  }
  return path;
}

}  // namespace

std::u16string EnteredPath(std::u16string_view text) {
  while (text.ends_with(u'\n') || text.ends_with(u'\r')) {
    text.remove_suffix(1);
  }
  const auto address = LocalPart(text);
  return address ? AddressedPath(FromUtf8(Unescaped(ToUtf8(*address))))
                 : std::u16string(CopiedPath(text));
}

}  // namespace lexmill::platform
