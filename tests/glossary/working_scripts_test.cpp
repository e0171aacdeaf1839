// SPDX-License-Identifier: MIT
#include "glossary/working_scripts.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Readable;

TEST(WorkingScripts, QuotesEachValueOfARow) {
  struct Case {
    std::u16string_view r1;
    std::u16string_view r2;
    const char* statement;
  };
  // One buffer for all rows, a long row before short ones: nothing of it may be left.
  const Case cases[] = {
      {u"a value of some length", u"另一个值", "('a value of some length','另一个值');"},
      {u"", u"", "('','');"},
      {u"'", u"''", "('''','''''');"},
      {u"'tis", u"don't 'do'", "('''tis','don''t ''do''');"},
      {u"ends in \\", u"\\'", "('ends in \\','\\''');"},
      {u"a\tb", u"\"&x;\" --", "('a\tb','\"&x;\" --');"},
  };
  std::u16string statement;
  for (const Case& row : cases) {
    SetRowOfR(statement, row.r1, row.r2);
    EXPECT_EQ(Readable(statement), std::string("INSERT INTO R VALUES ") + row.statement);
  }
}

TEST(WorkingScripts, PutEachValueInItsPlace) {
  std::u16string statement = u"left over";
  SetRowOfS(statement, {.so = u"'o", .sh = u"'h", .sm = u"'m", .sk = u"'k", .st = u"'t"});
  EXPECT_EQ(Readable(statement), "INSERT INTO S VALUES ('''o','''h','''m','''k','''t');");
  SetRowOfO(statement, u"1:'s", u"'s", u"'t");
  EXPECT_EQ(Readable(statement), "INSERT INTO O VALUES ('1:''s','''s','''t');");
  SetUpdateOfO(statement, u"'value", u"key'");
  EXPECT_EQ(Readable(statement), "UPDATE O SET o2='''value' WHERE o1='key''';");
}

}  // namespace
}  // namespace lexmill
