// SPDX-License-Identifier: MIT
// tests/support: surroundings that are hard on files. A system that lacks one of them fails the
// test that asks for it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace lexmill::test {

/// Makes a named pipe.
void MakePipe(std::u16string_view path);

/// While it lives, no file of this process grows beyond `bytes`, as on a disk that is full. There
/// is one at a time.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(std::uint64_t bytes);
  ~FileSizeLimit();
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
};

/// Performs `work` in a copy of this process that then ends as abruptly as by a kill.
/// @return what `work` returned
bool PerformAndVanish(const std::function<bool()>& work);

/// Ends this process as a kill from outside does, where those have exit codes with that of success.
[[noreturn]] void EndAsByAKill();

/// The number of a process that has been and is gone.
[[nodiscard]] std::string GoneProcess();

}  // namespace lexmill::test
