// SPDX-License-Identifier: MIT
// A line is found as bytes and decoded when it is asked for. AtEndOfStream has to look at the next
// line where lines may be passed over, so one line is kept ahead, still as bytes: `line_` is a view
// into the buffer of `source_`, which doesn't move before the line is given.
#include <utility>

#include "platform/failure.h"
#include "platform/files/text_stream.h"

namespace lexmill::platform {
namespace {

std::string_view WithoutEnd(std::string_view line) {
  if (line.ends_with('\n')) {
    line.remove_suffix(line.ends_with("\r\n") ? 2 : 1);
  }
  return line;
}

}  // namespace

TextReader::TextReader(HostFile file, std::int64_t size, TextEncoding encoding)
    : source_(std::move(file)), size_(size), encoding_(encoding) {
  if (encoding == TextEncoding::Utf8WithMark) {
    source_.SkipMark(kUtf8Mark);
    bytesRead_ = source_.BytesRead();
  }
}

std::u16string_view TextReader::ReadLine() {
  if (AtEndOfStream()) {
    throw Failure(FailureNumber::InputPastEnd, FailureOrigin::ScriptLibrary);
  }
  text_.clear();
  DecodeText(encoding_, WithoutEnd(*std::exchange(line_, std::nullopt)), text_);
  bytesRead_ = source_.BytesRead();
  return text_;
}

bool TextReader::AtEndOfStream() {
  while (!line_ && !source_.AtEnd()) {
    const std::string_view line = source_.Next();
    if (!wanted_ || line.find(*wanted_) != std::string_view::npos) {
      line_ = line;
    }
  }
  return !line_;
}

void TextReader::Close() {
  line_.reset();
  source_.Close();
}

}  // namespace lexmill::platform
