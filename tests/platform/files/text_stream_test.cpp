// SPDX-License-Identifier: MIT
#include "platform/files/text_stream.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/files/file_system.h"
#include "tests/support/failures.h"
#include "tests/support/files.h"
#include "tests/support/hard_surroundings.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using test::FailureOf;
using test::Readable;
using test::ReadBytes;
using test::TemporaryFolder;
using test::WriteBytes;
using testing::ElementsAreArray;

std::vector<std::string> LinesOf(TextReader& reader) {
  std::vector<std::string> lines;
  while (!reader.AtEndOfStream()) {
    lines.push_back(Readable(reader.ReadLine()));
  }
  return lines;
}

class TextStream : public testing::Test {
 protected:
  [[nodiscard]] TextReader Open(TextEncoding encoding = TextEncoding::Ansi) const {
    return FileSystemObject().OpenTextFile(path_, encoding);
  }
  [[nodiscard]] TextWriter Create(TextEncoding encoding = TextEncoding::Ansi) const {
    return FileSystemObject().CreateTextFile(path_, true, encoding);
  }

  TemporaryFolder folder_;
  const std::u16string path_ = folder_.File("f");
};

TEST_F(TextStream, EndsLinesAtLfAndTakesOneCrAway) {
  const struct {
    std::string bytes;
    std::vector<std::string> lines;
  } cases[] = {{"", {}},
               {"\r\n", {""}},
               {"x\r\n\r\n", {"x", ""}},
               {"only", {"only"}},
               {"a\r\nb\nc\rd\r\n\r\ne", {"a", "b", "c\rd", "", "e"}},
               {"\r\r\n", {"\r"}},
               {"a\r", {"a\r"}},
               {"\n\r", {"", "\r"}},
               {"ab\x1A"
                "cd\r\n\x1A",
                {"ab\x1A"
                 "cd",
                 "\x1A"}},
               {std::string("ab\0cd\r\nef", 9), {std::string("ab\0cd", 5), "ef"}},
               {"\xD6\xD0\r\n\xCE\xC4", {"中", "文"}},
               {"\xD6\r\n\xD6\nx", {"<DCD6>", "<DCD6>", "x"}}};
  for (const auto& row : cases) {
    SCOPED_TRACE(testing::PrintToString(row.bytes));
    WriteBytes(path_, row.bytes);
    TextReader reader = Open();
    EXPECT_THAT(LinesOf(reader), ElementsAreArray(row.lines));
    EXPECT_EQ(FailureOf([&reader] { std::ignore = reader.ReadLine(); }), 62);
  }
}

TEST_F(TextStream, PassesOverAMarkOnlyWhereTheEncodingHasOne) {
  WriteBytes(path_, "\xEF\xBB\xBF\xE4\xB8\xAD\n");
  TextReader marked = Open(TextEncoding::Utf8WithMark);
  EXPECT_EQ(marked.BytesRead(), 3);
  EXPECT_EQ(Readable(marked.ReadLine()), "中");
  EXPECT_EQ(marked.BytesRead(), 7);
  TextReader plain = Open(TextEncoding::Utf8);
  EXPECT_EQ(plain.ReadLine(), u"\uFEFF中");
  WriteBytes(path_, "\xEF\xBB");
  EXPECT_EQ(Open(TextEncoding::Utf8WithMark).ReadLine().size(), 2U);
}

// Lines of one to 300,000 characters put characters, CR and LF across every kind of buffer border.
TEST_F(TextStream, ReadsBackLinesOfAnyLength) {
  std::vector<std::string> lines;
  std::size_t bytes = 0;
  {
    TextWriter writer = Create();
    for (std::size_t length = 1; length <= 300'000; length = length * 5 / 4 + 1) {
      lines.push_back(std::string(length % 7, 'x'));
      std::u16string line(length % 7, u'x');
      for (std::size_t i = 0; i < length; ++i) {
        line += u'词';
        lines.back() += "词";
      }
      writer.WriteLine(line);
      bytes += length % 7 + 2 * length + 2;
    }
  }
  TextReader reader = Open();
  EXPECT_EQ(reader.Size(), static_cast<std::int64_t>(bytes));
  EXPECT_EQ(LinesOf(reader), lines);
  EXPECT_EQ(reader.BytesRead(), reader.Size());
}

TEST_F(TextStream, WritesBytesOfTheEncoding) {
  const struct {
    TextEncoding encoding;
    std::string bytes;
  } cases[] = {{TextEncoding::Ansi, std::string("\xD6\xD0\n\0x\r\n\r\n", 9)},
               {TextEncoding::Utf8, std::string("中\n\0x\r\n\r\n", 10)},
               {TextEncoding::Utf8WithMark, std::string("\xEF\xBB\xBF中\n\0x\r\n\r\n", 13)}};
  for (const auto& row : cases) {
    TextWriter writer = Create(row.encoding);
    writer.Write(std::u16string(u"中\n\0x", 4));
    writer.WriteLine();
    writer.WriteLine();
    writer.Close();
    EXPECT_EQ(ReadBytes(path_), row.bytes);
  }
  Create(TextEncoding::Utf8WithMark).Close();
  EXPECT_EQ(ReadBytes(path_), "\xEF\xBB\xBF");
}

// The failure may be reported later; what is written is the same however much comes after it.
TEST_F(TextStream, WritesNothingFromATextOnThatItsEncodingLacks) {
  const std::u16string many(50'000, u'x');
  for (const int after : {0, 1, 10}) {
    SCOPED_TRACE(after);
    {
      TextWriter writer = Create();
      const auto write = [&] {
        writer.WriteLine(u"kept");
        writer.WriteLine(u"lacked \xD800");
        for (int i = 0; i < after; ++i) {
          writer.WriteLine(many);
        }
        writer.Close();
      };
      EXPECT_EQ(FailureOf(write), 5);
    }
    EXPECT_EQ(ReadBytes(path_), "kept\r\n");
  }
}

TEST_F(TextStream, PassesOverLinesThatLackACharacter) {
  std::string bytes = "first\n";
  for (int i = 0; i < 100'000; ++i) {
    bytes += i % 20'000 == 19'999 ? "a\tb\n" : "plain\n";
  }
  WriteBytes(path_, bytes);
  TextReader reader = Open();
  std::ignore = reader.ReadLine();
  reader.PassOverLinesWithout('\t');
  int lines = 0;
  int wanted = 0;
  for (; !reader.AtEndOfStream(); ++lines) {
    wanted += reader.ReadLine() == u"a\tb" ? 1 : 0;
  }
  EXPECT_EQ(wanted, 5);
  EXPECT_LT(lines, 50'000);  // those decoded before are given
  EXPECT_EQ(reader.BytesRead(), reader.Size());
}

TEST_F(TextStream, TakesItsPlaceAtCloseAtReleaseAndAtReassignment) {
  TextWriter writer = Create();
  writer.Write(u"one");
  EXPECT_EQ(folder_.Listing().find(".f.lexmill-"), 0U);
  writer.Close();
  writer.Close();
  EXPECT_EQ(ReadBytes(path_), "one");
  EXPECT_EQ(FailureOf([&writer] { writer.Write(u"x"); }), 91);
  writer = Create();
  writer.Write(u"two");
  writer = FileSystemObject().CreateTextFile(folder_.File("g"), true);
  EXPECT_EQ(ReadBytes(path_), "two");
}

TEST_F(TextStream, FailsAfterClose) {
  WriteBytes(path_, "a\nb\n");
  TextReader reader = Open();
  std::ignore = reader.ReadLine();
  reader.Close();
  reader.Close();
  EXPECT_EQ(reader.BytesRead(), 2);
  EXPECT_EQ(FailureOf([&reader] { std::ignore = reader.ReadLine(); }), 91);
}

TEST_F(TextStream, AFullDiskFailsAndLeavesTheOlderFile) {
  {
    const test::OrdinaryUser user;  // whose mistakes leave the device alone
    TextWriter writer = FileSystemObject().CreateTextFile(u"/dev/full", true);
    writer.Write(u"small");
    EXPECT_EQ(FailureOf([&writer] { writer.Close(); }), 61);
  }
  WriteBytes(path_, "older");
  {
    TextWriter writer = Create();
    {
      const test::FileSizeLimit limit(0);
      EXPECT_EQ(FailureOf([&writer] { writer.Write(std::u16string(200'000, u'x')); }), 61);
    }
    EXPECT_EQ(FailureOf([&writer] { writer.Write(u"z"); }), 61);
  }
  EXPECT_EQ(ReadBytes(path_), "older");
  EXPECT_EQ(folder_.Listing(), "f");
}

}  // namespace
}  // namespace lexmill::platform
