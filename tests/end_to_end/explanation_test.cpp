// SPDX-License-Identifier: MIT
// Explanations of single strings, from references of every kind.
#include <sstream>

#include "platform/text/text.h"
#include "run/console_run.h"
#include "run/shared/run_state.h"
#include "tests/end_to_end/whole_run.h"

namespace lexmill::test {
namespace {

class Explanations : public WholeRun {
 protected:
  Explanations() {
    world_.window.chkSaveRefDB.Value(1);
    world_.window.txtSaveRefDB.Text(Dictionary("saved.db"));
    std::ignore = ResultOf("x\tx\n", "Open\t打开(&O)\nClose\t关闭\nclose\t关\nClose:\t关闭\n");
    world_.window.chkSaveRefDB.Value(0);
    WriteBytes(Dictionary("glossary"),
               Ansi("9 1\t4 2\n\nO&pen\t打开\nOPEN!\t开\nOpen...\t打开(&O)...\nFind\tFind\n"
                    "Open\t开启\nFind\t找\t寻\n打开(&K)\tOpen\n"));
    WriteBytes(Dictionary("text"), "0\n1:Close\n关闭\n\n2:Open\n打开\n3:&Open\n开\n");
    WriteBytes(
        Dictionary("po"),
        "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n"
        "#, fuzzy\nmsgid \"Close\"\nmsgstr \"关\"\n\nmsgid \"_Open\\n\"\nmsgstr \"打开\\n\"\n");
    WriteBytes(Dictionary("csv"), "Source,Target\n\nOpen,打开\n\"Close\nall\",全部关闭\nEnd,完\n");
  }

  // What is said of the references, after the steps; then "known" or "unknown".
  std::string Explained(std::u16string_view string, std::initializer_list<const char*> references) {
    ConsoleArguments arguments;
    arguments.explained = string;
    for (const char* name : references) {
      arguments.references.push_back(Dictionary(name));
    }
    TheRun().catalogOptions.accelerator = u'_';
    std::ostringstream output;
    const auto isKnown = ExplainWanted(arguments, output);
    ExpectNoTemporaryFiles();
    std::string text = output.str();
    text.erase(0, text.find("\n查找: ") + 1);
    return text + (!isKnown ? "failed" : *isKnown ? "known" : "unknown");
  }
};

TEST_F(Explanations, ShowTranslationsWithTheirPlacesOrWhatIsNear) {
  struct Case {
    std::u16string_view string;
    const char* reference;
    const char* expected;
  };
  for (const Case& row : std::initializer_list<Case>{
           {u" &Open:", "glossary",
            "查找: “Open”；译文前加 “ ”；译文后加 “(&O):”\n参照字典 “glossary”: 有\n"
            "  译文 “ 打开(&O):”: 第 3 行、第 5 行\n  译文 “ 开启(&O):”: 第 7 行\nknown"},
           {u"open", "glossary",
            "查找: “open”\n参照字典 “glossary”: 没有\n"
            "  相近: 第 3 行 “O&pen” → “打开”，大小写不同\n"
            "  相近: 第 5 行 “Open...” → “打开(&O)...”，大小写不同\n"
            "  相近: 第 7 行 “Open” → “开启”，大小写不同\n"
            "  相近: 第 4 行 “OPEN!” → “开”，大小写、结尾不同\nunknown"},
           {u"Find", "glossary",
            "查找: “Find”\n参照字典 “glossary”: 没有\n  没有相近的字串\n"
            "  不用: 第 6 行，两边相同，没有译文\n  不用: 第 8 行，不止两列\nunknown"},
           {u"打开(&O)", "glossary",
            "查找: “打开(O)”；译文后加 “(&O)”\n参照字典 “glossary”: 没有\n"
            "  相近: 第 9 行 “打开(&K)” → “Open”，热键不同\nunknown"},
           {u"Open", "text",
            "查找: “Open”\n参照字典 “text”: 有\n"
            "  译文 “打开”: 第 5 行\n  译文 “开”: 第 7 行\nknown"},
           {u"close!", "text",
            "查找: “close!”\n参照字典 “text”: 没有\n"
            "  相近: 第 2 行 “Close” → “关闭”，大小写、结尾不同\nunknown"},
           {u"Open", "saved.db",
            "查找: “Open”\n净化数据库 “saved.db”: 有\n  译文 “打开”: “Open” → “打开”\nknown"},
           {u"CLOSE", "saved.db",
            "查找: “CLOSE”\n净化数据库 “saved.db”: 没有\n"
            "  相近: “Close” → “关闭”，大小写不同\n  相近: “close” → “关”，大小写不同\nunknown"},
           {u"&Open\n", "po",
            "查找: “Open\\n”；译文后加 “(&O)”\n参照字典 “po”: 有\n"
            "  译文 “打开\\n(&O)”: 第 8 行\nknown"},
           {u"Open", "po",
            "查找: “Open”\n参照字典 “po”: 没有\n"
            "  相近: 第 8 行 “&Open\\n” → “打开\\n”，结尾不同\nunknown"},
           {u"Close\nall", "csv",
            "查找: “Close\\nall”\n参照字典 “csv”: 有\n  译文 “全部关闭”: 第 4 行\nknown"},
           {u"end", "csv",
            "查找: “end”\n参照字典 “csv”: 没有\n  相近: 第 6 行 “End” → “完”，大小写不同\nunknown"},
       }) {
    EXPECT_EQ(Explained(row.string, {row.reference}), row.expected) << row.reference;
  }
}

TEST_F(Explanations, FollowTheOptionsOfTheRun) {
  world_.window.chkaUpperCase.Value(1);
  world_.window.chkNotAddANDX.Value(1);
  EXPECT_EQ(Explained(u"&CLOSE", {"text", "saved.db"}),
            "查找: “CLOSE”\n参照字典 “text”: 有\n  译文 “关闭”: 第 2 行\n"
            "净化数据库 “saved.db”: 有\n  译文 “关闭”: “Close” → “关闭”\n"
            "  译文 “关”: “close” → “关”\nknown");
  TheRun().firstReferenceOnly = true;
  EXPECT_EQ(Explained(u"CLOSE", {"text", "saved.db"}),
            "查找: “CLOSE”\n参照字典 “text”: 有\n  译文 “关闭”: 第 2 行\n"
            "净化数据库 “saved.db”: 已译出，不再查\nknown");
  TheRun().firstReferenceOnly = false;
  world_.window.txtLenLimit.Text(u"4");
  EXPECT_TRUE(Explained(u"Close", {"text"})
                  .ends_with(" (txtLenLimit=4): 5 个字符\n字串太长，不查\nunknown"));
  EXPECT_EQ(Explained(u"Open", {"glossary"}),
            "查找: “OPEN”\n参照字典 “glossary”: 有\n  译文 “开启”: 第 7 行\n"
            "  不用: 第 3 行、第 5 行，太长\nknown");
}

TEST_F(Explanations, FailWithTheFileThatIsAtFault) {
  for (const char* name : {"missing", "damaged.db"}) {
    std::string bytes = ReadBytes(Dictionary("saved.db"));
    std::fill(bytes.begin() + 1200, bytes.end(), 'x');
    WriteBytes(Dictionary("damaged.db"), bytes);
    EXPECT_TRUE(Explained(u"Open", {name}).ends_with("failed"));
    ASSERT_EQ(world_.session.messages.size(), 1);
    world_.session.messages.clear();
    EXPECT_EQ(TheRun().notices.back().text, u"错误 1 的文件：" + Dictionary(name));
  }
}

}  // namespace
}  // namespace lexmill::test
