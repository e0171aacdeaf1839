// SPDX-License-Identifier: MIT
#include "tests/support/hard_surroundings.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>

namespace lexmill::test {

void MakePipe(std::u16string_view /*path*/) {
  ADD_FAILURE() << "pipes have no place in a folder";
}

FileSizeLimit::FileSizeLimit(std::uint64_t /*bytes*/) {
  ADD_FAILURE() << "a process can't limit the size of its files";
}
FileSizeLimit::~FileSizeLimit() = default;

bool PerformAndVanish(const std::function<bool()>& /*work*/) {
  ADD_FAILURE() << "a process can't be copied";
  return false;
}

void EndAsByAKill() {
  TerminateProcess(GetCurrentProcess(), 0);
  std::abort();
}

std::string GoneProcess() {
  return "4294967292";  // larger than any number that the system gives
}

}  // namespace lexmill::test
