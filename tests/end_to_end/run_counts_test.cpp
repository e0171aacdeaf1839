// SPDX-License-Identifier: MIT
// What runs count, in all pairs of formats and from a purified database.
#include <string>
#include <string_view>

#include "run/shared/run_state.h"
#include "tests/end_to_end/whole_run.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {
namespace {

// Looked for: Open three times, its translations differing; Save twice; Empty, whose translation is
// empty; Lost and its like twice. The rest takes no part.
constexpr std::string_view kToDo =
    "Open\tOpen\nSave\tSave\nOpen\tOpen\n&Open...\t&Open...\nSave\tSave\n"
    "Empty\tEmpty\nLost\tLost\nLost:\tLost:\nlonger than 20 characters\tlonger than 20 characters\n"
    "Done\t完成\nClose\t关闭\n";
constexpr std::string_view kReference =
    "Open\t打开\nSave\t保存\nOpen...\t开启\n&Open\t打开(&O)\nEmpty\t\nSame\tSame\nLost\tLost\n"
    "longer than 20 characters\t长\n";
constexpr std::string_view kHead = "9 1\t4 2\n";

// The entries of a glossary as a text.
std::string AsText(std::string_view glossary) {
  std::string text;
  for (int number = 1; !glossary.empty(); ++number) {
    std::string line(glossary.substr(0, glossary.find('\n')));
    glossary.remove_prefix(line.size() + 1);
    text += "\n" + std::to_string(number) + ":" + line.replace(line.find('\t'), 1, "\n") + "\n";
  }
  return text;
}

std::int64_t RowsOf(const std::string& table, const std::string& folder) {
  const std::string insert = "INSERT INTO " + table + " VALUES";
  std::int64_t rows = 0;
  for (const auto& file : std::filesystem::directory_iterator(folder)) {
    const std::string script = file.path().extension() == ".sql"
                                   ? ReadBytes(platform::FromUtf8(file.path().string()))
                                   : "";
    for (std::size_t at = 0; (at = script.find(insert, at)) != std::string::npos; ++at) {
      ++rows;
    }
  }
  return rows;
}

class RunCountsOf : public WholeRun {
 protected:
  RunCountsOf() {
    world_.window.txtLenLimit.Text(u"20");
    Write("todo.glo", std::string(kHead).append("a\tb\tc\n").append(kToDo));
    Write("ref.glo", std::string(kHead).append(kReference).append("a\tb\tc\nd\te\tf\n"));
    Write("todo.u.txt", AsText(kToDo));
    Write("ref.a.txt", AsText(kReference));
  }
  void Write(const std::string& name, std::string_view text) const {
    WriteBytes(Dictionary(name), Ansi(text));
  }
  [[nodiscard]] static DroppedEntries DroppedOf(const std::u16string& path) {
    return TheRun().counts.dropped[path];
  }
  void ExpectCountsOfTheUntranslated() const {
    const RunCounts& counts = TheRun().counts;
    EXPECT_TRUE(counts.Complete());
    EXPECT_EQ(counts.filled, 6);
    EXPECT_EQ(counts.several, 3);
    EXPECT_EQ(counts.Unknown(), 2);
    EXPECT_EQ(counts.tooLong, 1);
    EXPECT_EQ(counts.ToDo(), 9);
    EXPECT_EQ(counts.alreadyTranslated, 2);
    EXPECT_EQ(Readable(world_.window.lblSummary.Caption()), "译出 6 / 9 条；3 条有多种译法");
  }
};

TEST_F(RunCountsOf, AreTheSameInAllPairsOfFormats) {
  for (const std::string toDo : {"todo.glo", "todo.u.txt"}) {
    for (const std::string refer : {"ref.glo", "ref.a.txt"}) {
      SCOPED_TRACE(toDo + " " + refer);
      Press(toDo, refer, "final");
      ExpectCountsOfTheUntranslated();
      EXPECT_EQ(TheRun().counts.referenceEntries, 5);
      EXPECT_EQ(DroppedOf(Dictionary(toDo)),
                (DroppedEntries{.moreColumns = toDo == "todo.glo" ? 1 : 0}));
      EXPECT_EQ(DroppedOf(Dictionary(refer)),
                (DroppedEntries{
                    .moreColumns = refer == "ref.glo" ? 2 : 0, .equalSides = 2, .tooLong = 1}));
    }
  }
}

TEST_F(RunCountsOf, CountTheRowsOfTheUntranslatedScript) {
  world_.window.chkaKeepTmpFile.Value(1);
  Press("todo.u.txt", "ref.glo", "final");
  EXPECT_EQ(TheRun().counts.searched, RowsOf("S", world_.folder.Path().string()));
}

TEST_F(RunCountsOf, AreTheSameFromAPurifiedDatabase) {
  world_.window.chkSaveRefDB.Value(1);
  world_.window.txtSaveRefDB.Text(Dictionary("ref.db"));
  Press("todo.glo", "ref.glo", "final");
  for (const auto* toDo : {"todo.glo", "todo.u.txt"}) {
    SCOPED_TRACE(toDo);
    Press(toDo, "ref.db", "final");
    ExpectCountsOfTheUntranslated();
  }
}

}  // namespace
}  // namespace lexmill::test
