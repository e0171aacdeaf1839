// SPDX-License-Identifier: MIT
// Runs that ask several references, of any kind, one after the other.
#include "run/shared/run_state.h"
#include "tests/end_to_end/whole_run.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {
namespace {

class SeveralReferences : public WholeRun {
 protected:
  SeveralReferences() {
    world_.window.chkSaveRefDB.Value(1);
    world_.window.txtSaveRefDB.Text(Dictionary("saved.db"));
    std::ignore = ResultOf("x\tx\n", "Options\t偏好\nClose\t关闭\n");
    world_.window.chkSaveRefDB.Value(0);
    WriteBytes(Dictionary("glossary"), Ansi("9 1\t4 2\nOptions...\t选项…\nOpen\t打开\n"));
    WriteBytes(Dictionary("text"), "1:Options\n设置\n2:&Options\n选项(&O)\n3:Save\n保存\n");
    WriteBytes(Dictionary("french"), "9 1\t12 1\nOpen\tOuvrir\n");
    WriteBytes(Dictionary("glossary.todo"),
               Ansi("Options\tOptions\nOptions\tOptions\n&Open\t&Open\n"
                    "Save\tSave\nClose\tClose\n无\t无\n"));
    WriteBytes(Dictionary("text.todo"), Ansi("1:Options\nOptions\n2:Open\nOpen\n"));
  }

  // Presses start with these references in their field. @return the result
  std::string Result(std::string_view toDo, std::initializer_list<const char*> references) {
    std::string field;
    for (const char* name : references) {
      field += (field.empty() ? "" : ";") + (dictionaries_.Path() / name).string();
    }
    world_.window.cboToDo.Text(Dictionary(toDo));
    world_.window.cboRefer.Text(platform::FromUtf8(field));
    world_.window.cboFinal.Text(Dictionary("final"));
    world_.window.cmdStart.UserClicks();
    ExpectNoTemporaryFiles();
    return FromAnsiBytes(ReadBytes(Dictionary("final")));
  }
};

TEST_F(SeveralReferences, GiveTheirCandidatesInTheOrderInWhichTheyAreAsked) {
  struct Case {
    std::initializer_list<const char*> references;
    bool firstOnly;
    const char* result;
  };
  // REFER alone names the languages; each translation of a string comes once.
  for (const auto& row : {
           Case{{"glossary", "text", "saved.db"},
                false,
                "9 1\t4 2\nOptions\t选项\n&Open\t打开(&O)\nOptions\t设置\nSave\t保存\n"
                "Options\t偏好\nClose\t关闭\n"},
           Case{{"glossary", "text", "saved.db"},
                true,
                "9 1\t4 2\nOptions\t选项\n&Open\t打开(&O)\nSave\t保存\nClose\t关闭\n"},
           Case{{"text", "french", "glossary"},
                true,
                "Options\t设置\nOptions\t选项\nSave\t保存\n&Open\tOuvrir(&O)\n"},
           Case{{"saved.db", "saved.db"}, false, "Options\t偏好\nClose\t关闭\n"},
       }) {
    TheRun().firstReferenceOnly = row.firstOnly;
    EXPECT_EQ(Result("glossary.todo", row.references), row.result);
  }
}

TEST_F(SeveralReferences, CountWhatAnEarlierOneSettled) {
  TheRun().firstReferenceOnly = true;
  std::ignore = Result("glossary.todo", {"glossary", "text", "saved.db"});
  EXPECT_EQ(TheRun().counts.settledEarly, 4);  // Options twice, Open, Save
  EXPECT_EQ(TheRun().counts.filled, 5);
}

TEST_F(SeveralReferences, ServeATextWhoseLastCandidateCounts) {
  EXPECT_EQ(Result("text.todo", {"glossary", "text"}), "\n1:Options\n设置\n\n2:Open\n打开\n");
  TheRun().firstReferenceOnly = true;
  EXPECT_EQ(Result("text.todo", {"glossary", "text"}), "\n1:Options\n选项\n\n2:Open\n打开\n");
}

TEST_F(SeveralReferences, AreNoneWhereAFileHasTheWholeName) {
  std::filesystem::copy(dictionaries_.Path() / "text", dictionaries_.Path() / "a;b");
  EXPECT_EQ(Result("glossary.todo", {"a;b"}), Result("glossary.todo", {"text"}));
}

TEST_F(SeveralReferences, AreRefusedWhereTheyCannotServe) {
  const auto refused = [&](std::initializer_list<const char*> references) {
    world_.session.messages.clear();
    std::filesystem::remove(dictionaries_.Path() / "final");
    WriteBytes(Dictionary("final"), "old");
    EXPECT_EQ(Result("glossary.todo", references), "old");
    const std::string text =
        world_.session.messages.empty() ? "" : Readable(world_.session.messages.front().text);
    world_.session.messages.clear();
    return text;
  };
  EXPECT_TRUE(refused({"glossary", "missing"}).starts_with("错误:1\r\n不能检测出"));
  EXPECT_EQ(Readable(TheRun().notices.front().text),
            "错误 1 的文件：" + (dictionaries_.Path() / "missing").string());
  world_.window.chkSaveRefDB.Value(1);
  EXPECT_TRUE(refused({"glossary", "text"}).starts_with("错误:1\r\n有几个参照字典时"));
}

}  // namespace
}  // namespace lexmill::test
