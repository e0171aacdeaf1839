// SPDX-License-Identifier: MIT
// Batch scripts by our interpreter and by the system's own.
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "tests/support/files.h"

namespace lexmill::platform {
namespace {

/// What a script prints; a file that it leaves, with the name `out`, follows.
class BatchServices : public testing::Test {
 protected:
  BatchServices() { std::filesystem::current_path(folder_.Path()); }
  ~BatchServices() override { std::filesystem::current_path(start_); }

  [[nodiscard]] std::string Run(const std::string& interpreter, const std::string& script) const {
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      std::filesystem::remove(entry.path());
    }
    test::WriteBytes(folder_.File("data"), "content\r\n");
    test::WriteBytes(folder_.File("script.bat"), "@echo off\r\n" + script);
    const std::string line = interpreter + " script.bat >printed 2>nul <nul";
    EXPECT_NE(std::system(line.c_str()), -1);
    const bool isThere = std::filesystem::exists(folder_.Path() / "out");
    return test::ReadBytes(folder_.File("printed")) +
           (isThere ? "; out: " + test::ReadBytes(folder_.File("out")) : "");
  }

 private:
  const std::filesystem::path start_ = std::filesystem::current_path();
  test::TemporaryFolder folder_;
};

TEST_F(BatchServices, PrintAndWriteAlike) {
  const char* const scripts[] = {"",
                                 "echo name.sql\r\n",
                                 "echo.\r\n",
                                 "echo   two\r\n",
                                 "echo last",
                                 "echo one\necho two\n",
                                 "copy data out>nul\r\n",
                                 "copy \"data\" \"out\">nul\r\necho done\r\n",
                                 "copy nosuch out>nul\r\necho done\r\n",
                                 "copy data out>nul\r\ndel data\r\ncopy data out>nul\r\n",
                                 "del nosuch\r\necho done\r\n",
                                 "echo a>out\r\n",
                                 "echo a>nodir\\out\r\necho done\r\n",
                                 "nosuch a b\r\necho done\r\n",
                                 "nosuch>out\r\n",
                                 "nosuch<missing\r\necho done\r\n",
                                 "echo \"a>b < c & d | e\"\r\n"};
  const std::string ours = "\"" LEXMILL_PROGRAMS "/batch.exe\"";
  for (const std::string script : scripts) {
    EXPECT_EQ(Run(ours, script), Run("cmd /c", script)) << script;
  }
}

}  // namespace
}  // namespace lexmill::platform
