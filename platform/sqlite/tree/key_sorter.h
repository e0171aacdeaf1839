// SPDX-License-Identifier: MIT
// platform/sqlite/tree: sorting more than fits in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/host_file.h"
#include "platform/sqlite/tree/key_batch.h"

namespace lexmill::platform::sqlite {

/// Sorts byte strings by unsigned bytes, a prefix first. Memory is constant: what doesn't fit goes
/// to a nameless file. First Add, then Sort, then Next.
class KeySorter {
 public:
  /// @param neighbour   path of a file on whose disk strings are put aside
  /// @param bufferSize  bytes of memory, some of which each string takes besides its length
  KeySorter(std::string neighbour, std::size_t bufferSize);

  /// Adds the string that the parts make together.
  void Add(std::initializer_list<std::string_view> parts);
  [[nodiscard]] std::size_t Count() const { return count_; }
  /// Ends adding. Next then begins with the first string.
  void Sort();
  /// @param key  [out] the next string, good until the following call
  /// @return false after the last
  [[nodiscard]] bool Next(std::string_view& key);

 private:
  /// A sorted part of the file, read piece by piece.
  struct Run {
    std::int64_t at = 0;  ///< where the next piece begins
    std::int64_t end = 0;
    std::string piece;
    std::size_t used = 0;      ///< bytes of the piece that are done with
    std::string_view current;  ///< in the piece
    std::uint64_t head = 0;    ///< HeadOf(current)
  };

  [[nodiscard]] static bool IsAfter(const Run* left, const Run* right);
  void PutAside();
  void WritePiece(std::string& piece);
  void OpenRuns();
  void Push(Run& run);
  [[nodiscard]] bool Advance(Run& run);
  [[nodiscard]] bool Has(Run& run, std::size_t size);
  [[nodiscard]] bool NextOfRuns(std::string_view& key);

  std::string neighbour_;
  std::size_t bufferSize_;
  std::size_t count_ = 0;
  KeyBatch batch_;
  std::size_t given_ = 0;  ///< strings of the only batch that Next has been through
  HostFile file_;
  std::int64_t fileSize_ = 0;
  std::vector<Run> runs_;
  std::vector<Run*> heap_;  ///< the run with the least string on top
  Run* last_ = nullptr;     ///< the run that gave the last string
};

}  // namespace lexmill::platform::sqlite
