// SPDX-License-Identifier: MIT
#include "tests/support/files.h"

#include <windows.h>

namespace lexmill::test {

TemporaryFolder::TemporaryFolder() {
  static unsigned made = 0;
  // Numbers of processes come again, and a test that was killed has left its folder.
  do {
    const auto name = std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++made);
    path_ = std::filesystem::temp_directory_path() / ("lexmill-test-" + name);
  } while (!std::filesystem::create_directory(path_));
}

// There are no rights to give up: a file that is read-only is so for everybody.
OrdinaryUser::OrdinaryUser() : wasSuperuser_(false) {}
OrdinaryUser::~OrdinaryUser() = default;

std::string ProgramFile(std::string_view program) {
  return std::string(program) + ".exe";
}

// A link of the file itself: links by name are for administrators.
void LendProgram(const std::filesystem::path& from, std::string_view program,
                 const std::filesystem::path& to) {
  const std::string name = ProgramFile(program);
  std::error_code failure;
  std::filesystem::create_hard_link(from / name, to / name, failure);
  if (failure) {
    std::filesystem::copy_file(from / name, to / name);
  }
}

}  // namespace lexmill::test
