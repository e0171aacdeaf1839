// SPDX-License-Identifier: MIT
#include "platform/files/spliced_file.h"

#include <algorithm>
#include <utility>

#include "platform/files/opened_file.h"
#include "platform/host/host_failure.h"
#include "platform/host/host_path.h"
#include "platform/host/same_file.h"

namespace lexmill::platform {
namespace {

constexpr std::int64_t kBlock = 256 * 1024;

// In a folder that can't take a new file the target would be written in place, and the original is
// gone then before it has been copied.
void RefuseToOverwrite(std::u16string_view original, std::u16string_view target) {
  const std::u16string folder = ParentFolder(target);
  if (!folder.empty() && IsSameFile(original, target) && !MayWrite(HostPath(folder))) {
    throw FileFailure(HostError::Denied, target);
  }
}

}  // namespace

SplicedFile::SplicedFile(std::u16string_view original, std::u16string_view target,
                         const CodePage& page)
    : size_(0),
      targetPath_(target),
      target_([&] {
        OpenedFile opened = OpenToRead(original);
        original_ = std::move(opened.file);
        size_ = opened.size;
        RefuseToOverwrite(original, target);
        return OpenToReplace(target);
      }()),
      page_(page) {}

bool SplicedFile::Replace(FileRange range, std::u16string_view text) {
  replacement_.clear();
  if (!page_.Encode(text, replacement_)) {
    return false;
  }
  CopyUpTo(range.begin);
  Put(replacement_);
  done_ = range.end;
  return true;
}

void SplicedFile::Close() {
  CopyUpTo(size_);
  Flush();
  // It may be the one to be replaced, and not every host replaces a file that is open.
  original_.Close();
  if (const auto placed = target_.Commit(true); !placed) {
    throw FileFailure(placed.Error(), targetPath_);
  }
}

void SplicedFile::CopyUpTo(std::int64_t end) {
  while (done_ < end) {
    if (done_ >= blockStart_ + static_cast<std::int64_t>(block_.size())) {
      ReadBlock();
    }
    const auto from = static_cast<std::size_t>(done_ - blockStart_);
    const std::string_view piece =
        std::string_view(block_).substr(from, static_cast<std::size_t>(end - done_));
    Put(piece);
    done_ += static_cast<std::int64_t>(piece.size());
  }
}

// A file that has become shorter since it was read can't be completed.
void SplicedFile::ReadBlock() {
  block_.resize(static_cast<std::size_t>(std::min(size_ - done_, kBlock)));
  const auto count = original_.ReadAt(block_, done_);
  if (!count || *count < block_.size() || block_.empty()) {
    throw TransferFailure(count ? HostError::Device : count.Error());
  }
  blockStart_ = done_;
}

void SplicedFile::Put(std::string_view bytes) {
  buffer_ += bytes;
  if (buffer_.size() >= static_cast<std::size_t>(kBlock)) {
    Flush();
  }
}

void SplicedFile::Flush() {
  if (const auto written = target_.File().Write(buffer_); !written) {
    throw TransferFailure(written.Error());
  }
  buffer_.clear();
}

}  // namespace lexmill::platform
