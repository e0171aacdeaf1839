// SPDX-License-Identifier: MIT
// TS and XLIFF files: what is read of them, and what they look like when they have been filled.
#include <string>

#include <gtest/gtest.h>

#include "tests/catalog/filled_catalog.h"

namespace lexmill {
namespace {

using test::CatalogWorld;

std::string TsFile(const std::string& messages) {
  return "<TS version=\"2.1\"><context><name>C</name>" + messages + "</context></TS>";
}
CatalogWorld Ts(const std::string& messages) {
  return {CatalogFormat::Ts, TsFile(messages)};
}

std::string XliffFile(const std::string& units) {
  return "<xliff version=\"1.2\"><file source-language=\"en\"><body>" + units +
         "</body></file></xliff>\n";
}
CatalogWorld Xliff(const std::string& units) {
  return {CatalogFormat::Xliff, XliffFile(units)};
}

TEST(Ts, ReadsWhatEachMessageIs) {
  struct Case {
    std::string message;  // but for its own tags
    const char* entry;
  };
  const Case cases[] = {
      {"<source>&amp;a\r\n&quot;<byte value=\"x1b\"/><byte value=\"9\"/></source>"
       "<comment>m</comment><translation>b</translation>",
       "PT C / m|&a\n\"\x1b\t|b\n"},
      {"<source>a</source><translation type=\"unfinished\"></translation>", "PO C|a|\n"},
      {"<source>a</source><translation type=\"unfinished\">b</translation>", "PM C|a|b\n"},
      {"<source>a</source><translation/>", "PO C|a|\n"},
      {"<source>a</source>", "PO C|a|\n"},
      {"<source>a</source><translation type=\"vanished\">b</translation>", "FT C|a|b\n"},
      {"<source>a</source><translation type=\"obsolete\">b</translation>", "FT C|a|b\n"},
      {"<source>a</source><translation variants=\"yes\"><lengthvariant>b</lengthvariant>"
       "</translation>",
       "IT C|a|b\n"},
      {"<source>a</source><translation type=\"unfinished\"><!-- c --></translation>", "IO C|a|\n"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(Ts("<message>" + row.message + "</message>").Entries(), row.entry) << row.message;
  }
  EXPECT_EQ(Ts("<message numerus=\"yes\"><source>a</source><translation><numerusform>b"
               "</numerusform></translation></message>")
                .Entries(),
            "NT C|a|b\n");
}

TEST(Ts, IsFilledInItsOwnStyle) {
  struct Case {
    const char* name;
    Filling filling;
    std::string before;
    std::string after;
  };
  const Filling marked{u"\"甲\" & \u001b", u"", u"", true};
  const Filling trusted{u"甲", u"", u"", false};
  const Filling several{u"甲", u"甲 | <乙>", u"", true};
  const std::string source = "\r\n  <source>a</source>";
  const Case cases[] = {
      {"a mark, references for quotes", marked,
       source + "\r\n  <translation type=\"unfinished\"></translation>",
       source + "\r\n  <translation type=\"unfinished\">&quot;甲&quot; &amp; <byte value=\"x1b\"/>"
                "</translation>"},
      {"no mark", trusted, source + "<translation a='b' type='unfinished'></translation>",
       source + "<translation a='b'>甲</translation>"},
      {"a tag without content", trusted, source + "<translation type=\"unfinished\" />",
       source + "<translation>甲</translation>"},
      {"a mark that was missing",
       {u"甲", u"", u"", true},
       source + "<translation a='b'/>",
       source + "<translation a='b' type='unfinished'>甲</translation>"},
      {"no translation",
       {u"甲", u"", u"", true},
       source,
       source + "\r\n  <translation type=\"unfinished\">甲</translation>"},
      {"a comment", several, source + "\r\n  <translation type=\"unfinished\"/>",
       source + "\r\n  <translatorcomment>Lexmill: 甲 | &lt;乙&gt;</translatorcomment>"
                "\r\n  <translation type=\"unfinished\">甲</translation>"},
      {"a second comment", several,
       source + "<translatorcomment>c</translatorcomment><translation type=\"unfinished\"/>",
       source + "<translatorcomment>c\nLexmill: 甲 | &lt;乙&gt;</translatorcomment>"
                "<translation type=\"unfinished\">甲</translation>"},
  };
  for (const Case& row : cases) {
    const auto message = [](const std::string& content) {
      return "<message>" + content + "</message>";
    };
    EXPECT_EQ(Ts(message(row.before)).Filled({{u"a", row.filling}}), TsFile(message(row.after)))
        << row.name;
  }
}

TEST(Xliff, ReadsWhatEachUnitIs) {
  struct Case {
    std::string units;
    const char* entries;
  };
  const Case cases[] = {
      {"<trans-unit id=\"1\"><source>a</source><target>b</target></trans-unit>", "PT 1|a|b\n"},
      {"<trans-unit id=\"1\" approved=\"no\"><source>a</source><target>b</target></trans-unit>",
       "PM 1|a|b\n"},
      {"<trans-unit id=\"1\" approved=\"no\"><source>a</source><target state=\"final\">b</target>"
       "</trans-unit>",
       "PT 1|a|b\n"},
      {"<trans-unit resname=\"n\"><source>a</source><target state=\"needs-adaptation\">b</target>"
       "</trans-unit>",
       "PM n|a|b\n"},
      {"<trans-unit id=\"1\"><source>a</source><alt-trans><target>b</target></alt-trans>"
       "</trans-unit>",
       "PO 1|a|\n"},
      {"<trans-unit id=\"1\" translate=\"no\"><source>a</source></trans-unit>", "FO 1|a|\n"},
      {"<group translate=\"no\"><trans-unit id=\"1\"><source>a</source></trans-unit>"
       "<trans-unit id=\"2\" translate=\"yes\"><source>b</source></trans-unit></group>"
       "<trans-unit id=\"3\"><source>c</source></trans-unit>",
       "FO 1|a|\nPO 2|b|\nPO 3|c|\n"},
      {"<group restype=\"x-gettext-plurals\"><trans-unit id=\"1\"><source>a</source></trans-unit>"
       "</group>",
       "NO 1|a|\n"},
      {"<trans-unit id=\"1\"><source>a<g id=\"1\">b</g></source></trans-unit>", "IO 1|ab|\n"},
      {"<trans-unit id=\"1\"><source>a</source><t:target xmlns:t=\"u\">b</t:target></trans-unit>",
       "PO 1|a|\n"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(Xliff(row.units).Entries(), row.entries) << row.units;
  }
}

TEST(Xliff, IsFilledInItsOwnStyle) {
  const Filling marked{u"\"甲\"", u"", u"needs-review-translation", true};
  const Filling several{u"甲", u"甲 | 乙", u"translated", false};
  struct Case {
    const char* name;
    Filling filling;
    std::string before;
    std::string after;
  };
  const Case cases[] = {
      {"no target", marked, "\n <source>a</source>\n",
       "\n <source>a</source>\n <target state=\"needs-review-translation\">\"甲\"</target>\n"},
      {"an empty target", marked, "<source>a</source><target state='new' xml:lang='zh'/>",
       "<source>a</source><target state='needs-review-translation' xml:lang='zh'>\"甲\"</target>"},
      {"after segments", marked, "<source>a</source><seg-source>a</seg-source>",
       "<source>a</source><seg-source>a</seg-source>"
       "<target state=\"needs-review-translation\">\"甲\"</target>"},
      {"a note", several, "\n <source>a</source>\n <target></target>\n",
       "\n <source>a</source>\n <target state=\"translated\">甲</target>"
       "\n <note from=\"Lexmill\">甲 | 乙</note>\n"},
      {"a note, no target", several, "\n <source>a</source>\n",
       "\n <source>a</source>\n <target state=\"translated\">甲</target>"
       "\n <note from=\"Lexmill\">甲 | 乙</note>\n"},
  };
  for (const Case& row : cases) {
    const auto unit = [](const std::string& content) {
      return "<trans-unit id=\"1\">" + content + "</trans-unit>";
    };
    EXPECT_EQ(Xliff(unit(row.before)).Filled({{u"a", row.filling}}), XliffFile(unit(row.after)))
        << row.name;
  }
  const std::string prefixed =
      "<x:xliff version=\"1.2\" xmlns:x=\"u\"><x:trans-unit><x:source>a</x:source>";
  const std::string end = "</x:trans-unit></x:xliff>";
  EXPECT_EQ(CatalogWorld(CatalogFormat::Xliff, prefixed + end).Filled({{u"a", several}}),
            prefixed +
                "<x:target state=\"translated\">甲</x:target>"
                "<x:note from=\"Lexmill\">甲 | 乙</x:note>" +
                end);
}

TEST(Markup, KeepsItsEncodingAndWritesTheRestAsReferences) {
  const auto file = [](const std::string& encoding, const std::string& target) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding +
           "\"?><TS><message><source>a</source><translation>" + target +
           "</translation></message></TS>";
  };
  const auto fill = [&](const std::string& bytes) {
    return CatalogWorld(CatalogFormat::Ts, bytes)
        .Filled({{u"a", {u"é\U0001F600", u"", u"", false}}});
  };
  EXPECT_EQ(fill(file("iso-8859-1", "")), file("iso-8859-1", "\xE9&#x1f600;"));
  EXPECT_EQ(fill(file("windows-1252", "")), file("windows-1252", "\xE9&#x1f600;"));
  EXPECT_EQ(fill(file("gb18030", "")), file("gb18030", "\xA8\xA6&#x1f600;"));
  EXPECT_EQ(fill(file("utf-8", "")), file("utf-8", "é😀"));
  EXPECT_EQ(fill(file("UTF8", "")), file("UTF8", "é😀"));
  const auto wide = [](const std::u16string& text) {
    std::string bytes;
    for (const char16_t unit : u"\uFEFF" + text) {
      bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    }
    return bytes;
  };
  const std::u16string start = u"<TS><message><source>a</source><translation>";
  const std::u16string end = u"</translation></message></TS>";
  EXPECT_EQ(fill(wide(start + end)), wide(start + u"é\U0001F600" + end));
}

TEST(Markup, IsRefusedWithLineAndReason) {
  struct Case {
    std::string bytes;
    const char* complaint;
  };
  const Case cases[] = {
      {"<xliff version=\"1.2\">\n<file>", "第 2 行：文件不完整"},
      {"<xliff version=\"1.2\">\n</file>", "第 2 行：结束标签与开始标签不符"},
      {"<xliff version=\"1.2\">\n<file a=b/></xliff>", "第 2 行：不符合 XML 语法"},
      {"<xliff version=\"1.2\">\n&x;</xliff>", "第 2 行：引用了未定义的实体"},
      {"<?xml version=\"1.0\" encoding=\"none-such\"?>\n<xliff/>",
       "第 1 行：未知的字符集 none-such"},
      {"<?xml version=\"1.0\" encoding=\"gb18030\"?>\n<xliff>\x81\x30\x81\x30</xliff>",
       "第 2 行：不符合 XML 语法，或者有 gb18030 中多于两个字节的字符，请另存为 UTF-8"},
      {"<xliff version=\"2.0\"/>", "第 1 行：只支持 XLIFF 1.2 及更早的版本"},
      {"<!DOCTYPE xliff [<!ENTITY e \"<target>x</target>\">]>\n<xliff>&e;</xliff>",
       "第 2 行：元素来自实体"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(CatalogWorld(CatalogFormat::Xliff, row.bytes).Complaint(), row.complaint)
        << row.bytes;
  }
  std::string bomb = "<!DOCTYPE xliff [<!ENTITY a \"0123456789\">";
  for (char name = 'b'; name < 'k'; ++name) {
    bomb += std::string("<!ENTITY ") + name + " \"";
    for (int i = 0; i < 10; ++i) {
      bomb += std::string("&") + static_cast<char>(name - 1) + ";";
    }
    bomb += "\">";
  }
  EXPECT_EQ(CatalogWorld(CatalogFormat::Xliff, bomb + "]><xliff>&j;</xliff>").Complaint(),
            "第 1 行：实体展开后过大");
}

}  // namespace
}  // namespace lexmill
