// SPDX-License-Identifier: MIT
#include "pipeline/batch_script.h"

#include "foundation/entry_point.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/host/clock.h"
#include "run/shared/file_extension.h"
#include "run/shared/option_set.h"
#include "run/shared/run_state.h"

namespace lexmill {
namespace {

// The module that every failed BuildBatScript names, whichever class it belongs to.
constexpr std::u16string_view kPlace = u"Class Module 'clsLexAwkAct' -> 'BuildBatScript'";

constexpr std::u16string_view kJoin =
    u" \"SELECT DISTINCT S.so,S.sh,R.r2,S.sk,S.st FROM R INNER JOIN S ON R.r1=S.sm;\">";
constexpr std::u16string_view kJoinWithoutCase =
    u" \"SELECT DISTINCT S.so,S.sh,R.r2,S.sk,S.st FROM R INNER JOIN S ON Upper(R.r1)=S.sm;\">";
constexpr std::u16string_view kPairListing = u" \"SELECT r1,r2 FROM R;\">";
constexpr std::u16string_view kEntryListing = u" \"SELECT o0,o2 FROM O;\">";

platform::TextWriter CreateScript(const std::u16string& path) {
  return platform::FileSystemObject().CreateTextFile(path, true);
}

void WriteLoad(platform::TextWriter& script, const std::u16string& database,
               const std::u16string& sql) {
  script.WriteLine(u"sqlite " + database + u"<" + sql);
}

void WriteEchoAndLoad(platform::TextWriter& script, const std::u16string& database,
                      const std::u16string& sql) {
  script.WriteLine(u"echo " + sql);
  WriteLoad(script, database, sql);
}

void WriteCopy(platform::TextWriter& script, std::u16string_view purified,
               const std::u16string& database) {
  script.WriteLine(u"copy " + QuotedPath(purified) + u" " + database + u">nul");
}

// Returns where the database is saved.
std::u16string WriteSave(platform::TextWriter& script, const std::u16string& database) {
  std::u16string sSavedDb = SavedDatabasePath();
  const std::u16string quoted = QuotedPath(sSavedDb);
  script.WriteLine(u"del " + quoted);
  script.WriteLine(u"copy " + database + u" " + quoted + u">nul");
  return sSavedDb;
}

// The lines up to the point where the database holds R and its index and nothing else.
void WriteReferenceLines(platform::TextWriter& script, auto& files) {
  const std::u16string& purified = TheRun().RefDbPath;
  script.WriteLine(u"@echo off");
  script.WriteLine(u"echo " + files.sRefSqlFile);
  if (!purified.empty()) {
    WriteCopy(script, purified, files.sDbFile);
    return;
  }
  WriteLoad(script, files.sDbFile, files.sRefSqlFile);
  if (RunOptions().chkSaveRefDB) {
    files.sSavedDb = WriteSave(script, files.sDbFile);
  }
}

void WriteJoin(platform::TextWriter& script, const std::u16string& database,
               const std::u16string& ready) {
  std::u16string line = u"sqlite -separator \"\t\" " + database;
  line += RunOptions().chkaUpperCase ? kJoinWithoutCase : kJoin;
  script.WriteLine(u"echo " + ready);
  script.WriteLine(line + ready);
}

void WriteDeletes(platform::TextWriter& script, std::initializer_list<std::u16string> names) {
  if (RunOptions().chkaKeepTmpFile) {
    return;
  }
  for (const auto& name : names) {
    script.WriteLine(u"del " + name);
  }
}

// Each further reference in a database of its own, with the untranslated script once more.
void WriteMoreReferences(platform::TextWriter& script, const auto& files) {
  for (const MoreReferenceFiles& more : files.more) {
    if (more.isDatabase) {
      WriteCopy(script, more.path, more.sDbFile);
    } else {
      WriteEchoAndLoad(script, more.sDbFile, more.sRefSqlFile);
      WriteDeletes(script, {more.sRefSqlFile});
    }
    WriteEchoAndLoad(script, more.sDbFile, files.sToDoSqlFile);
    WriteJoin(script, more.sDbFile, more.sReadyFile);
    WriteDeletes(script, {more.sDbFile});
  }
}

void WriteGlossaryScript(GlossaryRunFiles& files) {
  auto script = CreateScript(files.sBatFile);
  WriteReferenceLines(script, files);
  WriteEchoAndLoad(script, files.sDbFile, files.sToDoSqlFile);
  WriteJoin(script, files.sDbFile, files.sReadyFile);
  WriteMoreReferences(script, files);
  WriteDeletes(script, {files.sRefSqlFile, files.sToDoSqlFile, files.sDbFile});
  script.Close();
}

void WriteFirstTextScript(TextRunFiles& files) {
  auto script = CreateScript(files.sBatFile);
  WriteReferenceLines(script, files);
  WriteEchoAndLoad(script, files.sDbFile, files.sEntrySqlFile);
  WriteEchoAndLoad(script, files.sDbFile, files.sToDoSqlFile);
  WriteJoin(script, files.sDbFile, files.sReadyFile);
  WriteMoreReferences(script, files);
  WriteDeletes(script, {files.sRefSqlFile, files.sEntrySqlFile, files.sToDoSqlFile});
  script.Close();
}

void WriteSecondTextScript(const TextRunFiles& files) {
  auto script = CreateScript(files.sBatFile2);
  script.WriteLine(u"@echo off");
  WriteEchoAndLoad(script, files.sDbFile, files.sUpdateSqlFile);
  script.WriteLine(u"echo ");
  script.WriteLine(u"sqlite -line " + files.sDbFile + std::u16string(kEntryListing) +
                   files.sLineFile);
  WriteDeletes(script, {files.sUpdateSqlFile});
  script.Close();
}

}  // namespace

void BuildBatScript(GlossaryRunFiles& files) {
  ReportFailures(kPlace, [&] {
    DrawNames(files);
    WriteGlossaryScript(files);
  });
}

void BuildBatScript(TextRunFiles& files) {
  ReportFailures(kPlace, [&] {
    DrawNames(files);
    WriteFirstTextScript(files);
    WriteSecondTextScript(files);
  });
}

void BuildListingScript(const std::u16string& purified, const ListingFiles& files) {
  auto script = CreateScript(files.sBatFile);
  script.WriteLine(u"@echo off");
  WriteCopy(script, purified, files.sDbFile);
  script.WriteLine(u"sqlite -separator \"\t\" " + files.sDbFile + std::u16string(kPairListing) +
                   files.sListFile);
  script.Close();
}

std::u16string SavedDatabasePath() {
  const std::u16string& chosen = RunOptions().txtSaveRefDB;
  if (!chosen.empty()) {
    return chosen;
  }
  return modMain::ChangeFileExtension(TheRun().reference, u"_" + platform::DayAndHour() + u".db");
}

std::u16string QuotedPath(std::u16string_view path) {
  constexpr std::u16string_view kForbidden(u"\"\r\n\0", 4);
  if (path.find_first_of(kForbidden) != std::u16string_view::npos) {
    throw platform::Failure(platform::FailureNumber::BadFileName,
                            platform::FailureOrigin::ScriptLibrary);
  }
  return u"\"" + std::u16string(path) + u"\"";
}

}  // namespace lexmill
