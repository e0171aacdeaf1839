// SPDX-License-Identifier: MIT
// Formats that serve as references only: TMX files and tables.
#include <string>

#include <gtest/gtest.h>

#include "catalog/language_tag.h"
#include "catalog/table_reader.h"
#include "tests/catalog/filled_catalog.h"

namespace lexmill {
namespace {

using test::CatalogWorld;

TEST(Tmx, GivesTheUnitsThatHaveBothLanguages) {
  const auto unit = [](const std::string& variants) {
    return "<tu tuid=\"u\">" + variants + "</tu>";
  };
  const auto variant = [](const std::string& language, const std::string& text) {
    return "<tuv xml:lang=\"" + language + "\"><prop>p</prop><seg>" + text + "</seg></tuv>";
  };
  const auto entries = [](const std::string& language, const std::string& units) {
    return CatalogWorld(CatalogFormat::Tmx,
                        "<!DOCTYPE tmx SYSTEM \"tmx14.dtd\">\n<tmx version=\"1.4\">"
                        "<header srclang=\"" +
                            language + "\"/><body>" + units + "</body></tmx>")
        .Entries();
  };
  const std::string both = variant("en-US", "a") + variant("zh_CN", "甲");
  EXPECT_EQ(entries("en", unit(both) + unit(variant("en", "b"))), "PT u|a|甲\n");
  EXPECT_EQ(entries("*all*", unit(variant("zh-TW", "乙") + both)), "PT u|a|乙\n");
  EXPECT_EQ(entries("de", unit(both)), "");
  EXPECT_EQ(entries("en", unit(variant("en", "a<ph x=\"1\">{}</ph>") + variant("zh", "甲"))),
            "IT u|a{}|甲\n");
}

TEST(Table, GivesTheTwoColumnsThatItsFirstRowNames) {
  struct Case {
    std::string bytes;
    const char* entries;
  };
  const Case cases[] = {
      {"location,source,target\r\na:1,\"x, \"\"y\"\"\nz\", 甲 \r\n\r\nb:2,w,\r\nshort\r\n",
       "PT |x, \"y\"\nz| 甲 \nPO |w|\n"},
      {"\xEF\xBB\xBFSource;Translation\na;甲", "PT |a|甲\n"},
      {"译文\t备注\t原文\n甲\tn\ta\n", "PT |a|甲\n"},
  };
  for (const Case& row : cases) {
    const CatalogWorld world(CatalogFormat::Table, row.bytes);
    EXPECT_EQ(world.Entries(), row.entries) << row.bytes;
  }
  EXPECT_EQ(CatalogWorld(CatalogFormat::Table, test::Ansi("source,target\na,甲\n")).Entries(),
            "PT |a|甲\n");
  EXPECT_EQ(CatalogWorld(CatalogFormat::Table, "a,b\n").Complaint(),
            "第 1 行：首行没有“source”和“target”两列");
  EXPECT_EQ(CatalogWorld(CatalogFormat::Table, "source,target\na,\"b\n").Complaint(),
            "第 2 行：引号没有结束");
}

TEST(LanguageTag, NamesAPartOrTheWhole) {
  EXPECT_TRUE(IsLanguage(u"zh_CN", u"zh-cn"));
  EXPECT_TRUE(IsLanguage(u"ZH", u"zh-CN"));
  EXPECT_TRUE(IsLanguage(u"zh-Hans-CN", u"zh"));
  EXPECT_FALSE(IsLanguage(u"zh-TW", u"zh-CN"));
  EXPECT_FALSE(IsLanguage(u"enm", u"en"));
  EXPECT_FALSE(IsLanguage(u"", u"en"));
}

}  // namespace
}  // namespace lexmill
