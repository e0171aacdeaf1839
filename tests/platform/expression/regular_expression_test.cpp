// SPDX-License-Identifier: MIT
#include "platform/expression/regular_expression.h"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <tuple>
#include <vector>

#include "platform/failure.h"
#include "platform/text/text.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using std::string_view_literals::operator""sv;
using test::Readable;

RegExp Expression(std::u16string_view pattern) {
  RegExp expression;
  expression.Pattern(pattern);
  return expression;
}

struct MatchCase {
  std::u16string_view pattern;
  std::u16string_view text;
  bool matches;
};

void ExpectMatches(std::span<const MatchCase> cases) {
  for (const MatchCase& row : cases) {
    SCOPED_TRACE(Readable(row.pattern) + " on " + Readable(row.text));
    EXPECT_EQ(Expression(row.pattern).Test(row.text), row.matches);
  }
}

TEST(RegExp, TakesEachUnitAsOneCharacter) {
  static constexpr MatchCase kCases[] = {
      {u"", u"", true},
      {u"a", u"A", false},
      {u"a.b", u"a\rb", true},
      {u"a.b", u"a\u2028b", true},
      {u"a.b", u"a\0b"sv, true},
      {u"a.b", u"a\u0085b"sv, true},
      {u"a.b", u"a\nb", false},
      {u"a[^x]b", u"a\nb", true},
      {u"^a$", u"a\n", false},
      {u"^a$", u"b\na", false},
      {u"^..$", u"\U0001F600", true},
      {u"^.$", u"\U0001F600", false},
      {uR"([\u007F-\uFFFF])", u"\u007E", false},
      {uR"([\u007F-\uFFFF])", u"\u007F", true},
      {uR"([\u007F-\uFFFF])", u"中", true},
      {uR"([\u007F-\uFFFF])", u"\uFFFF", true},
      {uR"([\u007F-\uFFFF])", u"\xD83D", true},
      {uR"(^\d$)", u"１", false},
      {uR"(^\w$)", u"é", false},
      {uR"(^\w$)", u"中", false},
      {uR"(^\s{6}$)", u" \f\n\r\t\v", true},
      {uR"(\s)", u"\u0085\u00A0\u2028\u3000", false},
      {uR"(^\S\D\W$)", u"\u00A0１é", true},
      {uR"(\bé\b)", u"é", false},
  };
  ExpectMatches(kCases);
}

TEST(RegExp, KnowsThePublishedGrammar) {
  static constexpr MatchCase kCases[] = {
      {u"^(?:a|b)+?c??$", u"abab", true},
      {u"a(?=b)", u"ac", false},
      {u"a(?!b)", u"ac", true},
      {u"^a{2}b{1,}c{0,2}?$", u"aabbbcc", true},
      {u"^a{2}$", u"a{2}", false},
      {u"^a{,2}b{xc{1]}$", u"a{,2}b{xc{1]}", true},
      {u"^[]a]+$", u"a]", true},
      {u"^[^]a]$", u"b", true},
      {u"^[a-]+$", u"a-", true},
      {uR"(^[\w-.]+$)", u"a-.", true},
      {uR"(^[\w-.]$)", u",", false},
      {uR"(^[\t-\r]$)", u"\v", true},
      {uR"(^\x41\u0042\cA\0\12$)", u"AB\1\0\n"sv, true},
      {uR"(^\x4\u12\c1$)", u"x4u12c1", true},
      {uR"(^\101\477\8$)",
       u"A\0477"
       u"8",
       true},
      {uR"(^\f\n\r\t\v$)", u"\f\n\r\t\v", true},
      {uR"(^\v$)", u"\n", false},
      {uR"(^[\b]\b$)", u"\b", false},
      {uR"(^[\b]a\b$)", u"\ba", true},
      {uR"(^(a)\1$)", u"aa", true},
      {uR"(^(?:a)\1$)", u"a\1", true},
      {uR"(^(a)\10$)", u"aa0", true},
      {uR"(^(a)\2$)", u"a\2", true},
      {uR"(^\1(a)$)", u"\1a", true},
      {uR"(^(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)\11$)", u"abcdefghijkk", true},
      {uR"(^(?:(a)|b)\1$)", u"b", true},
      {uR"(^\-\/\&\<\>\_$)", u"-/&<>_", true},
  };
  ExpectMatches(kCases);
}

TEST(RegExp, GivesNoMeaningToWhatOnlyTheLibraryKnows) {
  for (const char16_t letter : u"aeghijklmopqyzACEFGHIJKLMNOPQRTUVXYZ"sv) {
    const std::u16string escape = {u'\\', letter};
    SCOPED_TRACE(Readable(escape));
    EXPECT_TRUE(Expression(u"^" + escape + u"$").Test({&letter, 1}));
    EXPECT_TRUE(Expression(u"^[" + escape + u"]$").Test({&letter, 1}));
  }
  static constexpr MatchCase kCases[] = {
      {u"^[[:alpha:]]$", u":]", true}, {u"^[[:alpha:]]$", u"b", false},
      {u"^[[.a.]]$", u".]", true},     {u"^[:a:][=a=]$", u":=", true},
      {uR"(^\Qa*\E$)", u"QaaE", true}, {uR"(^\p{2}$)", u"pp", true},
      {uR"(^\g{1}$)", u"g", true},     {uR"(^[\B]$)", u"B", true},
      {u"^a b#c$", u"a b#c", true},    {uR"(^a{2, 3}$)", u"a{2, 3}", true},
  };
  ExpectMatches(kCases);
}

TEST(RegExp, RefusesABadPatternWithItsNumberAtTheFirstUse) {
  struct Row {
    std::u16string_view patterns;  ///< divided by blanks
    FailureNumber number;
  };
  static constexpr Row kRows[] = {
      {uR"() a) (a)) \ a\ [\ a{2,1} a{99999})", FailureNumber::ExpressionSyntax},
      {u"+ *a ? a** (*a) (*UTF)a a|* {1} a{1}{2} a*+ a+?? ^* $+ (?<=a) (?<n>a) (?i)a (?>a) (?#a) "
       u"(?",
       FailureNumber::UnexpectedQuantifier},
      {uR"(\b+ (+))", FailureNumber::UnexpectedQuantifier},
      {u"[ [a [] [^] [^ [a- []-", FailureNumber::ExpectedBracket},
      {u"( (a ((a) (?: a|(", FailureNumber::ExpectedParenthesis},
      {uR"([b-a] [a-\d] [\x42-A])", FailureNumber::InvalidRange},
  };
  for (const Row& row : kRows) {
    for (const std::u16string_view pattern : Split(row.patterns, u' ')) {
      SCOPED_TRACE(Readable(pattern));
      const RegExp expression = Expression(pattern);
      for (int use = 0; use < 2; ++use) {
        try {
          std::ignore = expression.Test(u"a");
          ADD_FAILURE() << "accepted";
        } catch (const Failure& failure) {
          EXPECT_EQ(failure.Number(), static_cast<std::int32_t>(row.number));
        }
      }
    }
  }
}

TEST(RegExp, KeepsAnyNumberOfPatternsApart) {
  RegExp expression;
  for (int round = 0; round < 2; ++round) {
    for (char16_t unit = u'\u4E00'; unit < u'\u4E00' + 100; ++unit) {
      const std::u16string other(1, static_cast<char16_t>(unit + 1));
      expression.Pattern({&unit, 1});
      ASSERT_TRUE(expression.Test({&unit, 1}));
      ASSERT_FALSE(expression.Test(other));
    }
  }
  EXPECT_EQ(Readable(expression.Pattern()), Readable(u"\u4E63"));
}

TEST(RegExp, GivesGroupsAsViewsOfTheText) {
  const std::u16string_view text = u"xby";
  const RegExp expression = Expression(u"(a)|(b)(c*)");
  const auto groups = expression.Execute(text);
  ASSERT_EQ(groups.size(), 4U);
  EXPECT_EQ(groups[0].data(), text.data() + 1);
  EXPECT_EQ(Readable(groups[2]), "b");
  EXPECT_TRUE(groups[1].empty());
  EXPECT_TRUE(groups[3].empty());
  EXPECT_TRUE(expression.Execute(u"xyz").empty());
}

TEST(RegExp, ExpandsReplacements) {
  struct Row {
    std::u16string_view pattern;
    std::u16string_view text;
    std::u16string_view replacement;
    std::u16string_view expected;
  };
  static constexpr std::u16string_view kEleven = u"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)";
  static constexpr Row kRows[] = {
      {u"(a)", u"xax", u"[$1]", u"x[a]x"},
      {u"(a)", u"xax", u"[$2]", u"x[$2]x"},
      {u"(a)", u"xax", u"[$10]", u"x[a0]x"},
      {u"(a)", u"xax", u"[$01]", u"x[a]x"},
      {u"(a)", u"xax", u"[$$1]", u"x[$1]x"},
      {u"(a)", u"xay", u"[$&$`$']", u"x[axy]y"},
      {u"(a)", u"xax", u"[$x$+$_${1}$0$00$", u"x[$x$+$_${1}$0$00$x"},
      {u"(a)", u"xax", uR"(\1\n)", uR"(x\1\nx)"},
      {u"(a)|(b)", u"b", u"[$1|$2]", u"[|b]"},
      {kEleven, u"abcdefghijk", u"$11$2$12", u"kba2"},
      {u"a", u"aaa", u"b", u"baa"},
      {u"", u"ab", u"x", u"xab"},
      {u"c", u"ab", u"x", u"ab"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(Readable(row.pattern) + " by " + Readable(row.replacement));
    EXPECT_EQ(Readable(Expression(row.pattern).Replace(row.text, row.replacement)),
              Readable(row.expected));
  }
}

TEST(RegExp, LeavesTheBufferAloneWithoutAMatch) {
  std::u16string buffer = u"before";
  EXPECT_FALSE(Expression(u"c").ReplaceInto(u"ab", u"x", buffer));
  EXPECT_EQ(Readable(buffer), "before");
  EXPECT_TRUE(Expression(u"b").ReplaceInto(u"abc", u"x", buffer));
  EXPECT_EQ(Readable(buffer), "axc");
}

constexpr std::size_t kLong = 5'000'000;

/// Sizes of the groups 1 and up; empty if there is no match.
std::vector<std::size_t> GroupSizes(std::u16string_view pattern, std::u16string_view text) {
  const RegExp expression = Expression(pattern);
  std::vector<std::size_t> sizes;
  for (const std::u16string_view group : expression.Execute(text)) {
    sizes.push_back(group.size());
  }
  return sizes.empty() ? sizes : std::vector(sizes.begin() + 1, sizes.end());
}

TEST(RegExp, MatchesTextsOfAnyLength) {
  using Sizes = std::vector<std::size_t>;
  const std::u16string letters(kLong, u'a');
  const std::u16string blanks(kLong, u' ');
  const std::u16string_view hotKey = u"^((?:&&|[^&])*)&([^&](?:&&|[^&])*)$";
  const std::u16string_view literalTab = uR"(^((?:\\\\|[^\\])+)(\\t(?:\\\\|[^\\])+)$)";
  const std::u16string_view bothBlanks = u"^( *)([^ ].*[^ ])( *)$";
  EXPECT_EQ(GroupSizes(hotKey, letters), Sizes{});
  EXPECT_EQ(GroupSizes(hotKey, letters + u"&" + letters), (Sizes{kLong, kLong}));
  EXPECT_EQ(GroupSizes(hotKey, letters + u"&a&" + letters), Sizes{});
  EXPECT_EQ(GroupSizes(literalTab, letters + u"\\t" + letters), (Sizes{kLong, kLong + 2}));
  EXPECT_EQ(GroupSizes(bothBlanks, blanks + letters + blanks), (Sizes{kLong, kLong, kLong}));
  EXPECT_EQ(GroupSizes(bothBlanks, blanks), Sizes{});
  EXPECT_EQ(GroupSizes(u"((?:a|b)*)ba", u"aba" + letters), Sizes{1});
  EXPECT_EQ(GroupSizes(uR"(^(?:\.{3}|(.*[^\.])\.{3})$)", letters + u"..."), Sizes{kLong});
  EXPECT_EQ(GroupSizes(u"^(.*[^:]):$", std::u16string(kLong, u':')), Sizes{});
}

TEST(RegExp, GivesUpOnEndlessBacktracking) {
  const std::u16string text = std::u16string(3000, u'a') + u"b";
  RegExp expression;
  for (const std::u16string_view pattern : {u"^(a+)+$", u"(a+)+$", u"^(?:a|a)*$"}) {
    SCOPED_TRACE(Readable(pattern));
    expression.Pattern(pattern);
    EXPECT_THROW(std::ignore = expression.Test(text), Failure);
    EXPECT_TRUE(expression.Test(u"aaa"));
  }
}

}  // namespace
}  // namespace lexmill::platform
