// SPDX-License-Identifier: MIT
#include "glossary/text_rules.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <random>
#include <string>
#include <tuple>

#include "platform/failure.h"
#include "platform/text/text.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Readable;
using Rules = std::initializer_list<bool OptionSet::*>;

OptionSet Changed(OptionSet options, Rules rules, bool value) {
  for (bool OptionSet::*const rule : rules) {
    options.*rule = value;
  }
  return options;
}

OptionSet Only(Rules rules) {
  return Changed(MinimalPreset(), rules, true);
}

OptionSet All() {
  return FullPreset();
}

OptionSet AllBut(Rules rules) {
  return Changed(All(), rules, false);
}

std::string InBrackets(std::initializer_list<std::u16string_view> texts) {
  std::string result;
  for (const std::u16string_view text : texts) {
    result.append("[").append(Readable(text)).append("]");
  }
  return result;
}

/// The pair as "[source][target]", or "dropped".
std::string Purified(const OptionSet& options, std::u16string_view source,
                     std::u16string_view target) {
  platform::RegExp expression;
  ReferenceRules rules(options, expression);
  const auto pair = rules.PurifyReference(source, target);
  return pair ? InBrackets({pair->source, pair->target}) : "dropped";
}

std::string InBrackets(const DecomposedString& pieces) {
  return InBrackets({pieces.sh, pieces.sm, pieces.sk, pieces.st});
}

/// The pieces as "[head][main text][hot key][tail]", or "dropped".
std::string Decomposed(const OptionSet& options, std::u16string_view source,
                       std::u16string_view target) {
  platform::RegExp expression;
  UntranslatedRules rules(options, expression);
  const auto pieces = rules.DecomposeUntranslated(source, target);
  return pieces ? InBrackets(*pieces) : "dropped";
}

struct ReferenceCase {
  const char* name;
  OptionSet options;
  std::u16string_view source;
  std::u16string_view target;
  const char* expected;
};

void ExpectPurified(std::initializer_list<ReferenceCase> cases) {
  for (const ReferenceCase& row : cases) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Purified(row.options, row.source, row.target), row.expected);
  }
}

TEST(ReferenceRules, KeepTranslatedEntriesWithinTheLimit) {
  OptionSet limited = All();
  limited.txtLenLimit = 50;
  const std::u16string atLimit(50, u'a');
  const std::u16string above(51, u'a');
  ExpectPurified({
      {"equal", All(), u"Open", u"Open", "dropped"},
      {"both empty", All(), u"", u"", "dropped"},
      {"case counts", All(), u"Open", u"open", "[Open][open]"},
      {"equal only after the rules", All(), u"&Open", u"Open", "[Open][Open]"},
      {"no target", All(), u"Open", u"", "[Open][]"},
      {"no source", All(), u"", u"打开", "[][打开]"},
      {"source at the limit", limited, atLimit, u"", InBrackets({atLimit, u""}).c_str()},
      {"source above the limit", limited, above, u"", "dropped"},
      {"target above the limit", limited, u"a", above, InBrackets({u"a", above}).c_str()},
      {"above before the rules", limited, u"&" + atLimit, u"", "dropped"},
  });
}

TEST(ReferenceRules, CutAtTheOneLiteralTab) {
  ExpectPurified({
      {"both sides", All(), uR"(Open\tCtrl+O)", uR"(打开\tCtrl+O)", "[Open][打开]"},
      {"two", All(), uR"(A\tB\tC)", uR"(A\t)", R"([A\tB\tC][A\t])"},
      {"at the start", All(), uR"(\tB)", uR"(\t)", R"([\tB][\t])"},
      {"escaped backslash", All(), uR"(A\\tB)", uR"(A\\\tB)", R"([A\\tB][A\\])"},
      {"lone backslash", All(), uR"(A\nB\tC)", uR"(A\tB\)", R"([A\nB\tC][A\tB\])"},
      {"pair after it", All(), uR"(A\tB\\C)", u"", "[A][]"},
      {"a tab itself", All(), u"A\tB", u"", "[A\tB][]"},
      {"off", AllBut({&OptionSet::chkaMTab}), uR"(A\tB)", uR"(B\tC)", R"([A\tB][B\tC])"},
  });
}

TEST(ReferenceRules, TakeTheSourcesLoneAmpersandOut) {
  ExpectPurified({
      {"at the start", All(), u"&Open", u"", "[Open][]"},
      {"inside", All(), u"Save &as", u"", "[Save as][]"},
      {"before a blank", All(), u"Save & Exit", u"Save & Exit ", "[Save  Exit][Save & Exit]"},
      {"doubled stays", All(), u"a&&b", u"", "[a&&b][]"},
      {"beside doubled", All(), u"a&&&b", u"", "[a&&b][]"},
      {"two", All(), u"&a&b", u"", "[&a&b][]"},
      {"at the end", All(), u"Open&", u"", "[Open&][]"},
      {"alone", All(), u"&", u"&&", "[&][&&]"},
      {"off", AllBut({&OptionSet::chkaAndX}), u"&Open", u"打&开(&O)", "[&Open][打&开(&O)]"},
  });
}

TEST(ReferenceRules, TakeTheTargetsHotKeyOut) {
  const auto noFullWidth = AllBut({&OptionSet::chkrAndXEER});
  OptionSet capturing = All();
  capturing.txtrAndXBK1 = uR"((\())";
  OptionSet alternative = All();
  alternative.txtrAndXBK1 = u"x|";
  alternative.txtrAndXBK2 = u"";
  OptionSet swallowing = All();
  swallowing.txtrAndXBK1 = u"(?:(?:";
  swallowing.txtrAndXBK2 = u"[";
  OptionSet noBrackets = All();
  noBrackets.txtrAndXBK1 = noBrackets.txtrAndXBK2 = u"";
  ExpectPurified({
      {"in brackets", All(), u"o", u"打开(&O)", "[o][打开]"},
      {"before dots", All(), u"o", u"打开(&O)...", "[o][打开]"},
      {"any bracket", All(), u"o", u"打[&开}了", "[o][打了]"},
      {"blank in brackets", All(), u"o", u"打开(& )", "[o][打开(& )]"},
      {"two hot keys", All(), u"o", u"打(&O)开(&P)", "[o][打(&O)开(&P)]"},
      {"letter without brackets", All(), u"o", u"打&O开", "[o][打&O开]"},
      {"before full width", All(), u"o", u"打&开", "[o][打开]"},
      {"before U+007F", All(), u"o", u"a&\u007Fb",
       "[o][a\x7F"
       "b]"},
      {"before U+007E", All(), u"o", u"a&~b", "[o][a&~b]"},
      {"full width off", noFullWidth, u"o", u"打&开", "[o][打&开]"},
      {"no brackets wanted", noBrackets, u"o", u"打&O开", "[o][打开]"},
      {"a hot key of two units", All(), u"o", u"打(&𠀀)开", "[o][打开]"},
      {"the same without brackets", noBrackets, u"o", u"打&𠀀开", "[o][打开]"},
      {"a capturing bracket moves the groups", capturing, u"o", u"打(&O)开", "[o][打(]"},
      {"a bracket that swallows a group", swallowing, u"o", u"打&O(", "[o][打$2]"},
      {"only the match is replaced", alternative, u"o", u"打&O开", "[o][打开]"},
      {"source is not concerned", All(), u"Open(&O)", u"", "[Open(O)][]"},
  });
}

TEST(ReferenceRules, TrimBlanksAndNothingElse) {
  const auto left = Only({&OptionSet::chkaLTrimSpace});
  const auto right = Only({&OptionSet::chkaRTrimSpace});
  ExpectPurified({
      {"both", All(), u"  a b  ", u" ", "[a b][]"},
      {"left", left, u"  a  ", u" b ", "[a  ][b ]"},
      {"right", right, u"  a  ", u" b ", "[  a][ b]"},
      {"none", MinimalPreset(), u" a ", u" b ", "[ a ][ b ]"},
      {"other white space", All(), u"\ta\u00A0", u"\u3000b\r",
       "[\ta\u00A0][\u3000"
       "b\r]"},
      {"bared by the literal tab", All(), uR"(a \tb)", u"", "[a][]"},
      {"bared by punctuation", All(), u"Open ...", u"打开 ：", "[Open ][打开 ]"},
  });
}

TEST(ReferenceRules, StripFinalPunctuationByTheFirstMarkHeld) {
  const auto noColon = AllBut({&OptionSet::chkaBanMaoHao});
  const auto noWideColon = AllBut({&OptionSet::chkrQuanMaoHao});
  ExpectPurified({
      {"colon", All(), u"Name:", u"名称:", "[Name][名称]"},
      {"two colons", All(), u"Name::", u":", "[Name::][:]"},
      {"dots", All(), u"Open...", u"打开...", "[Open][打开]"},
      {"dots alone", All(), u"...", u" ... ", "[][]"},
      {"four dots", All(), u"Open....", u"....", "[Open....][....]"},
      {"dots inside", All(), u"a...b", u"..", "[a...b][..]"},
      {"a colon inside keeps the dots", All(), u"Note: wait...", u"注: 等...",
       "[Note: wait...][注: 等...]"},
      {"also when colons are off", noColon, u"Note: wait...", u"注: 等：",
       "[Note: wait...][注: 等：]"},
      {"wide marks of a source stay", All(), u"名称：", u"", "[名称：][]"},
      {"wide colon", All(), u"n", u"名称：", "[n][名称]"},
      {"two wide colons", All(), u"n", u"名称：：", "[n][名称：：]"},
      {"dots inside keep the wide colon", All(), u"n", u"等...了：", "[n][等...了：]"},
      {"two dots do not", All(), u"n", u"等..了：", "[n][等..了]"},
      {"one ellipsis", All(), u"n", u"打开…", "[n][打开]"},
      {"two ellipses", All(), u"n", u"打开……", "[n][打开]"},
      {"three ellipses", All(), u"n", u"打开………", "[n][打开………]"},
      {"ellipsis alone", All(), u"n", u"…", "[n][…]"},
      {"wide colon inside keeps the ellipsis", noWideColon, u"n", u"注：等…", "[n][注：等…]"},
      {"a line end inside", All(), u"a\nb:", u"", "[a\nb:][]"},
      {"off", MinimalPreset(), u"Name:", u"名称…", "[Name:][名称…]"},
  });
}

TEST(ReferenceRules, RaiseABadFragmentWhenATargetNeedsIt) {
  OptionSet options = All();
  options.txtrAndXBK1 = u"(";
  platform::RegExp expression;
  ReferenceRules rules(options, expression);
  EXPECT_TRUE(rules.PurifyReference(u"&Open", u"打开").has_value());
  EXPECT_THROW(std::ignore = rules.PurifyReference(u"&Open", u"打开(&O)"), platform::Failure);
  EXPECT_TRUE(rules.PurifyReference(u"&Open", u"打开").has_value());
}

struct UntranslatedCase {
  const char* name;
  OptionSet options;
  std::u16string_view text;
  const char* expected;
};

void ExpectDecomposed(std::initializer_list<UntranslatedCase> cases) {
  for (const UntranslatedCase& row : cases) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Decomposed(row.options, row.text, row.text), row.expected);
  }
}

TEST(UntranslatedRules, KeepUntranslatedEntriesWithinTheLimit) {
  OptionSet limited = All();
  limited.txtLenLimit = 3;
  EXPECT_EQ(Decomposed(All(), u"Open", u"打开"), "dropped");
  EXPECT_EQ(Decomposed(All(), u"Open", u"open"), "dropped");
  EXPECT_EQ(Decomposed(limited, u"打开了", u"打开了"), "[][打开了][][]");
  EXPECT_EQ(Decomposed(limited, u"&abc", u"&abc"), "dropped");
  EXPECT_EQ(Decomposed(All(), u"", u""), "[][][][]");
}

TEST(UntranslatedRules, SetEachDecorationAside) {
  OptionSet upper = All();
  upper.chkaUpperCase = true;
  OptionSet otherBrackets = All();
  otherBrackets.txttAndXBK1 = u" $1[";
  otherBrackets.txttAndXBK2 = u"]\\";
  ExpectDecomposed({
      {"all at once", All(), uR"(  &Open...\tCtrl+O)", R"([  ][Open][(&O)][...\tCtrl+O])"},
      {"all in upper case", upper, uR"(  &Open...\tCtrl+O)", R"([  ][OPEN][(&O)][...\tCtrl+O])"},
      {"tail from left to right", All(), uR"(Open:  \tCtrl+O)", R"([][Open][][:  \tCtrl+O])"},
      {"hot key in upper case", All(), u"&open", "[][open][(&O)][]"},
      {"hot key of two units", All(), u"a&😀b", "[][a😀b][(&😀)][]"},
      {"hot key of its own case", All(), u"打&开", "[][打开][(&开)][]"},
      {"upper case of the main text only", upper, u"é&x: ", "[][ÉX][(&X)][: ]"},
      {"brackets as they are", otherBrackets, u"&a", R"([][a][ $1[&A]\][])"},
      {"no rules", MinimalPreset(), uR"( &a: \tb)", R"([][ &a: \tb][][])"},
  });
}

TEST(UntranslatedRules, ReportTheStringAfterEachRule) {
  struct {
    const char* name;
    OptionSet options;
    std::u16string_view text;
    const char* expected;
  } const cases[] = {
      {"all at work", Changed(All(), {&OptionSet::chkaUpperCase}, true), uR"( &Open: \tF3)",
       R"([ &Open: ][ Open: ][Open:][Open][OPEN] = [ ][OPEN][(&O)][: \tF3])"},
      {"some off", Only({&OptionSet::chkaAndX}), u"&Open:",
       "[&Open:][Open:][Open:][Open:][Open:] = [][Open:][(&O)][]"},
      {"a string of blanks", All(), u"  ", "[  ][  ][  ][  ][  ] = [][  ][][]"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    platform::RegExp expression;
    UntranslatedRules rules(row.options, expression);
    std::string steps;
    const auto pieces =
        rules.WalkThrough(row.text, [&](const RuleTitle& /*rule*/, const DecomposedString& after) {
          steps += InBrackets({after.sm});
        });
    ASSERT_TRUE(pieces);
    EXPECT_EQ(steps + " = " + InBrackets(*pieces), row.expected);
  }
}

TEST(UntranslatedRules, LeaveHotKeysThatAreNone) {
  ExpectDecomposed({
      {"before a blank", All(), u"Save & Exit", "[][Save & Exit][][]"},
      {"doubled", All(), u"&&Save", "[][&&Save][][]"},
      {"beside doubled", All(), u"&&&Save", "[][&&Save][(&S)][]"},
      {"two", All(), u"&a&b", "[][&a&b][][]"},
      {"at the end", All(), u"Save&", "[][Save&][][]"},
      {"after the literal tab", All(), uR"(Save\t&S)", R"([][Save][][\t&S])"},
      {"off", AllBut({&OptionSet::chkaAndX}), u"&Save", "[][&Save][][]"},
  });
}

TEST(UntranslatedRules, SetBlanksAsideByTheBranchOfTheOptions) {
  const auto left = Only({&OptionSet::chkaLTrimSpace});
  const auto right = Only({&OptionSet::chkaRTrimSpace});
  ExpectDecomposed({
      {"both", All(), u"  a b ", "[  ][a b][][ ]"},
      {"both, leading only", All(), u" ab", "[ ][ab][][]"},
      {"both, trailing only", All(), u"ab ", "[][ab][][ ]"},
      {"both, one character", All(), u" a ", "[][ a ][][]"},
      {"left, one character", left, u" a ", "[ ][a ][][]"},
      {"right, one character", right, u" a ", "[][ a][][ ]"},
      {"both, blanks only", All(), u"  ", "[][  ][][]"},
      {"left, blanks only", left, u"  ", "[][  ][][]"},
      {"right, blanks only", right, u"  ", "[][  ][][]"},
      {"line end inside", All(), u" ab\ncd ", "[][ ab\ncd ][][]"},
      {"line end at the edge", All(), u" ab\n ", "[ ][ab\n][][ ]"},
      {"other white space", All(), u"\ta\u3000", "[][\ta\u3000][][]"},
      {"none", AllBut({&OptionSet::chkaLTrimSpace, &OptionSet::chkaRTrimSpace}), u" a: ",
       "[][ a: ][][]"},
  });
}

TEST(UntranslatedRules, SetPunctuationAsideByTheFirstMarkHeld) {
  const auto noColon = AllBut({&OptionSet::chkaBanMaoHao});
  ExpectDecomposed({
      {"colon", All(), u"Name:", "[][Name][][:]"},
      {"two colons", All(), u"Name::", "[][Name::][][]"},
      {"dots", All(), u"Wait...", "[][Wait][][...]"},
      {"dots alone", All(), u"...", "[][][][...]"},
      {"dots alone after blanks", All(), u"  ...", "[  ][][][...]"},
      {"four dots", All(), u"Wait....", "[][Wait....][][]"},
      {"a colon inside keeps the dots", All(), u"Note: wait...", "[][Note: wait...][][]"},
      {"also when colons are off", noColon, u"Note: wait...", "[][Note: wait...][][]"},
      {"blank before the dots stays", All(), u"Wait ...", "[][Wait ][][...]"},
      {"wide marks stay", All(), u"名称：", "[][名称：][][]"},
      {"ellipsis stays", All(), u"打开…", "[][打开…][][]"},
  });
}

/// The string that `pieces` were taken from: head, main text and tail, with the ampersand put back
/// before some unit that the hot key is the capital of.
bool MayComeFrom(const DecomposedString& pieces, std::u16string_view text) {
  std::u16string bare(pieces.sh);
  bare.append(pieces.sm).append(pieces.st);
  if (pieces.sk.empty()) {
    return bare == text;
  }
  for (std::size_t i = 0; i < bare.size(); ++i) {
    std::u16string whole(bare, 0, i);
    whole.append(1, u'&').append(bare, i);
    if (whole == text && platform::UpperCase(bare[i]) == pieces.sk[2]) {
      return true;
    }
  }
  return false;
}

TEST(UntranslatedRules, LoseNothingOfAString) {
  constexpr std::u16string_view kUnits = u"&& .:\\tab打…：\n";
  std::mt19937 random(20260801);  // NOLINT: the same strings at each run
  platform::RegExp expression;
  for (int i = 0; i < 50'000; ++i) {
    OptionSet options = All();
    options.chkaMTab = random() % 4 != 0;
    options.chkaLTrimSpace = random() % 3 != 0;
    options.chkaRTrimSpace = random() % 3 != 0;
    UntranslatedRules rules(options, expression);
    std::u16string text(random() % 14, u' ');
    for (char16_t& unit : text) {
      unit = kUnits[random() % kUnits.size()];
    }
    const auto pieces = rules.DecomposeUntranslated(text, text);
    ASSERT_TRUE(pieces && MayComeFrom(*pieces, text)) << Readable(text) << InBrackets(*pieces);
  }
}

}  // namespace
}  // namespace lexmill
