// SPDX-License-Identifier: MIT
#include <exception>
#include <optional>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "platform/files/line_bytes.h"
#include "platform/files/text_stream.h"
#include "platform/host/background_work.h"
#include "platform/host/host_file.h"

namespace lexmill::platform {
namespace {

constexpr std::int64_t kGroupBytes = 128 * 1024;

std::string_view WithoutEnd(std::string_view line) {
  if (line.ends_with('\n')) {
    line.remove_suffix(line.ends_with("\r\n") ? 2 : 1);
  }
  return line;
}

/// Lines that follow one another, decoded.
class LineGroup {
 public:
  struct Line {
    std::size_t end = 0;         ///< in the text
    std::int64_t bytesRead = 0;  ///< of the file, up to the line's end
  };

  void Clear() {
    text_.clear();
    lines_.clear();
    given_ = 0;
  }
  [[nodiscard]] bool IsUsedUp() const { return given_ == lines_.size(); }

  void Add(TextEncoding encoding, std::string_view bytes, std::int64_t bytesRead) {
    DecodeText(encoding, bytes, text_);
    lines_.push_back({text_.size(), bytesRead});
  }

  /// The first line that wasn't given yet.
  std::u16string_view Give() {
    const std::size_t start = given_ > 0 ? lines_[given_ - 1].end : 0;
    return std::u16string_view(text_).substr(start, lines_[given_++].end - start);
  }
  [[nodiscard]] std::int64_t BytesRead() const { return lines_[given_ - 1].bytesRead; }

 private:
  std::u16string text_;
  std::vector<Line> lines_;
  std::size_t given_ = 0;
};

}  // namespace

/// Lines are decoded in groups: the first at once, since many files have no other, the next ones
/// while the owner is busy with the group before.
struct TextReader::State {
  State(HostFile opened, std::int64_t bytes, TextEncoding read)
      : source(std::move(opened)), size(bytes), encoding(read) {}

  /// Lets `ahead` be the next group; it is empty at the end of the file.
  void DecodeAhead() {
    ahead.Clear();
    const std::int64_t enough = source.BytesRead() + kGroupBytes;
    try {
      while ((source.BytesRead() < enough || ahead.IsUsedUp()) && !source.AtEnd()) {
        const std::string_view line = source.Next();
        if (!wanted || line.find(*wanted) != std::string_view::npos) {
          ahead.Add(encoding, WithoutEnd(line), source.BytesRead());
        }
      }
    } catch (const Failure&) {  // told when the lines before it have been given
      failure = std::current_exception();
    }
  }

  /// Makes sure that there is a line to give. @return false at the end of the file
  bool HasLine() {
    if (!group.IsUsedUp()) {
      return true;
    }
    if (isDecoding) {
      work.Wait();
    } else if (failure) {
      ahead.Clear();
    } else {
      DecodeAhead();
    }
    std::swap(group, ahead);
    isDecoding = std::exchange(isBehindFirst, true) && !group.IsUsedUp() && !failure;
    if (isDecoding) {
      work.Start([this] { DecodeAhead(); });
    } else if (failure && group.IsUsedUp()) {
      std::rethrow_exception(std::exchange(failure, nullptr));
    }
    return !group.IsUsedUp();
  }

  LineBytes source;
  std::int64_t size;
  TextEncoding encoding;
  std::optional<char> wanted;  ///< what a line has to hold to be decoded
  std::int64_t bytesRead = 0;  ///< by the owner
  LineGroup group;             ///< whose lines the owner is given
  LineGroup ahead;
  std::exception_ptr failure;  ///< of reading behind `ahead`, or behind `group` if that is empty
  bool isBehindFirst = false;  ///< there was a group already
  bool isDecoding = false;     ///< `ahead`, `failure` and `source` are the work's
  BackgroundWork work;         ///< last: it ends before what it touches
};

TextReader::TextReader(HostFile file, std::int64_t size, TextEncoding encoding)
    : state_(std::make_unique<State>(std::move(file), size, encoding)) {
  if (encoding == TextEncoding::Utf8WithMark) {
    state_->source.SkipMark(kUtf8Mark);
    state_->bytesRead = state_->source.BytesRead();
  }
}

TextReader::TextReader(TextReader&&) noexcept = default;
TextReader& TextReader::operator=(TextReader&&) noexcept = default;
TextReader::~TextReader() = default;

std::u16string_view TextReader::ReadLine() {
  if (AtEndOfStream()) {
    throw Failure(FailureNumber::InputPastEnd, FailureOrigin::ScriptLibrary);
  }
  const std::u16string_view line = state_->group.Give();
  state_->bytesRead = state_->group.BytesRead();
  return line;
}

bool TextReader::AtEndOfStream() {
  return !state_->HasLine();
}

void TextReader::PassOverLinesWithout(char character) {
  state_->work.Wait();
  state_->wanted = character;
}

std::int64_t TextReader::BytesRead() const {
  return state_->bytesRead;
}
std::int64_t TextReader::Size() const {
  return state_->size;
}

void TextReader::Close() {
  state_->work.Drop();
  state_->isDecoding = false;
  state_->source.Close();
  state_->group.Clear();
}

}  // namespace lexmill::platform
