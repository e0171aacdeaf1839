// SPDX-License-Identifier: MIT
// PO files: what is read of them, and what they look like when they have been filled.
#include <filesystem>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "tests/catalog/filled_catalog.h"

namespace lexmill {
namespace {

using test::CatalogWorld;

const std::string kHeader = "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n";

CatalogWorld Po(std::string_view bytes) {
  return {CatalogFormat::Po, bytes};
}

TEST(Po, ReadsWhatEachEntryIs) {
  struct Case {
    const char* name;
    std::string bytes;
    std::string entries;
  };
  const Case cases[] = {
      {"a header", kHeader, "FT ||Content-Type: text/plain; charset=UTF-8\n\n"},
      {"strings in pieces, escapes",
       "msgctxt \"m\" \"n\"\nmsgid \"\"\n\"a\\t\\\"\"\n \"\\\\\\x41\\101\"\nmsgstr \"x\"\n",
       "PT mn|a\t\"\\AA|x\n"},
      {"flags",
       "#, c-format, fuzzy\nmsgid \"a\"\nmsgstr \"b\"\n#, fuzzy\nmsgid \"c\"\nmsgstr \"\"\n",
       "PM |a|b\nPO |c|\n"},
      {"forms", "msgid \"a\"\nmsgid_plural \"b\"\nmsgstr[0] \"c\"\nmsgstr[1] \"d\"\n", "NT |a|c\n"},
      {"what is obsolete, with its comments",
       "#, fuzzy\n#~ msgid \"a\"\n#~ msgstr \"b\"\nmsgid \"c\"\nmsgstr \"d\"\n", "PT |c|d\n"},
      {"entries on one line, a domain, a comment at the end",
       "domain \"d\" msgid \"a\" msgstr \"b\" msgid \"c\" msgstr \"\" # end", "PT |a|b\nPO |c|\n"},
      {"another charset",
       "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=GBK\\n\"\nmsgid \"\xD6\x5C\"\n"
       "msgstr \"\"\n",
       "FT ||Content-Type: text/plain; charset=GBK\n\nPO |謀|\n"},
      {"CR LF and a mark", "\xEF\xBB\xBFmsgid \"a\"\r\nmsgstr \"b\"\r\n", "PT |a|b\n"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(Po(row.bytes).Entries(), row.entries) << row.name;
  }
}

TEST(Po, IsFilledInTheLayoutOfItsSource) {
  const std::string wrapped =
      "msgid \"\"\n\"A paragraph that goes on for longer than one line has room for it, so \"\n"
      "\"that it was wrapped.\"\nmsgstr ";
  struct Case {
    const char* name;
    std::string before;
    std::u16string target;
    std::string after;  // of msgstr
  };
  const Case cases[] = {
      {"one line", "msgid \"\\tA\\n\"\nmsgstr ", u"\t\"甲\"\\\n", "\"\\t\\\"甲\\\"\\\\\\n\""},
      {"lines", "msgid \"\"\n\"a\\n\"\n\"b\"\nmsgstr ", u"甲\n乙", "\"\"\n\"甲\\n\"\n\"乙\""},
      {"CR LF", "msgid \"\"\r\n\"a\\n\"\r\n\"b\"\r\nmsgstr ", u"甲\n乙",
       "\"\"\r\n\"甲\\n\"\r\n\"乙\""},
      {"a short text for a wrapped one", wrapped, u"短", "\"短\""},
      {"a long text for a wrapped one", wrapped,
       u"一二三四五六七八九十一二三四五六七八九十一二三四五六七八九十一二三四五六七八九十。",
       "\"\"\n\"一二三四五六七八九十一二三四五六七八九十一二三四五六七八九十一二三四五六七八\"\n"
       "\"九十。\""},
  };
  for (const Case& row : cases) {
    const auto world = Po(kHeader + row.before + "\"\"\n");
    const auto fill = [&](const CatalogEntry& entry) {
      return entry.kind == EntryKind::Plain ? std::optional(Filling{row.target, u"", u"", false})
                                            : std::nullopt;
    };
    EXPECT_EQ(world.FilledBy(fill), kHeader + row.before + row.after + "\n") << row.name;
  }
}

TEST(Po, HasMarksAndCommentsInTheirPlaces) {
  struct Case {
    const char* name;
    Filling filling;
    std::string before;
    std::string after;
  };
  const std::string entry = "msgid \"a\"\nmsgstr \"\"\n";
  const std::string filled = "msgid \"a\"\nmsgstr \"甲\"\n";
  const Filling marked{u"甲", u"", u"", true};
  const Filling trusted{u"甲", u"", u"", false};
  const Filling several{u"甲", u"甲 | 乙", u"", true};
  const Case cases[] = {
      {"no comment above", marked, entry, "#, fuzzy\n" + filled},
      {"other flags", marked, "#, c-format\n" + entry, "#, fuzzy, c-format\n" + filled},
      {"marked already", marked, "#, c-format, fuzzy\n" + entry, "#, c-format, fuzzy\n" + filled},
      {"before an earlier source", marked, "# t\n#: f:1\n#| msgid \"o\"\n" + entry,
       "# t\n#: f:1\n#, fuzzy\n#| msgid \"o\"\n" + filled},
      {"several", several, "# t\n#. e\n#: f:1\n" + entry,
       "# t\n# Lexmill: 甲 | 乙\n#. e\n#: f:1\n#, fuzzy\n" + filled},
      {"several, no comment", several, entry, "# Lexmill: 甲 | 乙\n#, fuzzy\n" + filled},
      {"a comment that stands apart", several, "# t\n\n" + entry,
       "# t\n\n# Lexmill: 甲 | 乙\n#, fuzzy\n" + filled},
      {"no mark wanted", trusted, "#, fuzzy, c-format\n#: f:1\n" + entry,
       "#, c-format\n#: f:1\n" + filled},
      {"no flag left", trusted, "#, fuzzy\n" + entry, filled},
      {"in the middle of a line", several, "msgid \"x\" msgstr \"y\" " + entry,
       "msgid \"x\" msgstr \"y\" \n# Lexmill: 甲 | 乙\n\n#, fuzzy\n" + filled},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(Po(kHeader + row.before).Filled({{u"a", row.filling}}), kHeader + row.after)
        << row.name;
  }
}

TEST(Po, KeepsItsOwnEncoding) {
  const std::string template_ =
      "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=CHARSET\\n\"\n"
      "msgid \"a\"\nmsgstr \"\"\n";
  EXPECT_EQ(Po(template_).Filled({{u"a", {u"甲", u"", u"", false}}}),
            "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n"
            "msgid \"a\"\nmsgstr \"甲\"\n");
  EXPECT_EQ(Po(template_).Filled({}), template_);
  const std::string latin =
      "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=ISO-8859-1\\n\"\n# \xE9\n"
      "msgid \"a\"\nmsgstr \"\"\n";
  // A header is known by its lack of a context, not by its place.
  for (const std::string before : {"", "# c\n\nmsgctxt \"k\"\nmsgid \"\"\nmsgstr \"x\"\n\n"}) {
    EXPECT_EQ(Po(before + latin).Filled({{u"a", {u"é", u"", u"", false}}}),
              before + latin.substr(0, latin.size() - 3) + "\"\xE9\"\n");
  }
  EXPECT_EQ(Po(latin).Complaint({{u"a", {u"甲", u"", u"", false}}}),
            "第 4 行：文件的字符集中没有译文所需的字符");
}

TEST(Po, IsNotFilledInPlaceWhereItsFolderTakesNoNewFile) {
  const test::OrdinaryUser user;
  const test::TemporaryFolder folder;
  const std::u16string path = folder.File("a.po");
  const std::string bytes = "msgid \"a\"\nmsgstr \"\"\n";
  test::WriteBytes(path, bytes);
  namespace fs = std::filesystem;
  fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::owner_exec);
  const CatalogHead head = ReadCatalogHead(CatalogFormat::Po, path);
  const auto none = [](const CatalogEntry&) { return std::optional<Filling>(); };
  EXPECT_THROW(FillCatalog(CatalogFormat::Po, path, path, head, none), platform::Failure);
  EXPECT_EQ(test::ReadBytes(path), bytes);
  fs::permissions(folder.Path(), fs::perms::owner_all);
}

TEST(Po, IsRefusedWithLineAndReason) {
  struct Case {
    std::string bytes;
    const char* complaint;
  };
  const Case cases[] = {
      {"msgid \"a\nmsgstr \"\"\n", "第 1 行：字符串没有结束的引号"},
      {"msgid \"\\q\"\nmsgstr \"\"\n", "第 1 行：字符串中有未知的转义序列"},
      {"msgid \"a\"\nmsgstr \"\" ?\n", "第 2 行：既不是关键字，也不是字符串"},
      {"msgid \"a\"\nmsgfoo \"\"\n", "第 2 行：关键字未知或不在其位"},
      {"msgid \"a\"\nmsgid \"b\"\n", "第 2 行：条目没有 msgstr"},
      {"msgid \"a\"\n# c\nmsgstr \"b\"\n", "第 2 行：条目没有 msgstr"},
      {"\"a\"\n", "第 1 行：字符串前没有关键字"},
      {"msgid \"a\"\nmsgstr\n", "第 3 行：关键字后没有字符串"},
      {"msgid \"a\"\nmsgstr \"b\"\nmsgstr \"c\"\n", "第 3 行：一个条目有两个 msgstr"},
      {"msgid \"a\"\nmsgid_plural \"b\"\nmsgstr[1] \"c\"\n", "第 3 行：msgstr 的序号不对"},
      {"msgid \"a\"\nmsgid_plural \"b\"\nmsgstr \"c\"\n", "第 3 行：msgstr 的序号不对"},
      {"msgid \"a\"", "第 2 行：条目没有 msgstr"},
      {"msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=none-such\\n\"\n",
       "第 1 行：未知的字符集 none-such"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(Po(row.bytes).Complaint(), row.complaint) << row.bytes;
  }
}

}  // namespace
}  // namespace lexmill
