// SPDX-License-Identifier: MIT
#include "run/shell_complaint.h"

#include <gtest/gtest.h>

namespace lexmill {
namespace {

TEST(ShellComplaint, IsTheFirstHoweverTheOutputIsCut) {
  const std::string output =
      "t1.sql\r\nINSERT INTO R VALUES ('SQL error: no','" + std::string(5000, 'x') +
      "');\r\nSQL error: no such table: \xD2\xEB\r\nSQL error: second\r\nt2.sql\r\n";
  for (const std::size_t step : {std::size_t{1}, std::size_t{7}, output.size()}) {
    ShellComplaint complaint;
    for (std::size_t at = 0; at < output.size(); at += step) {
      complaint.Feed(std::string_view(output).substr(at, step));
    }
    EXPECT_EQ(complaint.Text(), "SQL error: no such table: 译") << step;
  }
}

TEST(ShellComplaint, IsNoneInWhatABatchSaysAnyway) {
  ShellComplaint complaint;
  complaint.Feed("t1.sql\r\n找不到 /a/t1.sql\r\n");
  EXPECT_EQ(complaint.Text(), "");
  complaint.Feed("Unable to open database \"t\": disk I/O error\n");
  EXPECT_EQ(complaint.Text(), "Unable to open database \"t\": disk I/O error");
}

}  // namespace
}  // namespace lexmill
