// SPDX-License-Identifier: MIT
// Runs whose dictionaries are catalogs.
#include <filesystem>
#include <tuple>
#include <utility>

#include "platform/files/file_system.h"
#include "platform/host/host_path.h"
#include "run/run_summary.h"
#include "run/shared/run_state.h"
#include "tests/end_to_end/whole_run.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {
namespace {

class CatalogRunTest : public WholeRun {
 protected:
  /// Runs over two files given by their bytes. @return the bytes of the result; "" if there is none
  std::string Run(const std::string& toDo, const std::string& refer) {
    WriteBytes(Dictionary("todo"), toDo);
    WriteBytes(Dictionary("refer"), refer);
    Press("todo", "refer", "final");
    ExpectNoTemporaryFiles();
    return ReadBytes(Dictionary("final"));
  }

  /// What the run has noted, joined by "; ".
  static std::string Notices() {
    std::string all;
    for (const RunNotice& notice : TheRun().notices) {
      all += (all.empty() ? "" : "; ") + Readable(notice.text);
    }
    return all;
  }
};

const std::string kPo =
    "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n"
    "msgid \"&Open...\"\nmsgstr \"\"\n\n"
    "msgid \"%n file\"\nmsgid_plural \"%n files\"\nmsgstr[0] \"\"\n\n"
    "msgid \"Save\\tCtrl+S\"\nmsgstr \"\"\n";
const std::string kFilledPo =
    "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n"
    "#, fuzzy\nmsgid \"&Open...\"\nmsgstr \"打开(&O)...\"\n\n"
    "msgid \"%n file\"\nmsgid_plural \"%n files\"\nmsgstr[0] \"\"\n\n"
    "#, fuzzy\nmsgid \"Save\\tCtrl+S\"\nmsgstr \"保存\\tCtrl+S\"\n";

TEST_F(CatalogRunTest, FillsAPoFromEachKindOfReference) {
  const std::string references[] = {
      "Open\t打开\nSave\t保存\n",
      "1:Open\n打开\n2:Save\n保存\n",
      "msgid \"\"\nmsgstr \"X-Accelerator-Marker: _\\n\"\nmsgid \"_Open\"\nmsgstr "
      "\"打开(_O)\"\nmsgid \"Save\"\nmsgstr \"保存\"\n"
      "#, fuzzy\nmsgid \"Save\"\nmsgstr \"存\"\n",
      "<TS><message><source>Open</source><translation>打开</translation></message><message>"
      "<source>Save</source><translation>保存</translation></message></TS>",
      "<xliff><trans-unit><source>Open</source><target>打开</target></trans-unit><trans-unit>"
      "<source>Save</source><target>保存</target></trans-unit></xliff>",
      "<tmx><header srclang=\"en\"/><tu><tuv xml:lang=\"en\"><seg>Open</seg></tuv>"
      "<tuv xml:lang=\"zh\"><seg>打开</seg></tuv></tu><tu><tuv "
      "xml:lang=\"en\"><seg>Save</seg></tuv>"
      "<tuv xml:lang=\"zh\"><seg>保存</seg></tuv></tu></tmx>",
      "source,target\nOpen,打开\nSave,保存\n",
  };
  for (const std::string& refer : references) {
    EXPECT_EQ(Run(kPo, refer), kFilledPo) << refer;
  }
}

TEST_F(CatalogRunTest, AsksMoreCatalogsAndCallsThemByTheirOwnPaths) {
  const std::pair<std::string, std::string> references[] = {
      {"a.po", "msgid \"&Open\"\nmsgstr \"打开(&O)\"\nmsgid \"same\"\nmsgstr \"same\"\n"},
      {"b.ts",
       "<TS><message><source>Open</source><translation>开启</translation></message>"
       "<message><source>same</source><translation>same</translation></message></TS>"},
      {"c.tmx",
       "<tmx><header srclang=\"en\"/><tu><tuv xml:lang=\"en\"><seg>Open<ph/></seg></tuv>"
       "<tuv xml:lang=\"zh\"><seg>打开<ph/></seg></tuv></tu></tmx>"},
      {"d.csv", "source,target\nSave,保存\nsame,same\n"},
  };
  WriteBytes(Dictionary("todo"), kPo);
  for (const auto& [name, bytes] : references) {
    WriteBytes(Dictionary(name), bytes);
    TheRun().givenReferences.push_back(Dictionary(name));
  }
  Press("todo", "a.po", "final");
  EXPECT_EQ(ReadBytes(Dictionary("final")),
            std::string(kFilledPo).replace(kFilledPo.find("#, fuzzy\nmsgid \"&Open"), 0,
                                           "# Lexmill: 打开(&O)... | 开启(&O)...\n"));
  std::string dropped;
  for (const auto& [path, counts] : TheRun().counts.dropped) {
    dropped += Readable(platform::FileName(path)) + " " +
               std::to_string(counts.equalSides + counts.inlined + counts.plural) + "; ";
    EXPECT_TRUE(platform::FileSystemObject().FileExists(path)) << Readable(path);
  }
  EXPECT_EQ(dropped, "a.po 1; b.ts 1; c.tmx 1; d.csv 1; todo 1; ");
  EXPECT_EQ(Notices(), "“todo”：跳过复数条目 1 条; “c.tmx”：跳过含行内元素的条目 1 条");
  ExpectNoTemporaryFiles();
}

TEST_F(CatalogRunTest, NeverReplacesAReference) {
  struct Case {
    const char* toDo;
    const char* reference;
    const char* result;
  };
  WriteBytes(Dictionary("more"), kFilledPo);
  std::filesystem::create_hard_link(dictionaries_.Path() / "more", dictionaries_.Path() / "link");
  for (const Case& row : {Case{"todo.po", "refer", "refer"}, Case{"todo.po", "refer", "more"},
                          Case{"todo.po", "refer", "link"}, Case{"todo.glo", "refer", "more"},
                          Case{"todo.glo", "table", "table"}}) {
    WriteBytes(Dictionary("todo.po"), kPo);
    WriteBytes(Dictionary("todo.glo"), "Open\tOpen\n");
    WriteBytes(Dictionary("refer"), "Open\t开\n");
    WriteBytes(Dictionary("table"), "source,target\nOpen,开\n");
    const std::string before = ReadBytes(Dictionary(row.result));
    TheRun().givenReferences = {Dictionary(row.reference), Dictionary("more")};
    Press(row.toDo, row.reference, row.result);
    EXPECT_EQ(ReadBytes(Dictionary(row.result)), before) << row.result;
    ASSERT_EQ(world_.session.messages.size(), 1U) << row.result;
    const std::string message = Readable(world_.session.messages[0].text);
    EXPECT_NE(message.find("不能写入译文"), std::string::npos) << message;
    world_.session.messages.clear();
  }
}

TEST_F(CatalogRunTest, GivesAGlossaryTheEncodingOfItsCatalog) {
  EXPECT_EQ(Run("&Open\t&Open\n", "msgid \"Open\"\nmsgstr \"打开\"\n"), "&Open\t打开(&O)\r\n");
}

TEST_F(CatalogRunTest, FillsACatalogInPlaceFromItself) {
  const std::string before = "msgid \"&Open\"\nmsgstr \"\"\nmsgid \"Open\"\nmsgstr \"打开\"\n";
  WriteBytes(Dictionary("todo"), before);
  Press("todo", "todo", "copy");
  const std::string after =
      "#, fuzzy\nmsgid \"&Open\"\nmsgstr \"打开(&O)\"\nmsgid \"Open\"\nmsgstr \"打开\"\n";
  EXPECT_EQ(ReadBytes(Dictionary("copy")), after);
  WriteBytes(Dictionary("refer"), "Open\tOpen\n");
  Press("copy", "refer", "copy");
  EXPECT_EQ(ReadBytes(Dictionary("copy")), after);
}

TEST_F(CatalogRunTest, SaysWhatWasFilledAndPassedOver) {
  std::ignore = Run(kPo,
                    "msgid \"a\"\nmsgid_plural \"b\"\nmsgstr[0] \"c\"\nmsgid \"Open\"\n"
                    "msgstr \"打开\"\nmsgid \"&Open\"\nmsgstr \"开启(&O)\"\n"
                    "msgid \"&Save\"\nmsgstr \"Save(&S)\"\n");  // by itself once it is bare
  EXPECT_EQ(Notices(), "“todo”：跳过复数条目 1 条; “refer”：跳过复数条目 1 条");
  EXPECT_EQ(Readable(SummaryOf(TheRun().counts)), "译出 2 / 2 条；1 条有多种译法");
  EXPECT_EQ(Readable(world_.window.cboToDo.Text()), Readable(Dictionary("todo")));
}

TEST_F(CatalogRunTest, LeavesTheResultAloneWhenACatalogIsWrong) {
  struct Case {
    const char* toDo;
    const char* refer;
    const char* complaint;
  };
  const Case cases[] = {
      {"msgid \"a\"\nmsgstr \"\"\n", "msgid \"a\"\n", "”第 2 行：条目没有 msgstr"},
      {"<TS><message>", "a\tb\n", "”第 1 行：文件不完整"},
      {"<tmx/>", "a\tb\n", "”只能作“参照字典”"},
  };
  for (const Case& row : cases) {
    WriteBytes(Dictionary("final"), "older");
    EXPECT_EQ(Run(row.toDo, row.refer), "older");
    const std::string message = Readable(world_.session.messages.back().text);
    EXPECT_NE(message.find(row.complaint), std::string::npos) << message;
    world_.session.messages.clear();
  }
}

}  // namespace
}  // namespace lexmill::test
