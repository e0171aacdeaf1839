// SPDX-License-Identifier: MIT
#include <cerrno>
#include <optional>
#include <utility>

#include "platform/host_failure.h"
#include "platform/host_file.h"
#include "platform/text_stream.h"

namespace lexmill::platform {
namespace {

constexpr std::size_t kBufferSize = 128 * 1024;

}  // namespace

/// Leaves the file in its place when it is destroyed, however that comes about.
struct TextWriter::State {
  State(ReplacementFile created, std::string path, TextEncoding written)
      : target(std::move(created)), targetPath(std::move(path)), encoding(written) {
    buffer.reserve(kBufferSize);
    if (encoding == TextEncoding::Utf8WithMark) {
      buffer = kUtf8Mark;
    }
  }

  State(const State&) = delete;
  State& operator=(const State&) = delete;

  ~State() {
    try {
      Close();
    } catch (...) {  // a destructor has nobody to tell
    }
  }

  void Write(std::u16string_view text, std::string_view lineEnd) {
    if (closed) {
      throw Failure(FailureNumber::ObjectNotSet, FailureOrigin::ScriptLibrary);
    }
    CheckUnbroken();
    if (!EncodeText(encoding, text, buffer)) {
      throw Failure(FailureNumber::InvalidCall, FailureOrigin::ScriptLibrary);
    }
    buffer += lineEnd;
    if (buffer.size() >= kBufferSize) {
      Flush();
    }
  }

  void CheckUnbroken() const {
    if (broken) {
      throw TransferFailure(*broken);
    }
  }

  void Flush() {
    if (!target->File().Write(buffer)) {
      broken = errno;
      throw TransferFailure(*broken);
    }
    buffer.clear();
  }

  void Close() {
    if (std::exchange(closed, true)) {
      return;
    }
    CheckUnbroken();
    Flush();
    if (!target->Commit(true)) {
      const int error = errno;
      target.reset();
      throw FileFailure(error, targetPath);
    }
    target.reset();
  }

  std::optional<ReplacementFile> target;
  std::string targetPath;
  TextEncoding encoding;
  std::string buffer;
  std::optional<int> broken;  ///< `errno` of the write that failed
  bool closed = false;
};

TextWriter::TextWriter(ReplacementFile file, std::string path, TextEncoding encoding)
    : state_(std::make_unique<State>(std::move(file), std::move(path), encoding)) {}

TextWriter::TextWriter(TextWriter&&) noexcept = default;
TextWriter& TextWriter::operator=(TextWriter&&) noexcept = default;
TextWriter::~TextWriter() = default;

void TextWriter::Write(std::u16string_view text) {
  state_->Write(text, "");
}
void TextWriter::WriteLine(std::u16string_view text) {
  state_->Write(text, "\r\n");
}
void TextWriter::Close() {
  state_->Close();
}

}  // namespace lexmill::platform
