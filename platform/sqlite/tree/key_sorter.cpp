// SPDX-License-Identifier: MIT

// An external merge sort. Strings fill a batch; a full one is sorted and written to a nameless file
// as a run. Sort() writes the last batch, too, gives its memory back and opens all runs; Next()
// then merges them: a heap holds the runs by their current strings, the least on top. What fits
// into one batch never sees a file.
//
// Memory: the batch takes the whole buffer while strings come in; afterwards the buffer is shared
// out among the pieces of the runs. A run is read from front to back, piece by piece, and a string
// that crosses the end of a piece is moved to the front of the next (see Has).
//
// Invariant while merging: the run that gave the last string is not in the heap but in `last_`, and
// moves on at the following call only. That keeps the string that was handed out where it is.

#include "platform/sqlite/tree/key_sorter.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <utility>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/file/temporary_file.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kGreatestPiece = 256 * 1024;
/// Many runs take more than the buffer rather than a system call for each string.
constexpr std::size_t kLeastPiece = 4 * 1024;

using Length = std::uint32_t;

/// Adds a string after its length. The file is this process's alone: its byte order is too.
void AppendString(std::string& strings, std::string_view string) {
  const auto length = static_cast<Length>(string.size());
  std::array<char, sizeof length> bytes{};
  std::memcpy(bytes.data(), &length, bytes.size());
  strings.append(bytes.data(), bytes.size()).append(string);
}

Length LengthAt(const std::string& strings, std::size_t at) {
  Length length = 0;
  std::memcpy(&length, strings.data() + at, sizeof length);
  return length;
}

}  // namespace

KeySorter::KeySorter(std::string neighbour, std::size_t bufferSize)
    : neighbour_(std::move(neighbour)), bufferSize_(bufferSize), batch_(bufferSize) {}

void KeySorter::Add(std::initializer_list<std::string_view> parts) {
  std::size_t length = 0;
  for (const std::string_view part : parts) {
    length += part.size();
  }
  if (!batch_.HasRoom(length)) {
    PutAside();
  }
  batch_.Add(parts);
  ++count_;
}

void KeySorter::Sort() {
  if (!file_.IsOpen()) {
    batch_.Sort();
    return;
  }
  PutAside();
  batch_ = KeyBatch(0);
  OpenRuns();
}

bool KeySorter::Next(std::string_view& key) {
  if (file_.IsOpen()) {
    return NextOfRuns(key);
  }
  const bool isThere = given_ < batch_.Size();
  key = isThere ? batch_.At(given_++) : std::string_view();
  return isThere;
}

bool KeySorter::IsAfter(const Run* left, const Run* right) {
  return left->head != right->head ? left->head > right->head : left->current > right->current;
}

/// Writes the batch to the file as another run.
void KeySorter::PutAside() {
  if (!file_.IsOpen()) {
    file_ = OpenTemporary(neighbour_);
  }
  batch_.Sort();
  Run& run = runs_.emplace_back();
  run.at = fileSize_;
  std::string piece;
  piece.reserve(kGreatestPiece);
  for (std::size_t i = 0; i < batch_.Size(); ++i) {
    const std::string_view string = batch_.At(i);
    if (piece.size() + sizeof(Length) + string.size() > kGreatestPiece) {
      WritePiece(piece);
    }
    AppendString(piece, string);
  }
  WritePiece(piece);
  run.end = fileSize_;
  batch_.Clear();
}

void KeySorter::WritePiece(std::string& piece) {
  ThrowUnless(file_.WriteAt(piece, fileSize_));
  fileSize_ += static_cast<std::int64_t>(piece.size());
  piece.clear();
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
    std::ranges::push_heap(heap_, IsAfter);
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
  std::ranges::pop_heap(heap_, IsAfter);
  last_ = heap_.back();
  heap_.pop_back();
  key = last_->current;
  return true;
}

/// Goes to a run's next string. @return false after the last
bool KeySorter::Advance(Run& run) {
  if (!Has(run, sizeof(Length))) {
    return false;
  }
  const std::size_t size = sizeof(Length) + LengthAt(run.piece, run.used);
  if (!Has(run, size)) {
    throw DatabaseError(kInputOutput);
  }
  run.current = std::string_view(run.piece).substr(run.used, size).substr(sizeof(Length));
  run.head = HeadOf(run.current);
  run.used += size;
  return true;
}

/// Makes sure that `size` bytes of a run are in its piece, unless it ends before.
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
