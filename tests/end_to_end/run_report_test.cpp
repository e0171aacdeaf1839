// SPDX-License-Identifier: MIT
// The report of a run.
#include "run/run_report.h"

#include <string>
#include <string_view>

#include "run/shared/run_state.h"
#include "tests/end_to_end/whole_run.h"
#include "tests/support/readable_text.h"

namespace lexmill::test {
namespace {

constexpr std::string_view kReference =
    "Open\t打开\nOpen\t开启\nSay\t说 \"你好\"\nlonger than 20 characters\t长\n";

class RunReport : public WholeRun {
 protected:
  RunReport() {
    world_.window.txtLenLimit.Text(u"20");
    WriteBytes(Dictionary("ref.glo"), Ansi(kReference));
  }
  ~RunReport() override { TheRun() = {}; }

  // The report, in UTF-8 with LF, of a run that translates `toDo`. Folders are left out of paths.
  std::string ReportOf(std::string_view toDo, std::string_view reportName) {
    WriteBytes(Dictionary("todo"), Ansi(toDo));
    TheRun().reportPath = Dictionary(reportName);
    Press("todo", "ref.glo", "final");
    std::string report = ReadBytes(Dictionary(reportName));
    std::erase(report, '\r');
    const std::string folder = Readable(Dictionary(""));
    std::string escaped;
    for (const char c : folder) {
      escaped.append(c == '\\' ? 2 : 1, c);
    }
    for (const std::string& written : {folder, escaped}) {
      for (std::size_t at = 0; (at = report.find(written)) != std::string::npos;) {
        report.erase(at, written.size());
      }
    }
    return report;
  }
};

TEST_F(RunReport, ListsTheStringsOfAGlossaryAsJson) {
  EXPECT_EQ(ReportOf("Open\tOpen\nA\tB\tC\n&Say...\t&Say...\nLost\tLost\nOpen\tOpen\n"
                     "longer than 20 characters\tlonger than 20 characters\nDone\t完成\n",
                     "report.json"),
            R"({
  "toDo": 5,
  "filled": 3,
  "several": 2,
  "unknown": 1,
  "tooLong": 1,
  "alreadyTranslated": 1,
  "referenceEntries": 3,
  "dropped": {"ref.glo": {"tooLong": 1}, "todo": {"moreColumns": 1}},
  "strings": [
    {"source": "Open", "count": 2, "state": "several", "translations": ["打开", "开启"], "written": ["打开", "开启"]},
    {"source": "&Say...", "count": 1, "state": "filled", "translations": ["说 \"你好\"(&S)..."], "written": ["说 \"你好\"(&S)..."]},
    {"source": "Lost", "count": 1, "state": "unknown", "translations": [], "written": []},
    {"source": "longer than 20 characters", "count": 1, "state": "tooLong", "translations": [], "written": []}
  ]
}
)");
}

TEST_F(RunReport, ReportsWhichTranslationIsInAText) {
  const std::string report = ReportOf("\n1:Open\nOpen\n2:a\\b\na\\b\n", "report.json");
  EXPECT_NE(report.find(R"("translations": ["打开", "开启"], "written": ["开启"]})"),
            std::string::npos)
      << report;
  EXPECT_NE(report.find(R"({"source": "a\\b", )"), std::string::npos) << report;
}

TEST_F(RunReport, IsATableThatASpreadsheetOpens) {
  EXPECT_EQ(ReportOf("Open\tOpen\nSay\tSay\nLost\tLost\n", "report.txt"),
            "\xEF\xBB\xBFtoDo\t3\nfilled\t2\nseveral\t1\nunknown\t1\ntooLong\t0\n"
            "alreadyTranslated\t0\nreferenceEntries\t3\ndropped\t1\ttooLong\tref.glo\n\n"
            "source\tcount\tstate\ttranslations\twritten\n"
            "Open\t1\tseveral\t\"打开\n开启\"\t\"打开\n开启\"\n"
            "Say\t1\tfilled\t\"说 \"\"你好\"\"\"\t\"说 \"\"你好\"\"\"\n"
            "Lost\t1\tunknown\t\t\n");
}

TEST_F(RunReport, HoldsNothingButText) {
  WriteBytes(Dictionary("todo"), "a\x81\ta\x81\r\n");
  TheRun().reportPath = Dictionary("report.json");
  Press("todo", "ref.glo", "final");
  EXPECT_NE(ReadBytes(Dictionary("report.json")).find("\"a\xEF\xBF\xBD\""), std::string::npos);
}

TEST_F(RunReport, CountsTheRowsOfAPurifiedDatabase) {
  world_.window.chkSaveRefDB.Value(1);
  world_.window.txtSaveRefDB.Text(Dictionary("saved ref.db"));
  const std::string from = ReportOf("Open\tOpen\n", "report.txt");
  TheRun().reportPath = Dictionary("report.txt");
  Press("todo", "saved ref.db", "final");
  EXPECT_NE(ReadBytes(Dictionary("report.txt")).find("referenceEntries\t3\r\n"), std::string::npos);
}

TEST_F(RunReport, LiesBesideTheResultIfTheSettingsSaySoAndOpensByAClick) {
  WriteBytes(Dictionary("todo"), "Open\tOpen\r\n");
  Press("todo", "ref.glo", "out.glo");
  world_.window.lblSummary.UserClicks();
  EXPECT_EQ(dictionaries_.Listing(), "out.glo ref.glo todo");
  WriteBytes(world_.folder.File("Lexmill.ini"), "[LexmillPlatform]\r\nReport=1\r\n");
  ReadReportSetting();
  Press("todo", "ref.glo", "out.glo");
  EXPECT_EQ(dictionaries_.Listing(), "out.glo out.glo.report.txt ref.glo todo");
  world_.window.lblSummary.UserClicks();
  ASSERT_EQ(world_.session.openedTargets.size(), 1U);
  EXPECT_EQ(world_.session.openedTargets.front(), Dictionary("out.glo.report.txt"));
}

}  // namespace
}  // namespace lexmill::test
