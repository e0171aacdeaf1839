// SPDX-License-Identifier: MIT
// Which entries are filled, with what, and how strings go to a dictionary and back.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "catalog/catalog_dictionary.h"
#include "catalog/catalog_fill.h"
#include "catalog/catalog_strings.h"
#include "tests/support/files.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using test::Readable;

TEST(CatalogStrings, GoToADictionaryAndBack) {
  struct Case {
    char16_t accelerator;
    std::u16string_view catalog;
    std::u16string_view dictionary;
  };
  const Case cases[] = {
      {u'&', u"&Open\n\tC:\\new\r", u"&Open\\n\\tC:\\\\new\\r"},
      {u'&', u"a && b_c", u"a && b_c"},
      {u'_', u"_Open & close", u"&Open && close"},
      {u'_', u"snake__case", u"snake_case"},
      {u'_', u"打开(_O)", u"打开(&O)"},
      {u'~', u"~a_&", u"&a_&&"},
  };
  for (const Case& row : cases) {
    std::u16string room;
    EXPECT_EQ(Readable(ToDictionary(row.catalog, row.accelerator, room)), Readable(row.dictionary));
    EXPECT_EQ(Readable(FromDictionary(row.dictionary, row.accelerator)), Readable(row.catalog));
  }
  EXPECT_EQ(Readable(FromDictionary(u"\\x \\", u'&')), "\\x \\");
}

TEST(CatalogStrings, TurnAnEndingThatBothSidesHave) {
  const std::vector<Ending> endings = {{u"...", u"…"}, {u":", u"："}};
  EXPECT_EQ(Readable(TurnEnding(u"a:", u"甲:", endings)), "甲：");
  EXPECT_EQ(Readable(TurnEnding(u"a...", u"甲...", endings)), "甲…");
  EXPECT_EQ(Readable(TurnEnding(u"a:", u"甲：", endings)), "甲：");
  EXPECT_EQ(Readable(TurnEnding(u"a", u"甲:", endings)), "甲:");
}

class CatalogFill : public testing::Test {
 protected:
  /// What becomes of an entry with the source "a": the target, "|", the comment, "|", the state and
  /// "?" for a mark; "-" if it stays.
  std::string Choose(EntryKind kind, EntryState state, std::u16string_view target = u"") {
    CatalogEntry entry;
    entry.source = u"a";
    entry.target = target;
    entry.kind = kind;
    entry.state = state;
    const auto filling = ChooseTarget(entry, u'&', options, translations, counts);
    return filling ? Readable(filling->target + u"|" + filling->comment + u"|" + filling->state) +
                         (filling->needsReview ? "?" : "")
                   : "-";
  }

  CatalogOptions options;
  Translations translations;
  FillCounts counts;
};

TEST_F(CatalogFill, FillsPlainOpenEntriesAndCountsTheOthers) {
  translations.Add(u"a", u"甲\\n");
  EXPECT_EQ(Choose(EntryKind::Plain, EntryState::Open), "甲\n||needs-review-translation?");
  EXPECT_EQ(Choose(EntryKind::Plural, EntryState::Open), "-");
  EXPECT_EQ(Choose(EntryKind::Plural, EntryState::Translated, u"b"), "-");
  EXPECT_EQ(Choose(EntryKind::Inline, EntryState::Open), "-");
  EXPECT_EQ(Choose(EntryKind::Fixed, EntryState::Open), "-");
  EXPECT_EQ(Choose(EntryKind::Plain, EntryState::Translated, u"b"), "-");
  EXPECT_EQ(Choose(EntryKind::Plain, EntryState::Marked, u"b"), "-");
  EXPECT_EQ(counts, (FillCounts{1, 0, {1, 1}}));
}

TEST_F(CatalogFill, TakesTheFirstOfSeveralAndListsAll) {
  translations.Add(u"a", u"返回");
  translations.Add(u"a", u"后退");
  translations.Add(u"a", u"返回");
  EXPECT_EQ(Choose(EntryKind::Plain, EntryState::Open),
            "返回|返回 | 后退|needs-review-translation?");
  options.skipSeveral = true;
  EXPECT_EQ(Choose(EntryKind::Plain, EntryState::Open), "-");
  EXPECT_EQ(counts, (FillCounts{1, 2, {}}));
}

TEST_F(CatalogFill, RefillsMarkedEntriesOnceOnly) {
  translations.Add(u"a", u"甲");
  translations.Add(u"a", u"乙");
  options.refillFuzzy = true;
  EXPECT_EQ(Choose(EntryKind::Plain, EntryState::Marked, u"b"),
            "甲|甲 | 乙|needs-review-translation?");
  EXPECT_EQ(Choose(EntryKind::Plain, EntryState::Marked, u"甲"), "-");
  options.trusted = true;
  EXPECT_EQ(Choose(EntryKind::Plain, EntryState::Marked, u"甲"), "甲||translated");
}

TEST_F(CatalogFill, LeavesEntriesOpenThatNothingOrAnEmptyStringTranslates) {
  EXPECT_EQ(Choose(EntryKind::Plain, EntryState::Open), "-");
  translations.Add(u"a", u"");
  EXPECT_EQ(Choose(EntryKind::Plain, EntryState::Open), "-");
  EXPECT_EQ(counts, FillCounts());
}

TEST(CatalogDictionary, GivesTheEntriesOfEachSide) {
  const test::TemporaryFolder folder;
  const std::u16string path = folder.File("c");
  test::WriteBytes(path,
                   "msgid \"\"\nmsgstr \"X-Accelerator-Marker: _\\n\"\n"
                   "msgid \"_Open\"\nmsgstr \"\"\n"
                   "msgid \"_Save\"\nmsgstr \"存(_S)\"\n"
                   "#, fuzzy\nmsgid \"m\"\nmsgstr \"n\"\n");
  const Catalog catalog = OpenCatalog(path, CatalogFormat::Po, {});
  std::string pairs;
  const OnPair onPair = [&](std::u16string_view source, std::u16string_view target) {
    pairs += Readable(source) + "=" + Readable(target) + ";";
  };
  CatalogOptions options;
  ReadUntranslated(catalog, options, onPair);
  ReadTranslated(catalog,
                 [&](std::u16string_view source, std::u16string_view target, std::int64_t line) {
                   pairs += std::to_string(line) + ":";
                   onPair(source, target);
                 });
  ReadAll(catalog, options, onPair);
  options.refillFuzzy = true;
  ReadUntranslated(catalog, options, onPair);
  EXPECT_EQ(pairs,
            "&Open=&Open;"
            "5:&Save=存(&S);"
            "&Open=&Open;&Save=存(&S);"
            "&Open=&Open;m=m;");
}

TEST(CatalogDictionary, TakesTranslationsFromEitherFormat) {
  const test::TemporaryFolder folder;
  const std::u16string path = folder.File("d");
  const auto found = [&](std::string_view bytes, modMain::DictionaryFormat format) {
    test::WriteBytes(path, bytes);
    DictionaryKind kind;
    kind.encoding = platform::TextEncoding::Utf8;
    kind.format = format;
    const Translations translations = ReadTranslations(path, kind);
    const auto* const targets = translations.Find(u"a");
    std::string all;
    for (const std::u16string& target :
         targets == nullptr ? std::vector<std::u16string>() : *targets) {
      all += Readable(target) + ";";
    }
    return all;
  };
  EXPECT_EQ(
      found("x\nb\tc\na\t甲\r\na\ta\na\tb\tc\na\t乙", modMain::DictionaryFormat::PassoloGlossary),
      "甲;乙;");
  EXPECT_EQ(found("t\n\n1:a\n甲\n\n2:a\na\n3:b", modMain::DictionaryFormat::DianjingText), "甲;");
}

TEST(CatalogDetection, GoesByTheContent) {
  const test::TemporaryFolder folder;
  const std::u16string path = folder.File("d");
  struct Case {
    const char* bytes;
    std::optional<CatalogFormat> format;
  };
  const Case cases[] = {
      {"# c\n\n  msgid \"a\"\n", CatalogFormat::Po},
      {"\xEF\xBB\xBFmsgctxt\"a\"\n", CatalogFormat::Po},
      {"#~ msgid \"a\"\n#~ msgstr \"b\"\n", CatalogFormat::Po},
      {"msgid\t\"a\n", CatalogFormat::Po},
      {"msgid\ta\n", std::nullopt},
      {"# c\n", std::nullopt},
      {"", std::nullopt},
      {"<?xml version=\"1.0\"?>\n<!DOCTYPE TS>\n<TS>", CatalogFormat::Ts},
      {"<x:xliff xmlns:x=\"u\">", CatalogFormat::Xliff},
      {"<tmx/>", CatalogFormat::Tmx},
      {"<html/>", std::nullopt},
      {"<a>\t<b>\n", std::nullopt},
  };
  for (const Case& row : cases) {
    test::WriteBytes(path, row.bytes);
    EXPECT_EQ(DetectCatalog(path), row.format) << row.bytes;
  }
  EXPECT_EQ(DetectCatalog(folder.File("none")), std::nullopt);
}

}  // namespace
}  // namespace lexmill
