// SPDX-License-Identifier: MIT
// platform/sqlite/file: the pages held in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "platform/sqlite/file/page.h"

namespace lexmill::platform::sqlite {

/// A page's place in memory.
struct Frame {
  PageNumber page = 0;  ///< 0 while it holds none
  std::uint16_t pins = 0;
  bool isDirty = false;    ///< differs from the file
  bool isRecent = false;   ///< used since the hand came by
  bool isChecked = false;  ///< found to be a tree page in order
  std::int32_t next = -1;  ///< the next frame with the same hash
  char* bytes = nullptr;   ///< kPageSize bytes
};

/// A page held in memory: its bytes stay where they are as long as this object lives.
class PageRef {
 public:
  PageRef() = default;
  explicit PageRef(Frame& frame) : frame_(&frame) { ++frame.pins; }
  PageRef(PageRef&& other) noexcept : frame_(std::exchange(other.frame_, nullptr)) {}
  PageRef& operator=(PageRef&& other) noexcept {
    std::swap(frame_, other.frame_);
    return *this;
  }
  PageRef(const PageRef&) = delete;
  PageRef& operator=(const PageRef&) = delete;
  ~PageRef() { Release(); }

  void Release() {
    if (frame_ != nullptr) {
      --frame_->pins;
      frame_ = nullptr;
    }
  }
  [[nodiscard]] PageNumber Number() const { return frame_->page; }
  [[nodiscard]] const char* Bytes() const { return frame_->bytes; }

 private:
  Frame* frame_ = nullptr;
};

/// A fixed number of frames, found by page number; the least used gives way. Knows no file.
class PageCache {
 public:
  PageCache();

  /// @return null if the page isn't here
  [[nodiscard]] Frame* Find(PageNumber page);
  /// A frame to give to another page: free, or clean and not pinned, taken from its page.
  /// @return null if every frame is dirty or pinned
  [[nodiscard]] Frame* Vacate();
  /// Lets a vacated frame hold `page`; its bytes are the caller's to fill.
  void Assign(Frame& frame, PageNumber page);
  /// Forgets all pages from `first` on, changed or not. Frames that are pinned keep their bytes.
  void ForgetFrom(PageNumber first);
  /// The frames that differ from the file, in the order of their pages. Good until the next call.
  [[nodiscard]] const std::vector<Frame*>& Dirty();

 private:
  static constexpr std::size_t kFrames = 2048;
  static constexpr std::size_t kBuckets = 4096;

  void Unlink(Frame& frame);
  [[nodiscard]] static std::size_t Bucket(PageNumber page) { return page % kBuckets; }

  std::unique_ptr<char[]> bytes_;
  std::vector<Frame> frames_;
  std::vector<std::int32_t> buckets_;
  std::vector<Frame*> dirty_;
  std::size_t hand_ = 0;
};

}  // namespace lexmill::platform::sqlite
