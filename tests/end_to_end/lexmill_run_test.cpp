// SPDX-License-Identifier: MIT
// The program lexmill-run, called as a user calls it.
#include <vector>

#include <gtest/gtest.h>

#include "platform/host/host_file.h"
#include "platform/host/host_path.h"
#include "platform/host/program_start.h"
#include "tests/support/files.h"

namespace lexmill::test {
namespace {

class LexmillRun : public testing::Test {
 protected:
  LexmillRun() {
    // A copy, since the program takes the folder that it lies in for its own.
    for (const auto* program : {"lexmill-run", "batch", "sqlite"}) {
      std::filesystem::copy(std::filesystem::path(LEXMILL_PROGRAMS) / ProgramFile(program),
                            programs_.Path());
    }
    WriteBytes(folder_.File("todo"), Ansi("9 1\t4 2\n&Open\t&Open\n"));
    WriteBytes(folder_.File("refer"), Ansi("Open\t打开\n"));
  }

  // Runs the program in the dictionaries' folder. @return its exit code
  int Run(const std::vector<std::u16string>& arguments) {
    const HostFileAt out(folder_.File("stdout"));
    const HostFileAt error(folder_.File("stderr"));
    platform::ProgramStart start;
    start.words = {programs_.File("lexmill-run")};
    start.words.insert(start.words.end(), arguments.begin(), arguments.end());
    start.directory = platform::HostPath::FromNative(folder_.Path()).Text();
    start.standardOutput = &out.file;
    start.standardError = &error.file;
    const auto exitCode = platform::RunProgram(start);
    return exitCode ? *exitCode : -1;
  }
  std::string Output() const { return ReadBytes(folder_.File("stdout")); }
  std::string Errors() const { return ReadBytes(folder_.File("stderr")); }

  struct HostFileAt {
    explicit HostFileAt(std::u16string_view path)
        : file(*platform::HostFile::Open(platform::HostPath(path),
                                         platform::OpenMode::ReadWriteReplace)) {}
    platform::HostFile file;
  };

  TemporaryFolder programs_;
  TemporaryFolder folder_;
};

TEST_F(LexmillRun, ConvertsACatalogAndFillsItAgain) {
  const std::string catalog =
      "msgid \"\"\nmsgstr \"Language: zh_CN\\nContent-Type: text/plain; charset=UTF-8\\n\"\n"
      "msgid \"Open:\"\nmsgstr \"\"\n";
  WriteBytes(folder_.File("a.po"), catalog);
  EXPECT_EQ(Run({u"--convert", u"a.po", u"a.glo"}), 0) << Errors();
  EXPECT_EQ(ReadBytes(folder_.File("a.glo")),
            "\xEF\xBB\xBF"
            "9 1\t4 2\r\nOpen:\tOpen:\r\n");
  EXPECT_EQ(Run({u"a.po", u"--convert", u"a.u.txt"}), 0) << Errors();
  EXPECT_EQ(ReadBytes(folder_.File("a.u.txt")),
            "\xEF\xBB\xBF"
            "1:Open:\r\nOpen:\r\n\r\n");
  WriteBytes(folder_.File("a.u.txt"), "1:Open:\n打开:\n");
  EXPECT_EQ(Run({u"--fill", u"a.po", u"a.u.txt", u"b.po", u"--trusted", u"--ending", u":=："}), 0);
  EXPECT_EQ(Output(), "“a.po”：译出 1 条，有多种译法 0 条\n");
  EXPECT_EQ(ReadBytes(folder_.File("b.po")),
            catalog.substr(0, catalog.size() - 3) + "\"打开：\"\n");
  EXPECT_EQ(Run({u"--fill", u"refer", u"a.u.txt", u"b.po"}), 1);
  EXPECT_EQ(Run({u"--fill", u"a.po", u"b.po"}), 2);
  // Neither may take the place of what was to be read, nor --convert that of any catalog.
  EXPECT_EQ(Run({u"--fill", u"a.po", u"a.u.txt", u"a.u.txt"}), 1);
  EXPECT_EQ(Run({u"--convert", u"a.po", u"b.po"}), 1);
  EXPECT_EQ(Run({u"--fill", u"a.po", u"a.u.txt", u"b.po", u"--several", u"all"}), 2);
}

TEST_F(LexmillRun, PerformsARunAndPrintsTheRows) {
  EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--preset", u"full"}), 0) << Errors();
  EXPECT_EQ(FromAnsiBytes(ReadBytes(folder_.File("final"))), "9 1\t4 2\n&Open\t打开(&O)\n");
  EXPECT_TRUE(Output().starts_with("参照字典净化: 时间: ")) << Output();
  EXPECT_EQ(Errors(), "");
  // No settings are kept and no temporary file is left.
  EXPECT_EQ(programs_.Listing(), "POLOLID.ini batch lexmill-run sqlite");
}

TEST_F(LexmillRun, TakesOptionsInTheOrderSettingsPresetSingleOnes) {
  WriteBytes(folder_.File("my.ini"),
             "[LexmillCustomSetting]\r\nchkaUpperCase=1\r\ntxttAndXBK1=<\r\ntxttAndXBK2=>\r\n");
  WriteBytes(folder_.File("todo"), Ansi("&OPEN\t&OPEN\n"));
  EXPECT_EQ(Run({u"--settings", u"my.ini", u"todo", u"refer", u"final"}), 0) << Errors();
  EXPECT_EQ(FromAnsiBytes(ReadBytes(folder_.File("final"))), "&OPEN\t打开<&O>\n");
  EXPECT_EQ(Run({u"--settings", u"my.ini", u"todo", u"refer", u"final", u"--preset", u"full"}), 0);
  EXPECT_EQ(FromAnsiBytes(ReadBytes(folder_.File("final"))), "");
  EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--set", u"chkaUpperCase=1", u"--set",
                 u"chkNotAddANDX=1"}),
            0);
  EXPECT_EQ(FromAnsiBytes(ReadBytes(folder_.File("final"))), "&OPEN\t打开\n");
}

// Two that run at a time must not meet in a temporary file.
TEST_F(LexmillRun, DrawsOtherNamesThanItsLastRun) {
  for (const int runs : {1, 2}) {
    EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--set", u"chkaKeepTmpFile=1"}), 0) << Errors();
    const std::string names = programs_.Listing();
    std::size_t drawn = 0;
    for (std::size_t at = names.find("rad"); at != std::string::npos;
         at = names.find("rad", at + 1)) {
      ++drawn;
    }
    EXPECT_EQ(drawn, 5U * static_cast<unsigned>(runs)) << names;
  }
}

TEST_F(LexmillRun, RefusesWrongArguments) {
  for (const auto& arguments : std::vector<std::vector<std::u16string>>{
           {},
           {u"todo", u"refer"},
           {u"todo", u"refer", u"final", u"more"},
           {u"todo", u"refer", u"final", u"--preset", u"maximal"},
           {u"todo", u"refer", u"final", u"--preset"},
           {u"todo", u"refer", u"final", u"--what"},
           {u"todo", u"refer", u"final", u"--encoding", u"950"},
           {u"todo", u"refer", u"final", u"--refer", u"todo", u"--set", u"chkSaveRefDB=1"},
           {u"todo", u"refer", u"final", u"--work-dir", u"todo"},
           {u"todo", u"refer", u"final", u"--report", u"./refer"},
           {u"todo", u"refer", u"final", u"--report", u"final"},
           {u"todo", u"refer", u"final", u"--settings", u"missing.ini"},
           {u"todo", u"refer", u"final", u"--settings", u"."},
           {u"todo", u"refer", u"final", u"--set", u"chkaUpperCase"},
           {u"todo", u"refer", u"final", u"--set", u"chkaUpperCase=2"},
           {u"todo", u"refer", u"final", u"--set", u"cboToDo=x"},
           {u"todo", u"refer", u"final", u"--set", u"chkAdvMode=1"}}) {
    EXPECT_EQ(Run(arguments), 2);
    EXPECT_TRUE(Errors().starts_with("lexmill-run: ")) << Errors();
    EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "final"));
  }
}

TEST_F(LexmillRun, EndsWithACodeOfItsOwnWhereTooLittleWasFilled) {
  WriteBytes(folder_.File("todo"), Ansi("Open\tOpen\nLost\tLost\nGone\tGone\n"));
  for (const auto& [percent, exitCode] :
       {std::pair{u"33.3", 0}, {u"34", 3}, {u"100", 3}, {u"0", 0}}) {
    EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--fail-below", percent}), exitCode);
    EXPECT_EQ(FromAnsiBytes(ReadBytes(folder_.File("final"))), "Open\t打开\n");
  }
  EXPECT_EQ(Run({u"missing", u"refer", u"final", u"--fail-below", u"1"}), 1);
  WriteBytes(folder_.File("todo"), Ansi("Done\t完成\n"));
  EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--fail-below", u"100"}), 0);
  EXPECT_EQ(Errors(), "lexmill-run: 未译字典 todo 里没有未译的字串\n");
}

TEST_F(LexmillRun, ExplainsAStringAndEndsWithWhetherItIsKnown) {
  EXPECT_EQ(Run({u"--preset", u"full", u"--explain", u"--Open...", u"refer"}), 3) << Errors();
  EXPECT_EQ(
      Output(),
      "未译字串: “--Open...”\n  字串长度限制 (txtLenLimit=999999999): 9 个字符\n"
      "  \\t 后的快捷键 (chkaMTab=1): 不变\n  热键 (chkaAndX=1): 不变\n"
      "  前置、后置空格 (chkaLTrimSpace=1 chkaRTrimSpace=1): 不变\n"
      "  末尾标点 (chkaBanMaoHao=1 chkaBanSenHao=1): “--Open”\n  大小写 (chkaUpperCase=0): 关\n"
      "查找: “--Open”；译文后加 “...”\n参照字典 “refer”: 没有\n  没有相近的字串\n");
  EXPECT_EQ(Run({u"refer", u"--explain", u"&Open"}), 0) << Errors();
  EXPECT_EQ(Run({u"missing", u"--explain", u"&Open"}), 1);
  EXPECT_EQ(Run({u"--explain", u"&Open"}), 2);
  EXPECT_EQ(programs_.Listing(), "batch lexmill-run sqlite");
}

TEST_F(LexmillRun, PrintsTheReportAfterTheRows) {
  EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--report", u"-"}), 0) << Errors();
  EXPECT_NE(Output().find("\n译出 1 / 1 条\ntoDo\t1\n"), std::string::npos) << Output();
  EXPECT_TRUE(Output().ends_with("\n&Open\t1\tfilled\t打开(&O)\t打开(&O)\n")) << Output();
  EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--report", u"missing/report"}), 1);
}

TEST_F(LexmillRun, SaysHowItIsCalledAndItsVersion) {
  EXPECT_EQ(Run({u"--help"}), 0);
  EXPECT_TRUE(Output().starts_with("Usage: lexmill-run TODO REFER FINAL ")) << Output();
  EXPECT_EQ(Errors(), "");
  std::string manual = ReadBytes(u"../docs/lexmill-run.1");
  std::erase(manual, '\\');
  const std::string help = Output();
  for (std::size_t at = 0; (at = help.find(" --", at)) != std::string::npos; ++at) {
    const std::string option = help.substr(at + 1, help.find_first_of(" .,\n]", at + 1) - at - 1);
    EXPECT_NE(manual.find(option), std::string::npos) << option << " is not in the manual page";
  }
  EXPECT_EQ(Run({u"todo", u"--version", u"--what"}), 0);
  EXPECT_EQ(Output(), "lexmill-run 0.14\n");
  EXPECT_EQ(Run({u"--what", u"--help"}), 2);
  EXPECT_EQ(Run({u"--", u"--help", u"refer", u"final"}), 1) << "a path, and no such file";
}

TEST_F(LexmillRun, ReportsWhatFails) {
  EXPECT_EQ(Run({u"missing", u"refer", u"final"}), 1);
  EXPECT_TRUE(Errors().starts_with("错误:1\n")) << Errors();
  EXPECT_TRUE(Errors().ends_with("\nlexmill-run: 错误 1 的文件：" +
                                 (folder_.Path() / "missing").string() + "\n"))
      << Errors();
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "final"));

  WriteBytes(folder_.File("empty"), "");
  EXPECT_EQ(Run({u"empty", u"refer", u"final"}), 1);
  EXPECT_NE(Errors().find("错误:62"), std::string::npos) << Errors();

  EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--set", u"txtrAndXBK1=("}), 0);
  WriteBytes(folder_.File("refer"), Ansi("Open\t打开(&O)\n"));
  EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--set", u"txtrAndXBK1=("}), 1);
  EXPECT_NE(Errors().find("错误 5020 的选项：txtrAndXBK1\n"), std::string::npos) << Errors();

  EXPECT_EQ(Run({u"todo", u"refer", u"nowhere/final"}), 1);
  EXPECT_TRUE(Errors().ends_with("错误 76 的文件：" +
                                 SystemPath((folder_.Path() / "nowhere/final").string()) + "\n"))
      << Errors();
}

TEST_F(LexmillRun, ReportsWhatTheDatabaseShellComplainsOf) {
  EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--set", u"chkaKeepTmpFile=1"}), 0) << Errors();
  for (const auto& entry : std::filesystem::directory_iterator(programs_.Path())) {
    if (entry.path().extension() == ".db") {
      std::filesystem::rename(entry.path(), folder_.Path() / "kept.db");
    }
  }
  // The work database of an earlier run is a purified one that has had its load already.
  EXPECT_EQ(Run({u"todo", u"kept.db", u"final"}), 1);
  EXPECT_EQ(Errors(), "lexmill-run: the database shell says: SQL error: table S already exists\n");
}

TEST_F(LexmillRun, TakesPathsThatLookLikeOptions) {
  for (const auto* name : {"-todo", "--todo"}) {
    std::filesystem::copy(folder_.Path() / "todo", folder_.Path() / name);
  }
  EXPECT_EQ(Run({u"-todo", u"refer", u"-final"}), 0) << Errors();
  EXPECT_EQ(Run({u"--", u"--todo", u"refer", u"--final"}), 0) << Errors();
  EXPECT_EQ(ReadBytes(folder_.File("--final")), ReadBytes(folder_.File("-final")));
  EXPECT_EQ(FromAnsiBytes(ReadBytes(folder_.File("-final"))), "9 1\t4 2\n&Open\t打开(&O)\n");
}

TEST_F(LexmillRun, LeavesAnOldResultThatCannotBeReplaced) {
  WriteBytes(folder_.File("final"), "old");
  using std::filesystem::perms;
  std::filesystem::permissions(folder_.Path() / "final",
                               perms::owner_read | perms::group_read | perms::others_read);
  for (const auto* folder : {&programs_, &folder_}) {
    std::filesystem::permissions(folder->Path(), perms::all);
  }
  const OrdinaryUser user;
  EXPECT_EQ(Run({u"todo", u"refer", u"final"}), 1);
  EXPECT_NE(Errors().find("错误:70"), std::string::npos) << Errors();
  EXPECT_EQ(ReadBytes(folder_.File("final")), "old");
}

TEST_F(LexmillRun, ReportsThatADatabaseWasNotSaved) {
  const auto save = [&](const std::u16string& path) {
    return Run({u"todo", u"refer", u"final", u"--set", u"chkSaveRefDB=1", u"--set",
                u"txtSaveRefDB=" + path});
  };
  EXPECT_EQ(save(u"saved.db"), 0) << Errors();
  EXPECT_EQ(Errors(), "");
  EXPECT_EQ(save(u"missing/saved.db"), 1);
  EXPECT_EQ(Errors(), "lexmill-run: 数据库没有另存成功：" + (programs_.Path() / "").string() +
                          "missing/saved.db\n");
  // An older one is none of this run's.
  std::filesystem::remove(programs_.Path() / ProgramFile("batch"));
  EXPECT_EQ(save(u"saved.db"), 1);
  EXPECT_NE(Errors().find("数据库没有另存成功："), std::string::npos) << Errors();
}

TEST_F(LexmillRun, TakesTheCodePageOfItsSettings) {
  WriteBytes(programs_.File("Lexmill.ini"), "[LexmillPlatform]\r\nCodePage=1252\r\n");
  WriteBytes(folder_.File("todo"), "caf\xE9:\tcaf\xE9:\r\n");
  WriteBytes(folder_.File("refer"), "CAF\xC9\tkaf\xE9\r\n");
  EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--set", u"chkaUpperCase=1"}), 0) << Errors();
  EXPECT_EQ(ReadBytes(folder_.File("final")), "caf\xE9:\tkaf\xE9:\r\n");
  WriteBytes(folder_.File("po"), "msgid \"a\"\nmsgstr \"打\"\n");
  EXPECT_EQ(Run({u"todo", u"po", u"final"}), 1);
  EXPECT_NE(Errors().find("po”里有所选的代码页没有的字符：a\t打\n"), std::string::npos) << Errors();
  // The batch script can't hold a path that the page lacks.
  EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--set", u"chkSaveRefDB=1", u"--set",
                 u"txtSaveRefDB=打.db"}),
            1);
  EXPECT_NE(Errors().find("错误:5\n"), std::string::npos) << Errors();
  EXPECT_NE(Errors().find("'BuildBatScript'"), std::string::npos) << Errors();
}

TEST_F(LexmillRun, TakesTheEncodingOfItsArgumentsBeforeThatOfItsSettings) {
  WriteBytes(programs_.File("Lexmill.ini"), "[LexmillPlatform]\r\nCodePage=1252\r\n");
  const std::string mark = "\xEF\xBB\xBF";
  struct Case {
    const char16_t* encoding;
    std::string toDo, refer, result;
  };
  for (const auto& row : {
           Case{u"auto", Ansi("打\t打\n"), "打\t开\r\n", Ansi("打\t开\n")},
           Case{u"utf-8", "é\té\n", "é\tè\r\n", "é\tè\r\n"},
           Case{u"utf-8", mark + "é\té\n", mark + "é\tè\n", mark + "é\tè\r\n"},
           Case{u"936", "\xD6\xD0\t\xD6\xD0\n", "\xD6\xD0\t\xE4\xB8\n", "\xD6\xD0\t\xE4\xB8\r\n"},
       }) {
    WriteBytes(folder_.File("todo"), row.toDo);
    WriteBytes(folder_.File("refer"), row.refer);
    EXPECT_EQ(Run({u"todo", u"refer", u"final", u"--encoding", row.encoding, u"--set",
                   u"chkaUpperCase=1"}),
              0)
        << Errors();
    EXPECT_EQ(ReadBytes(folder_.File("final")), row.result);
  }
}

TEST_F(LexmillRun, LeavesAnInstalledFolderAloneAndWorksInAnother) {
  std::filesystem::create_directory(folder_.Path() / "工作 夹");
  const std::u16string work = folder_.File("工作 夹");
  const std::vector<std::u16string> arguments = {u"todo",
                                                 u"refer",
                                                 u"final",
                                                 u"--set",
                                                 u"chkaKeepTmpFile=1",
                                                 u"--set",
                                                 u"chkSaveRefDB=1",
                                                 u"--set",
                                                 u"txtSaveRefDB=saved.db",
                                                 u"--work-dir",
                                                 u"工作 夹"};
  EXPECT_EQ(Run(arguments), 0) << Errors();
  EXPECT_EQ(FromAnsiBytes(ReadBytes(folder_.File("final"))), "9 1\t4 2\n&Open\t打开(&O)\n");
  EXPECT_EQ(programs_.Listing(), "batch lexmill-run sqlite");
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(platform::HostPath(work).Native())) {
    ++files;
    EXPECT_TRUE(entry.path().filename() == "POLOLID.ini" || entry.path().filename() == "saved.db" ||
                entry.path().filename().string().starts_with("rad"))
        << entry;
  }
  EXPECT_EQ(files, 7);
}

TEST_F(LexmillRun, ReportsThatTheShellIsMissingAndGoesOn) {
  std::filesystem::remove(programs_.Path() / ProgramFile("sqlite"));
  EXPECT_EQ(Run({u"todo", u"refer", u"final"}), 1);
  EXPECT_EQ(Errors(),
            "lexmill-run: the program 'sqlite' is missing\n"
            "lexmill-run: 参照字典 refer 没有译出任何字串\n");
  EXPECT_EQ(ReadBytes(folder_.File("final")), "9 1\t4 2\r\n");
}

}  // namespace
}  // namespace lexmill::test
