// SPDX-License-Identifier: MIT
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
constexpr std::size_t kLeastPiece = 4 * 1024;

using Length = std::uint32_t;

/// Strings stand one behind the other, each behind its length.
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
    : neighbour_(std::move(neighbour)),
      bufferSize_(bufferSize),
      filling_(bufferSize / 2),
      leaving_(bufferSize / 2) {}

void KeySorter::Add(std::initializer_list<std::string_view> parts) {
  std::size_t length = 0;
  for (const std::string_view part : parts) {
    length += part.size();
  }
  if (!filling_.HasRoom(length)) {
    PutAside();
  }
  filling_.Add(parts);
  ++count_;
}

void KeySorter::Sort() {
  if (!file_.IsOpen()) {
    filling_.Sort();
    return;
  }
  PutAside();
  work_.Wait();
  filling_ = KeyBatch(0);
  leaving_ = KeyBatch(0);
  OpenRuns();
  work_.Start([this] { MergeAhead(); });
}

bool KeySorter::Next(std::string_view& key) {
  if (!file_.IsOpen()) {
    const bool isThere = given_ < filling_.Size();
    key = isThere ? filling_.At(given_++) : std::string_view();
    return isThere;
  }
  if (mergedUsed_ == merged_.size()) {
    work_.Wait();
    merged_.swap(ahead_);
    mergedUsed_ = 0;
    if (merged_.empty()) {
      return false;
    }
    work_.Start([this] { MergeAhead(); });
  }
  key = std::string_view(merged_).substr(mergedUsed_ + sizeof(Length),
                                         LengthAt(merged_, mergedUsed_));
  mergedUsed_ += sizeof(Length) + key.size();
  return true;
}

bool KeySorter::IsBehind(const Run* left, const Run* right) {
  return left->head != right->head ? left->head > right->head : left->current > right->current;
}

/// Lets the batch that is full go to the file while the next one fills.
void KeySorter::PutAside() {
  work_.Wait();
  if (!file_.IsOpen()) {
    file_ = OpenTemporary(neighbour_);
  }
  std::swap(filling_, leaving_);
  work_.Start([this] { WriteRun(); });
}

void KeySorter::WriteRun() {
  leaving_.Sort();
  Run& run = runs_.emplace_back();
  run.at = fileSize_;
  std::string piece;
  piece.reserve(kGreatestPiece);
  for (std::size_t i = 0; i < leaving_.Size(); ++i) {
    const std::string_view string = leaving_.At(i);
    if (piece.size() + sizeof(Length) + string.size() > kGreatestPiece) {
      WritePiece(piece);
    }
    AppendString(piece, string);
  }
  WritePiece(piece);
  run.end = fileSize_;
  leaving_.Clear();
}

void KeySorter::WritePiece(std::string& piece) {
  if (!file_.WriteAt(piece, fileSize_)) {
    throw HostError();
  }
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
    std::ranges::push_heap(heap_, IsBehind);
  }
}

/// Fills `ahead_` with the next strings of all runs; it stays empty behind the last.
void KeySorter::MergeAhead() {
  ahead_.clear();
  std::string_view key;
  while (ahead_.size() < kGreatestPiece && NextOfRuns(key)) {
    AppendString(ahead_, key);
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
