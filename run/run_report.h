// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// The report of a run: its counts, and each different untranslated string with its translations.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace lexmill {

/// What takes a report, line by line; the lines have no ends.
using ReportLine = std::function<void(std::u16string_view)>;

/// The report of the run that has just ended, as a JSON object. Reads the run's state and ends its
/// record of strings, so that a run is reported once.
/// @throws platform::Failure as StringRecord, and whatever `takeLine` throws
void ReportAsJson(const ReportLine& takeLine);

/// The same as lines of TAB-separated cells: a row for each count, an empty line, a head and a row
/// for each string. A cell with a TAB, a quote or a line end is quoted as in CSV files; several
/// values of one cell are lines in it. @throws as ReportAsJson
void ReportAsTable(const ReportLine& takeLine);

/// Writes the report of the run that has just ended to the file `path`, in UTF-8: a JSON object if
/// the name ends in ".json", else a table after a mark, so that a spreadsheet opens it.
/// @throws as ReportAsJson, and as TextWriter
void WriteReport(std::u16string_view path);

/// Has the window's runs reported beside their results if the key Report of section LexmillPlatform
/// in the settings file is 1.
void ReadReportSetting();

}  // namespace lexmill
