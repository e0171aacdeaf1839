// SPDX-License-Identifier: MIT
#include "platform/sqlite/shell/script_reader.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace lexmill::platform::sqlite {
namespace {

/// Gives `script` in pieces of `step` bytes.
ReadFunction InPieces(std::string_view script, std::size_t step) {
  return [script, step](std::span<char> buffer) mutable -> std::optional<std::size_t> {
    const std::size_t count = std::min({step, buffer.size(), script.size()});
    std::copy_n(script.begin(), count, buffer.begin());
    script.remove_prefix(count);
    return count;
  };
}

/// All batches; an incomplete one begins with "?", a shell command with "!".
std::vector<std::string> Batches(std::string_view script, std::size_t step = 1u << 20) {
  const ReadFunction read = InPieces(script, step);
  ScriptReader reader(read);
  std::vector<std::string> result;
  while (const auto batch = reader.Next()) {
    const char* mark = batch->kind == ScriptBatch::Kind::Incomplete ? "?"
                       : batch->kind == ScriptBatch::Kind::Command  ? "!"
                                                                    : "";
    result.emplace_back(mark).append(batch->text);
  }
  return result;
}

TEST(ScriptReader, CollectsLinesUntilOneEndsAStatement) {
  using List = std::vector<std::string>;
  struct Case {
    const char* name;
    std::string script;
    List batches;
  };
  const Case cases[] = {
      {"empty", "", {}},
      {"blank lines and comments", "\r\n  \n-- c;\n/* a\n b */\n", {"-- c;\n"}},
      {"one a line", "a;\nb;\r\n", {"a;\n", "b;\r\n"}},
      {"several on a line", "a; b; c;\nd;\n", {"a; b; c;\n", "d;\n"}},
      {"over lines", "a\nb\n;\n", {"a\nb\n;\n"}},
      {"no line end at the end", "a;\nb;", {"a;\n", "b;"}},
      {"blanks after it", "a; \t\r\nb;\n", {"a; \t\r\n", "b;\n"}},
      {"comment after it delays", "a; -- c\nb;\n", {"a; -- c\nb;\n"}},
      {"semicolon in a comment", "a -- ;\nb;\n", {"a -- ;\nb;\n"}},
      {"string over lines", "x 'a;\nb''c;\n';\ny;\n", {"x 'a;\nb''c;\n';\n", "y;\n"}},
      {"other marks in a string", "x '\"[--/*`\\';\ny;\n", {"x '\"[--/*`\\';\n", "y;\n"}},
      {"apostrophe in a quoted name", "x \"'\" [']  `'`;\ny;\n", {"x \"'\" [']  `'`;\n", "y;\n"}},
      {"apostrophe in a comment",
       "x -- it's\n/* it's */;\ny;\n",
       {"x -- it's\n/* it's */;\n", "y;\n"}},
      {"trigger",
       "CREATE TEMP TRIGGER t BEGIN\na;\nEND x;\nEND;\ny;\n",
       {"CREATE TEMP TRIGGER t BEGIN\na;\nEND x;\nEND;\n", "y;\n"}},
      {"no trigger", "CREATE TABLE trigger(end);\ny;\n", {"CREATE TABLE trigger(end);\n", "y;\n"}},
      {"go and slash",
       "a\nGo\r\nb\n/ \nc 'x\ngo\n';\n",
       {"a\n; \r\n", "b\n; \n", "c 'x\ngo\n';\n"}},
      {"shell command", "a;\n.exit\nb\n.c;\n", {"a;\n", "!.exit\n", "b\n.c;\n"}},
      {"odd apostrophe", "a;\nb ';\nc;\nd;\n", {"a;\n", "?b ';\nc;\nd;\n"}},
      {"incomplete", "a;\nb", {"a;\n", "?b"}},
      {"bytes from 0x80 and 0x1A",
       "x '\x81\x5C\xB0\x60\x1A';\ny;\n",
       {"x '\x81\x5C\xB0\x60\x1A';\n", "y;\n"}},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.name);
    EXPECT_EQ(Batches(expected.script), expected.batches);
    EXPECT_EQ(Batches(expected.script, 1), expected.batches);
  }
}

TEST(ScriptReader, KeepsBatchesWholeWhereTheBufferEnds) {
  std::string script;
  std::vector<std::string> expected;
  for (int i = 0; i < 60; ++i) {
    const std::size_t length = i == 30 ? 1'000'000 : 9'973 + static_cast<std::size_t>(i);
    std::string line = "x '';\n";
    line.insert(3, length, static_cast<char>('a' + i % 26));
    expected.push_back(line);
    script += expected.back();
  }
  EXPECT_EQ(Batches(script), expected);
  EXPECT_EQ(Batches(script, 5'000), expected);
}

TEST(ScriptReader, FailsWhenTheScriptCannotBeReadOn) {
  const ReadFunction broken = [](std::span<char>) { return std::nullopt; };
  EXPECT_THROW(std::ignore = ScriptReader(broken).Next(), StreamFailure);
}

}  // namespace
}  // namespace lexmill::platform::sqlite
