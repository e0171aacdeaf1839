// SPDX-License-Identifier: MIT
#include "tests/end_to_end/whole_run.h"

#include "platform/host/application.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {

WholeRun::WholeRun() {
  for (const auto* program : {"batch", "sqlite"}) {
    LendProgram(LEXMILL_PROGRAMS, program, world_.folder.Path());
  }
  platform::SetApplicationFolder(platform::FromUtf8(world_.folder.Path().string()));
  world_.window.Show();
  world_.window.CfgLoadMaxToCtrl();
}

WholeRun::~WholeRun() {
  for (const auto& message : world_.session.messages) {
    ADD_FAILURE() << "a message that the test did not expect: " << Readable(message.text);
  }
}

void WholeRun::Press(std::string_view toDo, std::string_view refer, std::string_view result) {
  world_.window.cboToDo.Text(Dictionary(toDo));
  world_.window.cboRefer.Text(Dictionary(refer));
  world_.window.cboFinal.Text(Dictionary(result));
  world_.window.cmdStart.UserClicks();
}

std::string WholeRun::ResultOf(std::string_view toDo, std::string_view refer) {
  WriteBytes(Dictionary("todo"), Ansi(toDo));
  WriteBytes(Dictionary("refer"), Ansi(refer));
  Press("todo", "refer", "final");
  return FromAnsiBytes(ReadBytes(Dictionary("final")));
}

void WholeRun::ExpectNoTemporaryFiles() const {
  std::string expected;
  for (const std::string name : {"Lexmill.ini", "POLOLID.ini", "batch", "sqlite"}) {
    const auto path = world_.folder.Path() / name;
    if (exists(path) || exists(path.parent_path() / ProgramFile(name))) {
      expected += (expected.empty() ? "" : " ") + name;
    }
  }
  EXPECT_EQ(world_.folder.Listing(), expected);
}

}  // namespace lexmill::test
