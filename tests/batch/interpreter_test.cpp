// SPDX-License-Identifier: MIT
#include "platform/batch/interpreter.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/host/host_path.h"
#include "platform/text/ansi_text.h"
#include "tests/support/files.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform::batch {
namespace {

constexpr const char* kUnknown =
    "'nosuch' 不是内部或外部命令，也不是可运行的程序\n或批处理文件。\n";

/// Runs scripts in a fresh folder that holds `data` ("content"), `other` ("old") and a subfolder
/// `sub`. What they print goes to files outside of it.
class InterpreterTest : public testing::Test {
 protected:
  InterpreterTest() {
    std::filesystem::current_path(folder_.Path());
    std::filesystem::create_directory(folder_.Path() / "sub");
    test::WriteBytes(folder_.File("data"), "content");
    test::WriteBytes(folder_.File("other"), "old");
  }
  ~InterpreterTest() override { std::filesystem::current_path(startFolder_); }

  /// Runs `script`, UTF-8 with LF, which is written in the code page with CR LF.
  void Run(std::string_view script) { RunBytes(test::Ansi(script)); }

  void RunBytes(std::string_view bytes) {
    const auto path = streams_.File("script.bat");
    test::WriteBytes(path, bytes);
    RunArguments({path});
  }

  void RunArguments(const std::vector<std::u16string>& arguments) {
    HostFile input = *HostFile::Open(HostPath(kNullDevice), OpenMode::Read);
    HostFile output = Stream("output");
    HostFile error = Stream("error");
    Interpreter interpreter(input, output, error);
    exitCode_ = RunBatch(arguments, interpreter, error);
    output_ = test::FromAnsiBytes(test::ReadBytes(streams_.File("output")));
    error_ = test::FromAnsiBytes(test::ReadBytes(streams_.File("error")));
  }

  HostFile Stream(const char* name) const {
    return *HostFile::Open(HostPath(streams_.File(name)), OpenMode::ReadWriteReplace);
  }

  /// The full path of `name` as messages show it.
  std::string FullPath(const char* name) const { return (folder_.Path() / name).string(); }

  /// What goes before a line that is shown.
  std::string Prompt() const { return std::string("\n") + folder_.Path().string() + ">"; }

  /// The content of `name` in the folder; "-" if there is no such file.
  std::string Content(const char* name) const {
    return std::filesystem::exists(folder_.Path() / name) ? test::ReadBytes(folder_.File(name))
                                                          : "-";
  }

  std::filesystem::path startFolder_ = std::filesystem::current_path();
  test::TemporaryFolder streams_;
  test::TemporaryFolder folder_;
  int exitCode_ = 0;
  std::string output_;
  std::string error_;
};

TEST_F(InterpreterTest, Echoes) {
  struct Case {
    const char* script;
    std::string output;
  };
  const Case cases[] = {
      {"", ""},
      {"@echo off", ""},
      {"@echo name.sql", "name.sql\n"},
      {"@echo   two ", "  two \n"},
      {"@echo.", "\n"},
      {"@ECHO.a", "a\n"},
      {"@echo \"a>b\" & %c%^", "\"a>b\" & %c%^\n"},
      {"@echo 译文，", "译文，\n"},
      {"@echo off\necho\necho \n\necho  \n",
       "ECHO 处于关闭状态。\nECHO 处于关闭状态。\n"
       "ECHO 处于关闭状态。\n"},
      {"@echo off\n@Echo On\n@echo", "ECHO 处于打开状态。\n"},
      {" @ @echo offer", "offer\n"},
      {"@", ""},
      {"echo a\n\necho off\necho b", Prompt() + "echo a\na\n" + Prompt() + "echo off\nb\n"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.script);
    Run(row.script);
    EXPECT_EQ(output_, row.output);
    EXPECT_EQ(error_, "");
  }
}

TEST_F(InterpreterTest, TakesLineEndsAndCodePageAsTheyCome) {
  RunBytes("@echo off\necho a\r\necho b\rc\necho \xD2\xEB\x81|");
  EXPECT_EQ(test::ReadBytes(streams_.File("output")), "a\r\nb\rc\r\n\xD2\xEB\x81|\r\n");
  EXPECT_EQ(error_, "");
}

TEST_F(InterpreterTest, CopiesAFileInOneStep) {
  struct Case {
    const char* line;
    const char* output;
    const char* error;
    const char* target;
    const char* content;
  };
  constexpr Case kCases[] = {
      {"copy data new", "已复制         1 个文件。\n", "", "new", "content"},
      {"COPY \"data\" \"a b\">nul", "", "", "a b", "content"},
      {"copy data 译文>NUL", "", "", "译文", "content"},
      {"copy data other>nul", "", "", "other", "content"},
      {"copy data sub>nul", "", "", "sub/data", "content"},
      {"copy data nul", "已复制         1 个文件。\n", "", "nul", "-"},
      {"copy missing data>nul", "", "系统找不到指定的文件。\n", "data", "content"},
      {"copy no/data data", "", "系统找不到指定的路径。\n", "data", "content"},
      {"copy data no/new", "已复制         0 个文件。\n", "系统找不到指定的路径。\n", "no", "-"},
      {"copy sub new2", "已复制         0 个文件。\n", "拒绝访问。\n", "new2", "-"},
      {"copy data", "", "命令语法不正确。\n", "data", "content"},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.line);
    Run(std::string("@echo off\n") + row.line);
    EXPECT_EQ(output_, row.output);
    EXPECT_EQ(error_, row.error);
    EXPECT_EQ(Content(row.target), row.content);
    EXPECT_EQ(exitCode_, *row.error == '\0' ? 0 : 1);
  }
  EXPECT_EQ(folder_.Listing(), "a b data new other sub 译文");
}

TEST_F(InterpreterTest, CopiesNoDatabaseThatWasLeftEmptyOrHalfChanged) {
  test::WriteBytes(folder_.File("empty"), "");
  Run("@copy empty data>nul");
  EXPECT_EQ(error_, "拒绝访问。\n");
  EXPECT_EQ(Content("data"), "content");
  test::WriteBytes(folder_.File("data-journal"), "");
  Run("@copy data first>nul");
  test::WriteBytes(folder_.File("data-journal"), "pages");
  Run("@copy data second>nul");
  EXPECT_EQ(error_, "拒绝访问。\n");
  EXPECT_EQ(Content("first"), "content");
  EXPECT_EQ(Content("second"), "-");
}

TEST_F(InterpreterTest, DeletesByNameOnly) {
  test::WriteBytes(folder_.File("a b"), "");
  Run("@del data \"a b\"\n"
      "@del missing\n"
      "@del \"sub/../no name\"\n"
      "@del o*\n"
      "@del sub\n"
      "@del /proc/version\n"
      "@del");
  EXPECT_EQ(output_, "");
  EXPECT_EQ(error_, "找不到 " + FullPath("missing") + "\n找不到 " + FullPath("no name") +
                        "\n找不到 " + FullPath("o*") + "\n找不到 " + FullPath("sub") +
                        "\n/proc/version\n拒绝访问。\n命令语法不正确。\n");
  EXPECT_EQ(folder_.Listing(), "other sub");
}

TEST_F(InterpreterTest, RunsProgramsWithTheirRedirections) {
  struct Case {
    const char* line;
    std::string output;
    std::string error;
    int exitCode;
  };
  const Case cases[] = {
      {"cat<data", "content", "", 0},
      {"cat", "", "", 0},
      {"cat data other", "contentold", "", 0},
      {"printf [%%s]", "[%s]", "", 0},
      {"printf [%s] -sep \"\t\" \"\" \"a>b < c & d | e\"", "[-sep][\t][][a>b < c & d | e]", "", 0},
      {"printf [%s] $HOME * ~ ^& | %PATH%", "[$HOME][*][~][^&][|][%PATH%]", "", 0},
      {"false", "", "", 1},
      {"sh -c \"echo e >&2; exit 7\">nul", "", "e\n", 7},
      {"sh -c \"kill -9 $$\"", "", "", 128 + 9},
      {"\"printf\" \"a b\"c\"", "a bc", "", 0},
      {"\"echo\" -n a", "a", "", 0},
      {"<data cat - <other", "old", "", 0},
      {"cat<missing", "", "系统找不到指定的文件。\n", 1},
      {"cat<no/in", "", "系统找不到指定的路径。\n", 1},
      {"cat<sub", "", "拒绝访问。\n", 1},
      {"touch ran>no/out", "", "系统找不到指定的路径。\n", 1},
      {"touch ran>sub", "", "拒绝访问。\n", 1},
      {"touch ran>>ran", "", "命令语法不正确。\n", 1},
      {"touch ran<\"\"", "", "命令语法不正确。\n", 1},
      {"nosuch a b", "", kUnknown, 1},
      {"nosuch<missing>ran", "", "系统找不到指定的文件。\n", 1},
      {"echo x>no/out", "", "系统找不到指定的路径。\n", 1},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.line);
    Run(std::string("@") + row.line);
    EXPECT_EQ(output_, row.output);
    EXPECT_EQ(error_, row.error);
    EXPECT_EQ(exitCode_, row.exitCode);
    EXPECT_EQ(folder_.Listing(), "data other sub");
  }
}

TEST_F(InterpreterTest, PutsTheOutputInItsPlaceWhenTheLineHasRun) {
  struct Case {
    const char* line;
    const char* content;
  };
  constexpr Case kCases[] = {
      {"cat data>  \"f\"", "content"},
      {"cat f>f", "something longer than the result"},
      {"printf %s a>f b", "ab"},
      {"nosuch>f", ""},
      {"echo x >f", "x \r\n"},
      {">f echo y", "y\r\n"},
      {"cat<data>\"f\"", "content"},
      {"echo a>g >f", "a \r\n"},
      {"sh -c \"echo a; exit 1\">f", "a\n"},
      {"sh -c \"echo a; kill -9 $$\">f", "something longer than the result"},
      {"sh -c \"echo a; exit 74\">f", "something longer than the result"},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.line);
    test::WriteBytes(folder_.File("f"), "something longer than the result");
    Run(std::string("@") + row.line);
    EXPECT_EQ(Content("f"), row.content);
    EXPECT_EQ(output_, "");
    std::filesystem::remove(folder_.Path() / "g");
    EXPECT_EQ(folder_.Listing(), "data f other sub");
  }
}

TEST_F(InterpreterTest, RunsEveryLineWhateverBecameOfTheOneBefore) {
  Run("@echo off\nnosuch\ncat<missing\ndel missing\ncopy missing x\nfalse\necho end\ntrue\necho.");
  EXPECT_EQ(output_, "end\n\n");
  EXPECT_EQ(error_, kUnknown + std::string("系统找不到指定的文件。\n找不到 ") +
                        FullPath("missing") + "\n系统找不到指定的文件。\n");
  EXPECT_EQ(exitCode_, 0);
}

TEST_F(InterpreterTest, TakesAScriptOrALine) {
  struct Case {
    std::vector<std::u16string> arguments;
    const char* output;
    int exitCode;
  };
  const Case cases[] = {
      {{u"/c", u"echo \"a  b\""}, "\"a  b\"\n", 0},
      {{u"/c", u"echo", u"a", u"b"}, "a b\n", 0},
      {{u"/c", u"echo"}, "ECHO 处于打开状态。\n", 0},
      {{u"/c", u"nosuch"}, "", 1},
      {{u"missing.bat"}, "", 1},
      {{u"sub"}, "", 1},
      {{}, "", 2},
      {{u"/c"}, "", 1},
  };
  for (const auto& row : cases) {
    RunArguments(row.arguments);
    EXPECT_EQ(output_, row.output);
    EXPECT_EQ(exitCode_, row.exitCode);
    EXPECT_EQ(error_.empty(), row.exitCode == 0);
  }
}

}  // namespace
}  // namespace lexmill::platform::batch
