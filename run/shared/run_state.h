// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
// The values of a run beside its options.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/text_encoding.h"
#include "run/shared/catalog_options.h"
#include "run/shared/dictionary_kind.h"
#include "run/shared/run_counts.h"
#include "run/shared/run_notice.h"
#include "run/shared/string_record.h"
#include "run/shared/string_tally.h"

namespace lexmill {

/// As a path: lexmill-run writes there itself, after all rows.
inline constexpr std::u16string_view kStandardOutput = u"-";

/// Temporary glossaries of a run, which stand in for the user's catalogs. Where there is none, a
/// function gives `path` itself, which is the user's.
struct StandIns {
  std::u16string toDo;    ///< what is read for the untranslated dictionary; may be empty
  std::u16string result;  ///< what is written for the result; may be empty
  std::map<std::u16string, std::u16string, std::less<>> references;  ///< by the user's path

  [[nodiscard]] std::u16string ForToDo(std::u16string_view path) const;
  [[nodiscard]] std::u16string ForReference(std::u16string_view path) const;
  [[nodiscard]] std::u16string ForResult(std::u16string_view path) const;
};

/// A reference of a run.
struct Reference {
  std::u16string path;
  bool isDatabase = false;  ///< a purified database, not a dictionary
};

struct RunState {
  /// The program's folder with one separator at its end; set by Main.
  std::u16string AppPath;
  /// The folder chosen for temporary files and the language table, with one separator at its end;
  /// empty if that is the program's folder.
  std::u16string WorkDir;
  /// References given from outside, in place of those that the window's field names; may be empty.
  std::vector<std::u16string> givenReferences;
  /// A string that one reference knows isn't asked of those after it.
  bool firstReferenceOnly = false;
  /// Path of the first reference, which alone decides the pair of formats and the head line, and of
  /// the others in the order in which they are asked; set at each run.
  std::u16string reference;
  std::vector<Reference> moreReferences;
  /// Path of the first reference if that is a purified database, else empty; set at each run.
  std::u16string RefDbPath;
  /// Two language keys joined by a TAB, or empty: the head line of a translated glossary. A run
  /// with two texts leaves it as it was.
  std::u16string LanguagePair;
  /// The dictionaries that the run reads, by path; a purified database is none of them.
  std::map<std::u16string, DictionaryKind, std::less<>> dictionaries;
  /// What a user chose for catalogs.
  CatalogOptions catalogOptions;
  /// The temporary glossaries that stand in for catalogs.
  StandIns standIns;
  /// The user wants the run's end more than its result: no further step begins, the present one
  /// ends at its next refresh of the window, and an earlier result stays. False at each start.
  bool abandoned = false;
  /// Encoding of the result, which is that of the untranslated dictionary unless that is plain
  /// ASCII. Kept apart, since the result may take the place of a dictionary in another encoding.
  platform::TextEncoding resultEncoding = platform::TextEncoding::Ansi;
  /// What the run has noted so far, in order; empty at its start.
  std::vector<RunNotice> notices;
  /// What the stages of the run have counted so far, and the strings that it looks for.
  RunCounts counts;
  StringTally untranslated;
  /// Where a report of the run goes: a path, kStandardOutput, or empty for none.
  std::u16string reportPath;
  /// Reports go beside the result, under its name and ".report.txt".
  bool reportsBesideResult = false;
  /// The strings of the run, if it is reported.
  std::unique_ptr<StringRecord> strings;
};

/// The one state of the program.
[[nodiscard]] RunState& TheRun();

/// Where temporary files and the language table lie: the folder chosen for them, else the program's
/// folder; with one separator at its end.
[[nodiscard]] const std::u16string& WorkFolder();

/// What the run knows of the file `path`. One that is none of its dictionaries is in the code page
/// and of no format.
[[nodiscard]] DictionaryKind KindOf(std::u16string_view path);

}  // namespace lexmill
