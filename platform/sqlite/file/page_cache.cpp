// SPDX-License-Identifier: MIT

// A clock: a hand goes round the frames and takes the first that is clean, not pinned and not used
// since it last came by. One that has been used loses its mark and stays for another round. That
// needs no list in order of use, and a pass through a large tree doesn't push out the pages above
// its leaves, as those are used again and again.
//
// Frames are found by page number in chains: a bucket holds the index of its first frame, a frame
// that of the next, -1 at the end. Invariant: a frame with a page is in the chain of its bucket;
// one without (page 0) is in none.

#include "platform/sqlite/file/page_cache.h"

#include <algorithm>

namespace lexmill::platform::sqlite {

PageCache::PageCache()
    : bytes_(std::make_unique_for_overwrite<char[]>(kFrames * kPageSize)),
      frames_(kFrames),
      buckets_(kBuckets, -1) {
  for (std::size_t i = 0; i < kFrames; ++i) {
    frames_[i].bytes = bytes_.get() + i * kPageSize;
  }
}

Frame* PageCache::Find(PageNumber page) {
  for (std::int32_t i = buckets_[Bucket(page)]; i >= 0;) {
    Frame& frame = frames_[static_cast<std::size_t>(i)];
    if (frame.page == page) {
      frame.isRecent = true;
      return &frame;
    }
    i = frame.next;
  }
  return nullptr;
}

/// Goes round twice: first all recent frames may lose their mark, then one is found if there is
/// any.
Frame* PageCache::Vacate() {
  for (std::size_t step = 0; step < 2 * kFrames; ++step) {
    Frame& frame = frames_[hand_];
    hand_ = (hand_ + 1) % kFrames;
    if (frame.pins != 0 || frame.isDirty) {
      continue;
    }
    if (!std::exchange(frame.isRecent, false)) {
      Unlink(frame);
      return &frame;
    }
  }
  return nullptr;
}

void PageCache::Assign(Frame& frame, PageNumber page) {
  std::int32_t& bucket = buckets_[Bucket(page)];
  frame.page = page;
  frame.isRecent = true;
  frame.isChecked = false;
  frame.next = std::exchange(bucket, static_cast<std::int32_t>(&frame - frames_.data()));
}

void PageCache::ForgetFrom(PageNumber first) {
  for (Frame& frame : frames_) {
    if (frame.page >= first) {
      Unlink(frame);
    }
  }
}

const std::vector<Frame*>& PageCache::Dirty() {
  dirty_.clear();
  for (Frame& frame : frames_) {
    if (frame.isDirty) {
      dirty_.push_back(&frame);
    }
  }
  std::ranges::sort(dirty_, {}, &Frame::page);
  return dirty_;
}

void PageCache::Unlink(Frame& frame) {
  if (frame.page == 0) {
    return;
  }
  const auto index = static_cast<std::int32_t>(&frame - frames_.data());
  std::int32_t* link = &buckets_[Bucket(frame.page)];
  while (*link != index) {
    link = &frames_[static_cast<std::size_t>(*link)].next;
  }
  *link = frame.next;
  frame.page = 0;
  frame.isDirty = false;
  frame.isRecent = false;
}

}  // namespace lexmill::platform::sqlite
