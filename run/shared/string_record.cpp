// SPDX-License-Identifier: MIT
#include "run/shared/string_record.h"

#include "foundation/entry_point.h"
#include "platform/failure.h"

namespace lexmill {
namespace {

platform::ScratchDatabase WithTables() {
  platform::ScratchDatabase database;
  database.Execute(
      "BEGIN;"
      "CREATE TABLE Entries(source,tooLong);"
      "CREATE TABLE Translations(source,translation)");
  return database;
}

}  // namespace

StringRecord::StringRecord()
    : database_(WithTables()),
      addEntry_(database_, "INSERT INTO Entries VALUES (?,?)"),
      addTranslation_(database_, "INSERT INTO Translations VALUES (?,?)"),
      translationsOf_(database_,
                      "SELECT translation FROM Translations WHERE source=? ORDER BY rowid") {}

void StringRecord::AddEntry(std::u16string_view source, bool tooLong) {
  AddRow(addEntry_, [&] {
    addEntry_.Bind(1, source);
    addEntry_.Bind(2, tooLong ? 1 : 0);
  });
}

void StringRecord::AddTranslation(std::u16string_view source, std::u16string_view translation) {
  AddRow(addTranslation_, [&] {
    addTranslation_.Bind(1, source);
    addTranslation_.Bind(2, translation);
  });
}

void StringRecord::AddRow(platform::ScratchStatement& insert,
                          const std::function<void()>& bindValues) {
  isComplete_ = isComplete_ && IgnoreFailures([&] {
                  bindValues();
                  insert.Run();
                });
}

void StringRecord::ForEach(const std::function<void(const RecordedString&)>& onString) {
  if (!isComplete_) {
    throw platform::Failure(platform::FailureNumber::DiskFull, platform::FailureOrigin::Runtime);
  }
  database_.Execute("CREATE INDEX TranslationsBySource ON Translations(source); COMMIT");
  platform::ScratchStatement strings(
      database_,
      "SELECT source,COUNT(*),MAX(tooLong) FROM Entries GROUP BY source ORDER BY MIN(rowid)");
  RecordedString string;
  while (strings.Step()) {
    string.source = strings.Text(0);
    string.count = strings.Number(1);
    string.tooLong = strings.Number(2) != 0;
    string.translations = TranslationsOf(string.source);
    onString(string);
  }
}

std::vector<std::u16string> StringRecord::TranslationsOf(std::u16string_view source) {
  std::vector<std::u16string> translations;
  translationsOf_.Bind(1, source);
  while (translationsOf_.Step()) {
    translations.push_back(translationsOf_.Text(0));
  }
  return translations;
}

}  // namespace lexmill
