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

}  // namespace lexmill::test
