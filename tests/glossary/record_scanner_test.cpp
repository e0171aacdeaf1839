// SPDX-License-Identifier: MIT
#include "glossary/record_scanner.h"

#include <initializer_list>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/failure.h"
#include "run/shared/run_state.h"
#include "tests/support/files.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using platform::Failure;
using test::Readable;
using testing::Property;
using testing::Throws;

class RecordScannerTest : public testing::Test {
 protected:
  RecordScannerTest() { TheRun() = {}; }

  void Scan(std::string_view bytes) {
    test::WriteBytes(path, bytes);
    ScanWhatIsThere();
  }
  void ScanWhatIsThere() {
    scanner.ScanAction(RecordScanner::kReset);
    scanner.FieldSeparator(u"\t");
    scanner.ScanFile(path);
    scanner.ScanAction(RecordScanner::kRun);
  }
  /// Events in order: "<" and ">" for begin and end, "(a|b)" for a record of two fields.
  ScannerConnection Transcribe(std::string& events) {
    return scanner.Connect([&events] { events += "<"; },
                           [this, &events] {
                             std::string fields;
                             for (std::int16_t n = 1; n <= scanner.FieldCount(); ++n) {
                               fields.append(n == 1 ? "" : "|").append(Readable(scanner.Field(n)));
                             }
                             events.append("(").append(fields).append(")");
                           },
                           [&events] { events += ">"; });
  }

  test::TemporaryFolder folder;
  std::u16string path = folder.File("scanned");
  RecordScanner scanner;
};

TEST_F(RecordScannerTest, ReportsLinesAndTheirFields) {
  struct Case {
    const char* name;
    std::string bytes;
    std::string events;
  };
  const Case cases[] = {
      {"no byte", "", "<>"},
      {"line ends only", "\r\n\n\r\n", "<>"},
      {"a line without its end", "a\tb\r\nc", "<(a|b)(c)>"},
      {"both line ends", "a\nb\r\nc\n", "<(a)(b)(c)>"},
      {"a lone CR", "a\rb\tc\r\r\n", "<(a\rb|c\r)>"},
      {"blank lines between records", "\r\na\r\n\r\nb\r\n", "<(a)(b)>"},
      {"empty fields are not merged", "so\t\tr2\t\t\r\n", "<(so||r2||)>"},
      {"a separator first", "\tx\r\n", "<(|x)>"},
      {"a separator alone", "\t\r\n", "<(|)>"},
      {"blanks, quotes, backslashes", " a \t\"b\\t'&\r\n", "<( a |\"b\\t'&)>"},
      {"NUL", {"a\0b\tc\r\n", 7}, {"<(a\0b|c)>", 9}},
      {"trail bytes in the ASCII range", "\xD5\x5C\x81\x7C\t\xB4\xF2\r\n", "<(誠亅|打)>"},
      {"a lead byte before a separator", "a\xB4\tb\r\n", "<(a<DCB4>|b)>"},
  };
  std::string events;
  const ScannerConnection connection = Transcribe(events);
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    events.clear();
    Scan(row.bytes);
    EXPECT_EQ(events, row.events);
  }
}

TEST_F(RecordScannerTest, ReadsADictionaryInItsOwnEncoding) {
  TheRun().dictionaries[path].encoding = platform::TextEncoding::Utf8WithMark;
  std::string events;
  const ScannerConnection connection = Transcribe(events);
  Scan("\xEF\xBB\xBF打\t开\r\n");
  EXPECT_EQ(events, "<(打|开)>");
}

TEST_F(RecordScannerTest, GivesTheWholeRecordAndNothingBeyondItsFields) {
  std::string seen;
  const platform::Connection connection = scanner.ScanRecord.Connect([&] {
    for (const std::int16_t n : std::initializer_list<std::int16_t>{0, 2, 3, 32767, -1}) {
      seen.append("[").append(Readable(scanner.Field(n))).append("]");
    }
  });
  Scan("a\tb\r\nno tab\r\n");
  EXPECT_EQ(seen, "[a\tb][b][][][][no tab][][][][]");
}

TEST_F(RecordScannerTest, CountsNoMoreFieldsThanA16BitIntegerHolds) {
  std::string seen;
  const platform::Connection connection = scanner.ScanRecord.Connect([&] {
    seen += std::to_string(scanner.FieldCount()) + " of " +
            std::to_string(scanner.Field(0).size()) + ", last " + Readable(scanner.Field(32767)) +
            "; ";
  });
  const std::string most = std::string(32766, '\t') + "x";
  Scan(most + "\r\n" + most + "\ty\tz\r\n");
  EXPECT_EQ(seen, "32767 of 32767, last x; 32767 of 32771, last x; ");
}

TEST_F(RecordScannerTest, ProgressRisesToAHundred) {
  std::string percents;
  const auto note = [&] { percents += std::to_string(scanner.ProgressPercent()) + " "; };
  const ScannerConnection connection = scanner.Connect(note, note, note);
  struct Case {
    std::string bytes;
    const char* percents;
  };
  const Case cases[] = {
      {"12\r\n12\r\n12\r\n", "0 33 66 100 100 "},
      {"12\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n", "0 20 100 "},
      {"", "0 100 "},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.bytes);
    percents.clear();
    Scan(row.bytes);
    EXPECT_EQ(percents, row.percents);
  }
}

TEST_F(RecordScannerTest, AMissingFileFailsBeforeAnyEvent) {
  std::string events;
  const ScannerConnection connection = Transcribe(events);
  EXPECT_THAT([this] { ScanWhatIsThere(); }, Throws<Failure>(Property(&Failure::Number, 53)));
  EXPECT_EQ(events, "");
}

TEST_F(RecordScannerTest, AFailureOfTheListenerEndsTheScanAndNoLaterOne) {
  std::string events;
  {
    const ScannerConnection connection = scanner.Connect([] {},
                                                         [&events, this] {
                                                           events += Readable(scanner.Field(0));
                                                           if (events == "ab") {
                                                             throw Failure(7, u"no more");
                                                           }
                                                         },
                                                         [&events] { events += ">"; });
    EXPECT_THAT([this] { Scan("a\r\nb\r\nc\r\n"); },
                Throws<Failure>(Property(&Failure::Number, 7)));
    EXPECT_EQ(events, "ab");
  }
  events.clear();
  const ScannerConnection connection = Transcribe(events);
  ScanWhatIsThere();
  EXPECT_EQ(events, "<(a)(b)(c)>");
}

TEST_F(RecordScannerTest, RefusesSettingsThatHaveNoMeaning) {
  const auto refused = Throws<Failure>(Property(&Failure::Number, 380));
  EXPECT_THAT([this] { scanner.FieldSeparator(u""); }, refused);
  EXPECT_THAT([this] { scanner.FieldSeparator(u"\t\t"); }, refused);
  EXPECT_THAT([this] { scanner.ScanAction(1); }, refused);
}

}  // namespace
}  // namespace lexmill
