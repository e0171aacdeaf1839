// SPDX-License-Identifier: MIT
#include "platform/files/utf8_file.h"

#include <cstdint>
#include <string>

#include "platform/files/file_system.h"

namespace lexmill::platform {

std::optional<Utf8Recognition> RecogniseUtf8(std::u16string_view path,
                                             const std::function<void()>& betweenPieces) {
  constexpr std::size_t kPiece = std::size_t{256} << 10U;
  Utf8Recognition recognition;
  for (std::int64_t offset = 0;; offset += std::int64_t{kPiece}) {
    const std::string piece = ReadBinary(path, offset, kPiece);
    if (!recognition.Feed(piece)) {
      return std::nullopt;
    }
    if (piece.size() < kPiece) {
      return recognition;
    }
    betweenPieces();
  }
}

}  // namespace lexmill::platform
