// SPDX-License-Identifier: MIT
#include "run/file_inspection.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "foundation/entry_point.h"
#include "platform/files/file_system.h"
#include "platform/text/text_encoding.h"

namespace lexmill {
namespace {

constexpr std::int64_t kPieces = 8;
constexpr std::int64_t kPieceSize = std::int64_t{32} << 10U;

// Without a mark UTF-16 shows by the high bytes of its English: NULs in every other place.
bool LooksLikeUtf16(std::string_view start) {
  if (start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF")) {
    return true;
  }
  std::array<std::size_t, 2> nuls{};
  for (std::size_t at = start.find('\0'); at != std::string_view::npos;
       at = start.find('\0', at + 1)) {
    ++nuls.at(at % 2);
  }
  constexpr std::size_t kFewestShare = 10;
  const auto [fewer, more] = std::ranges::minmax(nuls);
  return more * kFewestShare > start.size() && fewer * kFewestShare < more;
}

// Counts the lines of a file by what their bytes show.
class LineCensus {
 public:
  /// Takes whole lines, their ends included.
  void Take(std::string_view lines) {
    while (!lines.empty()) {
      const std::size_t length = std::min(lines.find('\n'), lines.size() - 1) + 1;
      TakeLine(lines.substr(0, length));
      lines.remove_prefix(length);
    }
  }
  [[nodiscard]] bool HasMixedEncodings() const {
    // By chance a short string of code page 936 looks like UTF-8, one in ten thousand.
    constexpr std::int64_t kFewestShare = 100;
    const std::int64_t fewer = std::min(utf8_, others_);
    return fewer > 0 && fewer * kFewestShare >= utf8_ + others_;
  }
  [[nodiscard]] bool HasManyColumns() const { return manyColumns_ * 2 > lines_; }

 private:
  void TakeLine(std::string_view line) {
    ++lines_;
    manyColumns_ += std::ranges::count(line, '\t') > 1 ? 1 : 0;
    if (std::ranges::all_of(line, [](char byte) { return (byte & '\x80') == 0; })) {
      return;
    }
    platform::Utf8Recognition recognition;
    if (!recognition.Feed(line)) {
      ++others_;
    } else if (recognition.Result() != platform::TextEncoding::Ansi) {
      ++utf8_;
    }
  }

  std::int64_t lines_ = 0;
  std::int64_t manyColumns_ = 0;
  std::int64_t utf8_ = 0;    ///< lines that are UTF-8 and hold more than ASCII
  std::int64_t others_ = 0;  ///< lines that can't be UTF-8
};

// The part of a piece that is whole lines, unless the piece is all of one line.
std::string_view WholeLines(std::string_view piece, bool startsFile, bool endsFile) {
  const std::size_t start = startsFile ? 0 : std::min(piece.find('\n'), piece.size() - 1) + 1;
  const std::size_t last = endsFile ? std::string_view::npos : piece.rfind('\n');
  return last == std::string_view::npos ? piece.substr(start)
                                        : piece.substr(start, last + 1 - std::min(start, last + 1));
}

FileFacts Inspect(std::u16string_view path) {
  const std::int64_t size = platform::FileSystemObject().FileSize(path);
  const bool isSmall = size <= kPieces * kPieceSize;
  FileFacts facts;
  LineCensus census;
  for (std::int64_t i = 0; i < (isSmall ? 1 : kPieces); ++i) {
    const std::int64_t offset = isSmall ? 0 : (size - kPieceSize) / (kPieces - 1) * i;
    const std::string piece =
        platform::ReadBinary(path, offset, static_cast<std::size_t>(isSmall ? size : kPieceSize));
    if (piece.empty()) {
      break;
    }
    facts.isUtf16 = facts.isUtf16 || (i == 0 && LooksLikeUtf16(piece));
    census.Take(WholeLines(piece, offset == 0, isSmall));
  }
  if (!facts.isUtf16) {
    facts.hasMixedEncodings = census.HasMixedEncodings();
    facts.hasManyColumns = census.HasManyColumns();
  }
  return facts;
}

}  // namespace

FileFacts InspectFile(std::u16string_view path) {
  FileFacts facts;
  IgnoreFailures([&] { facts = Inspect(path); });
  return facts;
}

}  // namespace lexmill
