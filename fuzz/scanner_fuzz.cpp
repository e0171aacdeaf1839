// SPDX-License-Identifier: MIT
// The record scanner and the recognition of formats on files of any content.
#include <tuple>

#include "foundation/entry_point.h"
#include "fuzz/fuzz_input.h"
#include "glossary/record_scanner.h"
#include "platform/host/application.h"
#include "run/dictionary_encoding.h"
#include "run/dictionary_format.h"
#include "run/shared/run_state.h"

namespace lexmill::fuzz {
namespace {

void CheckRecord(const RecordScanner& scanner) {
  const std::u16string_view record = scanner.Field(0);
  Require(!record.empty(), "a line of no characters is no record");
  Require(record.find(u'\n') == std::u16string_view::npos, "a record is one line");
  std::u16string joined(scanner.Field(1));
  const std::int32_t count = std::min(scanner.FieldCount(), RecordScanner::kMostFields - 1);
  for (std::int32_t i = 2; i <= count; ++i) {
    joined.append(u"\t").append(scanner.Field(static_cast<std::int16_t>(i)));
  }
  Require(record.starts_with(joined), "the fields make up the record");
  Require(scanner.FieldCount() == RecordScanner::kMostFields || joined == record,
          "no field is left out");
}

void Scan(const std::u16string& path) {
  RecordScanner scanner;
  std::int32_t percent = 0;
  const auto connection =
      scanner.Connect([] {},
                      [&] {
                        CheckRecord(scanner);
                        Require(scanner.ProgressPercent() >= percent, "the percentage never falls");
                        percent = scanner.ProgressPercent();
                      },
                      [] {});
  scanner.FieldSeparator(u"\t");
  scanner.ScanFile(path);
  scanner.ScanAction(RecordScanner::kRun);
  Require(scanner.ProgressPercent() == 100, "a scan ends at 100");
}

}  // namespace
}  // namespace lexmill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const lexmill::fuzz::ScratchFolder folder;
  lexmill::TheRun().AppPath = folder.Path("");
  lexmill::platform::SetApplicationFolder(folder.Path(""));
  const std::u16string path = folder.Path("dictionary");
  folder.Write("dictionary", lexmill::fuzz::Input(data, size).Rest());
  lexmill::TheRun().dictionaries[path] = lexmill::RecogniseEncoding(path);
  lexmill::fuzz::Scan(path);
  lexmill::IgnoreFailures([&] {
    std::u16string pair;
    std::ignore = lexmill::modMain::DetectDictionaryFormat(path, pair);
  });
  return 0;
}
