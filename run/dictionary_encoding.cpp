// SPDX-License-Identifier: MIT
#include "run/dictionary_encoding.h"

#include <string>

#include "foundation/entry_point.h"
#include "platform/controls/desktop.h"
#include "platform/files/file_system.h"
#include "platform/text/ansi_text.h"

namespace lexmill {
namespace {

platform::TextEncoding ReadAndRecognise(std::u16string_view path) {
  constexpr std::size_t kPiece = std::size_t{256} << 10U;
  platform::Utf8Recognition recognition;
  std::int64_t offset = 0;
  for (;;) {
    const std::string piece = platform::ReadBinary(path, offset, kPiece);
    if (!recognition.Feed(piece)) {
      return platform::TextEncoding::Ansi;
    }
    if (piece.size() < kPiece) {
      return recognition.Result();
    }
    offset += static_cast<std::int64_t>(piece.size());
    platform::DoEvents();
  }
}

}  // namespace

platform::TextEncoding RecogniseEncoding(std::u16string_view path) {
  auto encoding = platform::TextEncoding::Ansi;
  if (!platform::IsAnsiCodePageChosen()) {
    IgnoreFailures([&] { encoding = ReadAndRecognise(path); });
  }
  return encoding;
}

}  // namespace lexmill
