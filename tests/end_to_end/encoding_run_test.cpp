// SPDX-License-Identifier: MIT
// Runs over dictionaries in UTF-8, alone and mixed with ones in code page 936.
#include "tests/end_to_end/whole_run.h"

namespace lexmill::test {
namespace {

constexpr const char* kMark = "\xEF\xBB\xBF";

class EncodingRun : public WholeRun {
 protected:
  // Runs over two files given by their bytes. @return the bytes of the result
  std::string Run(const std::string& toDo, const std::string& refer) {
    WriteBytes(Dictionary("todo"), toDo);
    WriteBytes(Dictionary("refer"), refer);
    Press("todo", "refer", "final");
    return ReadBytes(Dictionary("final"));
  }
};

// An emoji, an ideograph beyond the first plane, a private-use character, an accented letter that
// code page 936 lacks, and one whose GB18030 form is a pair that 936 uses otherwise.
constexpr const char* kRare = "😀 𠀀 \xEE\x80\x80 À ǹ 打";

TEST_F(EncodingRun, TakesRareCharactersThroughTheWorkingFiles) {
  const std::string rare = kRare;
  EXPECT_EQ(Run(rare + ":\t" + rare + ":\r\n", rare + "\t译 " + rare + "\r\n"),
            rare + ":\t译 " + rare + ":\r\n");
  EXPECT_EQ(Run("1:" + rare + "\n" + rare + "\n", "1:" + rare + "\n译 " + rare + "\n"),
            "\r\n1:" + rare + "\r\n译 " + rare + "\r\n");
}

TEST_F(EncodingRun, KeepsTheMarkAndFindsTheHeadAfterIt) {
  EXPECT_EQ(Run(std::string(kMark) + "9 1\t4 2\r\nOpen\tOpen\r\n", "Open\t打开\r\n"),
            std::string(kMark) + "9 1\t4 2\r\nOpen\t打开\r\n");
}

TEST_F(EncodingRun, ServesAReferenceInTheOtherEncoding) {
  EXPECT_EQ(Run(Ansi("Open 打\tOpen 打\n"), "Open 打\t打开À\r\n"),
            Ansi("Open 打\t打开") + "\x81\x30\x86\x38\r\n");
  EXPECT_EQ(Run("Open 打\tOpen 打\r\n", Ansi("Open 打\t打开\n")), "Open 打\t打开\r\n");
  EXPECT_EQ(Run(std::string(kMark) + "Open\tOpen\r\n", "Open\t\xFE(\r\n"),
            std::string(kMark) + "Open\t\xFE(\r\n");
}

TEST_F(EncodingRun, TakesAHotKeyOfTwoUnits) {
  EXPECT_EQ(Run("&😀打\t&😀打\r\n", "😀打\t笑\r\n"), "&😀打\t笑(&😀)\r\n");
}

TEST_F(EncodingRun, WritesTheResultOverAReferenceInAnotherEncoding) {
  WriteBytes(Dictionary("todo"), Ansi("Open\tOpen\n打\t开\n"));
  WriteBytes(Dictionary("both"), "Open\t打开\r\n");
  Press("todo", "both", "both");
  EXPECT_EQ(ReadBytes(Dictionary("both")), Ansi("Open\t打开\n"));
}

}  // namespace
}  // namespace lexmill::test
