// SPDX-License-Identifier: MIT
// Each text is encoded at once into a buffer, as a whole or not at all, and the buffer is written
// when it is full: whole blocks, which the system takes with less work than what ends within one.
// Two kinds of failure differ in what becomes of the file: after a failed write the older file
// stays, since nobody knows what the new one holds; after a text that the encoding lacks a
// character for, all that came before it is good and takes its place.
#include <optional>
#include <utility>

#include "platform/files/text_stream.h"
#include "platform/host/host_failure.h"

namespace lexmill::platform {
namespace {

constexpr std::size_t kBufferSize = 128 * 1024;

}  // namespace

/// Leaves the file in its place when it is destroyed, however that comes about.
struct TextWriter::State {
  State(ReplacementFile created, std::u16string path, TextEncoding written)
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
    } catch (...) {  // nobody is left to hear of it
    }
  }

  void Write(std::u16string_view text, std::string_view lineEnd) {
    if (closed) {
      throw Failure(FailureNumber::ObjectNotSet, FailureOrigin::ScriptLibrary);
    }
    ThrowEarlierFailure();
    if (!EncodeText(encoding, text, buffer)) {
      isRefused = true;
      ThrowEarlierFailure();
    }
    buffer += lineEnd;
    if (buffer.size() >= kBufferSize) {
      Flush(buffer.size() / kBufferSize * kBufferSize);
      ThrowEarlierFailure();
    }
  }

  void Flush(std::size_t length) {
    if (const auto written = target->File().Write(std::string_view(buffer).substr(0, length));
        !written) {
      error = written.Error();
    }
    buffer.erase(0, length);
  }

  void ThrowEarlierFailure() const {
    if (error) {
      throw TransferFailure(*error);
    }
    if (isRefused) {
      throw Failure(FailureNumber::InvalidCall, FailureOrigin::ScriptLibrary);
    }
  }

  void Close() {
    if (std::exchange(closed, true)) {
      return;
    }
    if (!error) {
      Flush(buffer.size());
    }
    const auto placed = error ? Done() : target->Commit(true);
    target.reset();
    if (error) {
      throw TransferFailure(*error);
    }
    if (!placed) {
      throw FileFailure(placed.Error(), targetPath);
    }
  }

  void Discard() {
    closed = true;
    target.reset();
  }

  std::optional<ReplacementFile> target;
  std::u16string targetPath;
  TextEncoding encoding;
  std::string buffer;              ///< encoded and not yet written
  std::optional<HostError> error;  ///< of a write
  bool isRefused = false;          ///< the encoding has lacked a character
  bool closed = false;
};

TextWriter::TextWriter(ReplacementFile file, std::u16string path, TextEncoding encoding)
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
void TextWriter::Discard() {
  state_->Discard();
}

}  // namespace lexmill::platform
