// SPDX-License-Identifier: MIT
#include "platform/sqlite/key_sorter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <span>
#include <utility>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/page.h"
#include "platform/sqlite/temporary_file.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kGreatestPiece = 256 * 1024;
constexpr std::size_t kLeastPiece = 4 * 1024;

constexpr std::size_t kHeadSize = 8;

/// The first eight bytes as a number that orders as they do, zeros behind the end.
std::uint64_t HeadOf(std::string_view text) {
  std::array<char, kHeadSize> bytes{};
  text.copy(bytes.data(), bytes.size());
  const std::uint64_t high = Get32(bytes.data(), ByteOrder::Big);
  return high << 32U | Get32(bytes.data() + 4, ByteOrder::Big);
}

}  // namespace

KeySorter::KeySorter(std::string neighbour, std::size_t bufferSize)
    : neighbour_(std::move(neighbour)), bufferSize_(bufferSize) {
  // Reserved memory that isn't touched costs nothing.
  texts_.reserve(bufferSize * 2 / 3);
  entries_.reserve(bufferSize / 3 / sizeof(Entry));
}

void KeySorter::Add(std::initializer_list<std::string_view> parts) {
  std::size_t length = 0;
  for (const std::string_view part : parts) {
    length += part.size();
  }
  if (texts_.size() + length > texts_.capacity() || entries_.size() == entries_.capacity()) {
    Spill();
  }
  Entry entry;
  entry.offset = static_cast<std::uint32_t>(texts_.size());
  entry.length = static_cast<std::uint32_t>(length);
  for (const std::string_view part : parts) {
    texts_ += part;
  }
  entry.head = HeadOf(TextOf(entry));
  entries_.push_back(entry);
  ++count_;
}

void KeySorter::Sort() {
  if (runs_.empty()) {
    SortEntries();
    return;
  }
  Spill();
  texts_ = std::string();
  entries_ = std::vector<Entry>();
  OpenRuns();
}

bool KeySorter::Next(std::string_view& key) {
  if (!runs_.empty()) {
    return NextOfRuns(key);
  }
  if (given_ == entries_.size()) {
    return false;
  }
  key = TextOf(entries_[given_++]);
  return true;
}

bool KeySorter::IsBehind(const Run* left, const Run* right) {
  return left->head != right->head ? left->head > right->head : left->current > right->current;
}

void KeySorter::SortEntries() {
  SortBehind(entries_, 0);
}

/// Sorts strings whose first `depth` bytes are alike and whose heads are the bytes behind. Each
/// text is looked at once for every eight bytes, not once for every comparison.
void KeySorter::SortBehind(std::span<Entry> entries, std::size_t depth) {
  const std::size_t end = depth + kHeadSize;
  const auto order = [end](const Entry& entry) {
    return std::pair(entry.head, std::min<std::size_t>(entry.length, end + 1));
  };
  std::ranges::sort(entries, {}, order);
  for (auto from = entries.begin(); from != entries.end();) {
    const auto to = std::find_if(from + 1, entries.end(),
                                 [&](const Entry& entry) { return order(entry) != order(*from); });
    if (to - from > 1 && from->length > end) {
      SortAlike({from, to}, end);
    }
    from = to;
  }
}

/// Sorts strings whose first `depth` bytes are alike.
void KeySorter::SortAlike(std::span<Entry> entries, std::size_t depth) {
  constexpr std::size_t kFewEntries = 4;
  constexpr std::size_t kDeepest = 256;
  if (entries.size() <= kFewEntries || depth > kDeepest) {
    std::ranges::sort(entries, {}, [this](const Entry& entry) { return TextOf(entry); });
    return;
  }
  for (Entry& entry : entries) {
    entry.head = HeadOf(TextOf(entry).substr(depth));
  }
  SortBehind(entries, depth);
}

void KeySorter::Spill() {
  if (entries_.empty()) {
    return;
  }
  if (!file_.IsOpen()) {
    file_ = OpenTemporary(neighbour_);
  }
  SortEntries();
  Run& run = runs_.emplace_back();
  run.at = fileSize_;
  std::string piece;
  piece.reserve(kGreatestPiece);
  const auto write = [this, &piece] {
    if (!file_.WriteAt(piece, fileSize_)) {
      throw HostError();
    }
    fileSize_ += static_cast<std::int64_t>(piece.size());
    piece.clear();
  };
  for (const Entry& entry : entries_) {
    if (piece.size() + sizeof entry.length + entry.length > kGreatestPiece) {
      write();
    }
    std::array<char, sizeof entry.length> length{};
    std::memcpy(length.data(), &entry.length, length.size());
    piece.append(length.data(), length.size());
    piece += TextOf(entry);
  }
  write();
  run.end = fileSize_;
  texts_.clear();
  entries_.clear();
}

void KeySorter::OpenRuns() {
  const std::size_t piece = std::clamp(bufferSize_ / runs_.size(), kLeastPiece, kGreatestPiece);
  for (Run& run : runs_) {
    run.piece.reserve(piece);
    Push(run);
  }
}

void KeySorter::Push(Run& run) {
  if (Advance(run)) {
    heap_.push_back(&run);
    std::ranges::push_heap(heap_, IsBehind);
  }
}

bool KeySorter::NextOfRuns(std::string_view& key) {
  if (last_ != nullptr) {
    Push(*last_);
    last_ = nullptr;
  }
  if (heap_.empty()) {
    return false;
  }
  std::ranges::pop_heap(heap_, IsBehind);
  last_ = heap_.back();
  heap_.pop_back();
  key = last_->current;
  return true;
}

bool KeySorter::Advance(Run& run) {
  std::uint32_t length = 0;
  if (!Has(run, sizeof length)) {
    return false;
  }
  std::memcpy(&length, run.piece.data() + run.used, sizeof length);
  if (!Has(run, sizeof length + length)) {
    throw DatabaseError(kInputOutput);
  }
  run.current = std::string_view(run.piece).substr(run.used + sizeof length, length);
  run.head = HeadOf(run.current);
  run.used += sizeof length + length;
  return true;
}

bool KeySorter::Has(Run& run, std::size_t size) {
  if (run.piece.size() - run.used >= size) {
    return true;
  }
  run.piece.erase(0, run.used);
  run.used = 0;
  const std::size_t kept = run.piece.size();
  const auto left = static_cast<std::size_t>(run.end - run.at);
  const std::size_t more = std::min(left, std::max(run.piece.capacity(), size) - kept);
  run.piece.resize(kept + more);
  const auto got = file_.ReadAt(std::span(run.piece).subspan(kept), run.at);
  if (!got || *got != more) {
    throw DatabaseError(kInputOutput);
  }
  run.at += static_cast<std::int64_t>(more);
  return run.piece.size() >= size;
}

}  // namespace lexmill::platform::sqlite
