// SPDX-License-Identifier: MIT
#include <optional>
#include <utility>
#include <vector>

#include "platform/files/text_stream.h"
#include "platform/host/background_work.h"
#include "platform/host/host_failure.h"
#include "platform/host/replacement_file.h"

namespace lexmill::platform {
namespace {

constexpr std::size_t kGroupUnits = 64 * 1024;

/// Texts that follow one another, each of which is written as a whole or not at all.
struct TextGroup {
  void Clear() {
    text.clear();
    ends.clear();
  }

  std::u16string text;
  std::vector<std::size_t> ends;  ///< of each text
};

}  // namespace

/// Texts come together in groups; a full one is encoded and written beside the owner's work on the
/// next. Leaves the file in its place when it is destroyed, however that comes about.
struct TextWriter::State {
  State(ReplacementFile created, std::u16string path, TextEncoding written)
      : target(std::move(created)), targetPath(std::move(path)), encoding(written) {
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

  void Write(std::u16string_view text, std::u16string_view lineEnd) {
    if (closed) {
      throw Failure(FailureNumber::ObjectNotSet, FailureOrigin::ScriptLibrary);
    }
    Tell();
    filling.text.append(text).append(lineEnd);
    filling.ends.push_back(filling.text.size());
    if (filling.text.size() >= kGroupUnits) {
      HandOver();
    }
  }

  void HandOver() {
    work.Wait();
    outcome = workOutcome;
    Tell();
    std::swap(filling, leaving);
    filling.Clear();
    work.Start([this] { WriteGroup(leaving); });
  }

  /// Writes the group, up to a text that the encoding lacks a character for.
  void WriteGroup(const TextGroup& group) {
    std::size_t start = 0;
    for (const std::size_t end : group.ends) {
      const auto text = std::u16string_view(group.text).substr(start, end - start);
      if (!EncodeText(encoding, text, buffer)) {
        workOutcome.isRefused = true;
        break;
      }
      start = end;
    }
    if (const auto written = target->File().Write(buffer); !written) {
      workOutcome.error = written.Error();
    }
    buffer.clear();
  }

  /// Fails if something before has failed.
  void Tell() {
    if (outcome.error) {
      throw TransferFailure(*outcome.error);
    }
    if (outcome.isRefused) {
      throw Failure(FailureNumber::InvalidCall, FailureOrigin::ScriptLibrary);
    }
  }

  void Close() {
    if (std::exchange(closed, true)) {
      return;
    }
    work.Wait();
    const bool isToldOfRefusal = outcome.isRefused;
    if (!workOutcome.error && !workOutcome.isRefused) {
      WriteGroup(filling);
    }
    outcome = workOutcome;
    const auto placed = outcome.error ? Done() : target->Commit(true);
    target.reset();
    if (!placed) {
      throw FileFailure(placed.Error(), targetPath);
    }
    outcome.isRefused = outcome.isRefused && !isToldOfRefusal;
    Tell();
  }

  void Discard() {
    closed = true;
    work.Wait();
    target.reset();
  }

  /// What has failed so far.
  struct Outcome {
    std::optional<HostError> error;  ///< of a write
    bool isRefused = false;          ///< the encoding lacks a character
  };

  std::optional<ReplacementFile> target;
  std::u16string targetPath;
  TextEncoding encoding;
  TextGroup filling;
  Outcome outcome;  ///< as far as the owner has seen it
  bool closed = false;
  // Of the work, while one is under way:
  TextGroup leaving;
  std::string buffer;
  Outcome workOutcome;
  BackgroundWork work;  ///< last: it ends before what it touches
};

TextWriter::TextWriter(ReplacementFile file, std::u16string path, TextEncoding encoding)
    : state_(std::make_unique<State>(std::move(file), std::move(path), encoding)) {}

TextWriter::TextWriter(TextWriter&&) noexcept = default;
TextWriter& TextWriter::operator=(TextWriter&&) noexcept = default;
TextWriter::~TextWriter() = default;

void TextWriter::Write(std::u16string_view text) {
  state_->Write(text, u"");
}
void TextWriter::WriteLine(std::u16string_view text) {
  state_->Write(text, u"\r\n");
}
void TextWriter::Close() {
  state_->Close();
}
void TextWriter::Discard() {
  state_->Discard();
}

}  // namespace lexmill::platform
