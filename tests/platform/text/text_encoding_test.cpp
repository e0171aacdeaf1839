// SPDX-License-Identifier: MIT
#include "platform/text/text_encoding.h"

#include <gtest/gtest.h>

#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using test::Readable;

constexpr auto kAnsi = TextEncoding::Ansi;
constexpr auto kUtf8 = TextEncoding::Utf8;
constexpr auto kWithMark = TextEncoding::Utf8WithMark;

struct Case {
  std::string_view bytes;
  TextEncoding encoding;
};

constexpr Case kCases[] = {
    {"", kAnsi},
    {"plain ASCII alone proves nothing", kAnsi},
    {"nine: \xC3\xA9\xC3\xA9\xC3\xA9 \xC3\xA9\xC3\xA9\xC3\xA9 \xC3\xA9\xC3\xA9\xC3\xA9", kAnsi},
    {"ten: \xC3\xA9\xC3\xA9\xC3\xA9 \xC3\xA9\xC3\xA9\xC3\xA9 \xC3\xA9\xC3\xA9\xC3\xA9 \xC3\xA9",
     kUtf8},
    {"\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xFF", kAnsi},
    {"abcdefghij \xE4\xB8\xAD\xE6\x96\x87 klm", kUtf8},
    {"\xF0\x9F\x98\x80", kUtf8},
    {"\xE0\xA0\x80", kUtf8},
    {"\xEF\xBB\xBF", kWithMark},
    {"\xEF\xBB\xBFplain", kWithMark},
    {"\xEF\xBB\xBF\xE4\xB8\xAD", kWithMark},
    {"x\xEF\xBB\xBF", kUtf8},
    {"\xEF\xBB", kAnsi},
    {"\xEF\xBB\xBF\xFF", kAnsi},
    {"\xD6\xD0\xCE\xC4", kAnsi},
    {"\xE4\xB8\xAD\xE4\xB8", kAnsi},
    {"\xE4\xB8\xAD\x80", kAnsi},
    {"\xE4\xB8\xADx\xE4y", kAnsi},
    {"\xE4\xB8\xAD\xC0\xAF", kAnsi},
    {"\xE4\xB8\xAD\xE0\x9F\xBF", kAnsi},
    {"\xE4\xB8\xAD\xED\xA0\x80", kAnsi},
    {"\xE4\xB8\xAD\xF0\x8F\xBF\xBF", kAnsi},
    {"\xE4\xB8\xAD\xF4\x90\x80\x80", kAnsi},
    {"\xE4\xB8\xAD\xF5\x80\x80\x80", kAnsi},
    {"\xF4\x8F\xBF\xBF", kUtf8},
};

TEST(Utf8Recognition, JudgesAFileWhereverItsPiecesEnd) {
  for (const auto& [bytes, encoding] : kCases) {
    for (std::size_t size = 1; size <= bytes.size() + 1; ++size) {
      Utf8Recognition recognition;
      for (std::size_t at = 0; at < bytes.size(); at += size) {
        recognition.Feed(bytes.substr(at, size));
      }
      EXPECT_EQ(recognition.Result(), encoding) << bytes << " in pieces of " << size;
    }
  }
}

TEST(Utf8Recognition, SaysAtOnceThatAFileIsNot) {
  Utf8Recognition recognition;
  EXPECT_TRUE(recognition.Feed("abc\xE4"));
  EXPECT_FALSE(recognition.Feed("\xB8x"));
  EXPECT_FALSE(recognition.Feed("\xE4\xB8\xAD"));
}

TEST(TextEncoding, ConvertsByTheFilesEncoding) {
  struct {
    TextEncoding encoding;
    std::string_view bytes;
  } const kFiles[] = {
      {kAnsi, "\xD6\xD0\xFE"},
      {kUtf8, "\xE4\xB8\xAD\xFE"},
      {kWithMark, "\xE4\xB8\xAD\xFE"},
  };
  for (const auto& [encoding, bytes] : kFiles) {
    std::u16string text = u"+";
    DecodeText(encoding, bytes, text);
    EXPECT_EQ(Readable(text), Readable(u"+中\xDCFE"));
    const std::string whole = std::string("+").append(bytes);
    std::string back = "+";
    EXPECT_TRUE(EncodeText(encoding, text.substr(1), back));
    EXPECT_EQ(back, whole);
    EXPECT_FALSE(EncodeText(encoding, u"中\xD83D", back));
    EXPECT_EQ(back, whole);
  }
}

}  // namespace
}  // namespace lexmill::platform
