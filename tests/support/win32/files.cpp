// SPDX-License-Identifier: MIT
#include "tests/support/files.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace lexmill::test {

TemporaryFolder::TemporaryFolder() {
  static unsigned made = 0;
  const auto name = std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++made);
  path_ = std::filesystem::temp_directory_path() / ("lexmill-test-" + name);
  EXPECT_TRUE(std::filesystem::create_directory(path_)) << path_;
}

// There are no rights to give up: a file that is read-only is so for everybody.
OrdinaryUser::OrdinaryUser() : wasSuperuser_(false) {}
OrdinaryUser::~OrdinaryUser() = default;

}  // namespace lexmill::test
