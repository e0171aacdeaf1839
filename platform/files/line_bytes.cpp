// SPDX-License-Identifier: MIT
// The unread bytes lie in one piece in the buffer, from `begin_` to `end_`. They move to its front
// before more are read, and it doubles when a line doesn't fit, so a line may have any length, and
// views of lines are valid until more is read.
#include "platform/files/line_bytes.h"

#include <cstring>
#include <span>
#include <utility>

#include "platform/host/host_failure.h"

namespace lexmill::platform {
namespace {

constexpr std::size_t kBufferSize = 128 * 1024;

}  // namespace

LineBytes::LineBytes(HostFile file) : file_(std::move(file)), buffer_(kBufferSize) {}

void LineBytes::SkipMark(std::string_view mark) {
  while (end_ - begin_ < mark.size() && Fill()) {
  }
  if (std::string_view(buffer_.data() + begin_, end_ - begin_).starts_with(mark)) {
    Take(mark.size());
  }
}

void LineBytes::Close() {
  file_.Close();
  begin_ = end_;
}

/// Reads more after `end_`, after making room. @return false at the end of the file
bool LineBytes::Fill() {
  if (!file_.IsOpen()) {
    throw Failure(FailureNumber::ObjectNotSet, FailureOrigin::ScriptLibrary);
  }
  if (atEnd_) {
    return false;
  }
  MakeRoom();
  const auto count = file_.Read(std::span(buffer_).subspan(end_));
  if (!count) {
    throw TransferFailure(count.Error());
  }
  end_ += *count;
  atEnd_ = *count == 0;
  return !atEnd_;
}

void LineBytes::MakeRoom() {
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= std::exchange(begin_, 0);
  }
  if (end_ == buffer_.size()) {
    buffer_.resize(buffer_.size() * 2);
  }
}

/// Bytes to the next LF, with it, or to the end of the file.
std::size_t LineBytes::LineLength() {
  std::size_t searched = 0;
  while (true) {
    const char* const from = buffer_.data() + begin_ + searched;
    const std::size_t left = end_ - begin_ - searched;
    if (const void* const found = left > 0 ? std::memchr(from, '\n', left) : nullptr) {
      return searched + static_cast<std::size_t>(static_cast<const char*>(found) - from) + 1;
    }
    searched += left;
    if (!Fill()) {
      return searched;
    }
  }
}

std::string_view LineBytes::Take(std::size_t length) {
  const std::string_view bytes(buffer_.data() + begin_, length);
  begin_ += length;
  bytesRead_ += static_cast<std::int64_t>(length);
  return bytes;
}

}  // namespace lexmill::platform
