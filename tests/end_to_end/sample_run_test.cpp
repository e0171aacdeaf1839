// SPDX-License-Identifier: MIT
// The sample dictionaries in all pairs of formats and encodings, compared with results checked by
// hand.
#include "tests/end_to_end/whole_run.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {
namespace {

std::u16string Sample(const std::string& name) {
  return platform::FromUtf8("../samples/" + name);
}

class SampleRun : public WholeRun {
 protected:
  std::string Result(const std::string& toDo, const std::string& refer) {
    world_.window.cboToDo.Text(Sample(toDo));
    world_.window.cboRefer.Text(Sample(refer));
    world_.window.cboFinal.Text(Dictionary("final"));
    world_.window.cmdStart.UserClicks();
    ExpectNoTemporaryFiles();
    return ReadBytes(Dictionary("final"));
  }
};

// The lines of a file in UTF-8, ended by LF.
std::string Utf8Lines(std::string bytes) {
  std::erase(bytes, '\r');
  return bytes;
}

// The reference's format and encoding make no difference; the result has those of the untranslated
// dictionary.
TEST_F(SampleRun, TranslatesTheGlossary) {
  const std::string expected = FromAnsiBytes(ReadBytes(u"data/end_to_end/sample-result.glo"));
  for (const auto* refer : {"ref.glo", "ref-utf8.glo", "ref.a.txt", "ref-utf8.a.txt"}) {
    SCOPED_TRACE(refer);
    EXPECT_EQ(FromAnsiBytes(Result("todo.glo", refer)), expected);
    EXPECT_EQ(Utf8Lines(Result("todo-utf8.glo", refer)), expected);
  }
}

TEST_F(SampleRun, TranslatesTheText) {
  const std::string expected = FromAnsiBytes(ReadBytes(u"data/end_to_end/sample-result.u.txt"));
  for (const auto* refer : {"ref.glo", "ref-utf8.glo", "ref.a.txt", "ref-utf8.a.txt"}) {
    SCOPED_TRACE(refer);
    EXPECT_EQ(FromAnsiBytes(Result("todo.u.txt", refer)), expected);
    EXPECT_EQ(Utf8Lines(Result("todo-utf8.u.txt", refer)), expected);
  }
}

}  // namespace
}  // namespace lexmill::test
