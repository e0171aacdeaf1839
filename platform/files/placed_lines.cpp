// SPDX-License-Identifier: MIT
#include "platform/files/placed_lines.h"

#include <tuple>

#include "platform/files/opened_file.h"
#include "platform/files/text_stream.h"
#include "platform/text/ascii_runs.h"

namespace lexmill::platform {

PlacedLines::PlacedLines(std::u16string_view path, const CodePage& page)
    : source_(OpenToRead(path).file), page_(page) {
  source_.SkipMark(kUtf8Mark);
  range_ = PlaceAt(source_.BytesRead());
}

bool PlacedLines::Next() {
  end_ = {};
  line_ = source_.AtEnd() ? std::string_view() : source_.Next();
  isDecoded_ = false;
  ++number_;
  range_ = {range_.end, source_.BytesRead()};
  if (line_.empty()) {
    return false;
  }
  if (line_.ends_with('\n')) {
    end_ = line_.ends_with("\r\n") ? u"\r\n" : u"\n";
    line_.remove_suffix(end_.size());
  }
  return true;
}

void PlacedLines::Decode() const {
  text_.clear();
  page_.Decode(line_, text_);
  isDecoded_ = true;
}

// What was decoded becomes the same bytes again, so the shorter way is taken, from the line's start
// or from its end. ASCII, which most lines begin with, is as many bytes.
std::int64_t PlacedLines::PlaceOf(std::size_t unit) const {
  if (AsciiLength(line_.substr(0, unit)) == unit) {
    return range_.begin + static_cast<std::int64_t>(unit);
  }
  const std::u16string_view text = Text();
  if (unit == text.size()) {
    return range_.end - static_cast<std::int64_t>(end_.size());
  }
  if (unit <= text.size() / 2) {
    return range_.begin + BytesOf(text.substr(0, unit));
  }
  return range_.end - static_cast<std::int64_t>(end_.size()) - BytesOf(text.substr(unit));
}

std::int64_t PlacedLines::BytesOf(std::u16string_view text) const {
  std::string bytes;
  std::ignore = page_.Encode(text, bytes);
  return static_cast<std::int64_t>(bytes.size());
}

}  // namespace lexmill::platform
