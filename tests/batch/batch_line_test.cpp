// SPDX-License-Identifier: MIT
#include "platform/batch/batch_line.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/readable_text.h"

namespace lexmill::platform::batch {
namespace {

/// A line as read: `@` if silent, name and argument in brackets, then the redirections.
std::string Described(const BatchLine& line) {
  std::string result = line.isSilent ? "@[" : "[";
  result.append(test::Readable(line.name)).append("][").append(test::Readable(line.argument));
  result += "]";
  for (const auto& redirection : line.redirections) {
    result.append(redirection.isInput ? "<{" : ">{");
    result.append(test::Readable(redirection.path)).append("}");
  }
  return result + (line.isComplete ? "" : " incomplete");
}

TEST(BatchLine, ReadsCommandAndRedirections) {
  struct Case {
    const char16_t* line;
    const char* read;
  };
  constexpr Case kCases[] = {
      {u"", "[][]"},
      {u" \t@ @echo off", "@[echo][ off]"},
      {u"@", "@[][]"},
      {u"echo   two ", "[echo][   two ]"},
      {u"echo.", "[echo][.]"},
      {u"ECHO.a b", "[ECHO][.a b]"},
      {u"echoes.x y", "[echoes.x][ y]"},
      {u"my.echo.x", "[my.echo.x][]"},
      {u"sqlite a.db<b.sql", "[sqlite][ a.db]<{b.sql}"},
      {u"copy \"a\" b>nul", "[copy][ \"a\" b]>{nul}"},
      {u"p <in>out x", "[p][  x]<{in}>{out}"},
      {u"p \"a>b < c & d | e\"", "[p][ \"a>b < c & d | e\"]"},
      {u"p a & b | c^ %d% !e! (f)", "[p][ a & b | c^ %d% !e! (f)]"},
      {u"p>  \"a <> b\".txt q", "[p][ q]>{a <> b.txt}"},
      {u"<in p", "[p][]<{in}"},
      {u"p>a<b>c", "[p][]>{a}<{b}>{c}"},
      {u"\"a b\"c d", "[\"a b\"c][ d]"},
      {u"p \"open > x", "[p][ \"open > x]"},
      {u"p x>", "[p][ x]>{} incomplete"},
      {u"p>>x", "[p][]>{}>{x} incomplete"},
      {u"p<\"\"", "[p][]<{} incomplete"},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(test::Readable(row.line));
    EXPECT_EQ(Described(ReadBatchLine(row.line)), row.read);
  }
}

}  // namespace
}  // namespace lexmill::platform::batch
