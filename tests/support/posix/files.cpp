// SPDX-License-Identifier: MIT
#include "tests/support/files.h"

#include <stdlib.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace lexmill::test {

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "lexmill-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) {
    ADD_FAILURE() << "no temporary folder: " << pattern;
  }
  path_ = pattern;
}

OrdinaryUser::OrdinaryUser() : wasSuperuser_(geteuid() == 0) {
  constexpr uid_t kNobody = 65534;
  if (wasSuperuser_ && setresuid(kNobody, kNobody, 0) != 0) {
    ADD_FAILURE() << "can't give up the superuser's rights";
  }
}

OrdinaryUser::~OrdinaryUser() {
  if (wasSuperuser_ && setresuid(0, 0, 0) != 0) {
    ADD_FAILURE() << "can't take back the superuser's rights";
  }
}

std::string ProgramFile(std::string_view program) {
  return std::string(program);
}

void LendProgram(const std::filesystem::path& from, std::string_view program,
                 const std::filesystem::path& to) {
  std::filesystem::create_symlink(from / program, to / program);
}

}  // namespace lexmill::test
