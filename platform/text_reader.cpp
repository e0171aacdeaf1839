// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstring>
#include <span>
#include <utility>
#include <vector>

#include "platform/host_failure.h"
#include "platform/host_file.h"
#include "platform/text_stream.h"

namespace lexmill::platform {
namespace {

constexpr std::size_t kBufferSize = 128 * 1024;

}  // namespace

/// Lines are cut as bytes: CR and LF are never part of another character, neither in a code page
/// nor in UTF-8.
struct TextReader::State {
  State(HostFile opened, std::int64_t bytes, TextEncoding read)
      : file(std::move(opened)), size(bytes), encoding(read), buffer(kBufferSize) {}

  /// Reads more behind `end`, after making room. @return false at the end of the file
  bool Fill() {
    if (!file.IsOpen()) {
      throw Failure(FailureNumber::ObjectNotSet, FailureOrigin::ScriptLibrary);
    }
    if (atEnd) {
      return false;
    }
    MakeRoom();
    const auto count = file.Read(std::span(buffer).subspan(end));
    if (!count) {
      throw TransferFailure(errno);
    }
    end += *count;
    atEnd = *count == 0;
    return !atEnd;
  }

  void MakeRoom() {
    if (begin > 0) {
      std::memmove(buffer.data(), buffer.data() + begin, end - begin);
      end -= std::exchange(begin, 0);
    }
    if (end == buffer.size()) {
      buffer.resize(buffer.size() * 2);
    }
  }

  void SkipMark() {
    while (end - begin < kUtf8Mark.size() && Fill()) {
    }
    if (std::string_view(buffer.data() + begin, end - begin).starts_with(kUtf8Mark)) {
      Take(kUtf8Mark.size());
    }
  }

  std::string_view Take(std::size_t length) {
    const std::string_view bytes(buffer.data() + begin, length);
    begin += length;
    bytesRead += static_cast<std::int64_t>(length);
    return bytes;
  }

  /// Bytes to the next LF, with it, or to the end of the file.
  std::size_t LineLength() {
    std::size_t searched = 0;
    while (true) {
      const char* const from = buffer.data() + begin + searched;
      const std::size_t left = end - begin - searched;
      if (const void* const found = left > 0 ? std::memchr(from, '\n', left) : nullptr) {
        return searched + static_cast<std::size_t>(static_cast<const char*>(found) - from) + 1;
      }
      searched += left;
      if (!Fill()) {
        return searched;
      }
    }
  }

  HostFile file;
  std::int64_t size;
  TextEncoding encoding;
  std::vector<char> buffer;
  std::size_t begin = 0;  ///< bytes of `buffer` from here to `end` are not read yet
  std::size_t end = 0;
  bool atEnd = false;
  std::int64_t bytesRead = 0;
  std::u16string line;
};

TextReader::TextReader(HostFile file, std::int64_t size, TextEncoding encoding)
    : state_(std::make_unique<State>(std::move(file), size, encoding)) {
  if (encoding == TextEncoding::Utf8WithMark) {
    state_->SkipMark();
  }
}

TextReader::TextReader(TextReader&&) noexcept = default;
TextReader& TextReader::operator=(TextReader&&) noexcept = default;
TextReader::~TextReader() = default;

std::string_view TextReader::ReadLineBytes() {
  if (AtEndOfStream()) {
    throw Failure(FailureNumber::InputPastEnd, FailureOrigin::ScriptLibrary);
  }
  std::string_view line = state_->Take(state_->LineLength());
  if (line.ends_with('\n')) {
    line.remove_suffix(line.ends_with("\r\n") ? 2 : 1);
  }
  return line;
}

std::u16string_view TextReader::ReadLine() {
  const std::string_view bytes = ReadLineBytes();
  state_->line.clear();
  DecodeText(state_->encoding, bytes, state_->line);
  return state_->line;
}

bool TextReader::AtEndOfStream() {
  return state_->begin == state_->end && !state_->Fill();
}

std::int64_t TextReader::BytesRead() const {
  return state_->bytesRead;
}
std::int64_t TextReader::Size() const {
  return state_->size;
}
TextEncoding TextReader::Encoding() const {
  return state_->encoding;
}

void TextReader::Close() {
  state_->file.Close();
  state_->begin = state_->end;
}

}  // namespace lexmill::platform
