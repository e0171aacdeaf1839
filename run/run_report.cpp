// SPDX-License-Identifier: MIT
#include "run/run_report.h"

#include <cstdint>
#include <initializer_list>
#include <span>
#include <utility>
#include <vector>

#include "foundation/cInifile.h"
#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "run/purified_database.h"
#include "run/reference_list.h"
#include "run/shared/run_state.h"
#include "run/shared/settings_file.h"
#include "run/shared/string_record.h"
#include "window/frmMain.h"

namespace lexmill {
namespace {

struct NamedCount {
  std::u16string_view name;
  std::int64_t count;
};

std::int64_t ReferenceEntries() {
  std::int64_t entries = TheRun().counts.referenceEntries;
  for (const Reference& reference : ReferencesOfRun()) {
    entries += reference.isDatabase ? modMain::RowsOfPurifiedDatabase(reference.path) : 0;
  }
  return entries;
}

std::vector<NamedCount> NamedCounts() {
  const RunCounts& counts = TheRun().counts;
  std::vector<NamedCount> named = {{u"toDo", counts.ToDo()},
                                   {u"filled", counts.filled},
                                   {u"several", counts.several},
                                   {u"unknown", counts.Unknown()},
                                   {u"tooLong", counts.tooLong},
                                   {u"alreadyTranslated", counts.alreadyTranslated},
                                   {u"referenceEntries", ReferenceEntries()}};
  if (TheRun().firstReferenceOnly && !TheRun().moreReferences.empty()) {
    named.push_back({u"settledEarly", counts.settledEarly});
  }
  return named;
}

/// The reasons that dropped entries at all.
std::vector<NamedCount> NamedReasons(const DroppedEntries& dropped) {
  std::vector<NamedCount> reasons;
  for (const NamedCount& reason :
       {NamedCount{u"moreColumns", dropped.moreColumns},
        NamedCount{u"equalSides", dropped.equalSides}, NamedCount{u"tooLong", dropped.tooLong},
        NamedCount{u"plural", dropped.plural}, NamedCount{u"inline", dropped.inlined}}) {
    if (reason.count > 0) {
      reasons.push_back(reason);
    }
  }
  return reasons;
}

std::u16string_view StateOf(const RecordedString& string) {
  if (string.tooLong) {
    return u"tooLong";
  }
  if (string.translations.empty()) {
    return u"unknown";
  }
  return string.translations.size() == 1 ? u"filled" : u"several";
}

/// What of a string's translations is in the result: a text has room for the last one only, a
/// catalog for the first.
std::span<const std::u16string> WrittenOf(const RecordedString& string) {
  const std::span<const std::u16string> all = string.translations;
  const DictionaryKind kind = KindOf(frmMain::Instance().cboToDo.Text());
  if (kind.isCatalog) {
    const bool isLeftOpen = all.size() > 1 && TheRun().catalogOptions.skipSeveral;
    return all.first(all.empty() || isLeftOpen ? 0 : 1);
  }
  return kind.format == modMain::DictionaryFormat::DianjingText && !all.empty() ? all.last(1) : all;
}

/// `text` with U+FFFD for what isn't text, such as a byte that the code page could not decode.
std::u16string WithoutLoneHalves(std::u16string_view text) {
  constexpr char16_t kReplacement = 0xFFFD;
  const auto isHalf = [](char16_t unit, char16_t kind) { return (unit & 0xFC00) == kind; };
  std::u16string clean(text);
  for (std::size_t at = 0; at < clean.size(); ++at) {
    if (isHalf(clean[at], 0xD800) && at + 1 < clean.size() && isHalf(clean[at + 1], 0xDC00)) {
      ++at;
    } else if (isHalf(clean[at], 0xD800) || isHalf(clean[at], 0xDC00)) {
      clean[at] = kReplacement;
    }
  }
  return clean;
}

void AppendEscaped(std::u16string& json, char16_t unit) {
  constexpr std::u16string_view kDigits = u"0123456789abcdef";
  constexpr unsigned kDigitBits = 4;
  if (unit == u'"' || unit == u'\\') {
    json.append(1, u'\\').append(1, unit);
  } else if (unit < u' ') {
    json.append(u"\\u00").append(1, kDigits[unit >> kDigitBits]).append(1, kDigits[unit % 16]);
  } else {
    json += unit;
  }
}

std::u16string JsonText(std::u16string_view text) {
  std::u16string json = u"\"";
  for (const char16_t unit : WithoutLoneHalves(text)) {
    AppendEscaped(json, unit);
  }
  return json + u'"';
}

std::u16string JsonTexts(std::span<const std::u16string> texts) {
  std::u16string json;
  for (const auto& text : texts) {
    json.append(json.empty() ? u"" : u", ").append(JsonText(text));
  }
  return u"[" + json + u"]";
}

std::u16string JsonMember(const NamedCount& count) {
  return JsonText(count.name) + u": " + platform::ToText(count.count);
}

std::u16string JsonReasons(const DroppedEntries& dropped) {
  std::u16string json;
  for (const NamedCount& reason : NamedReasons(dropped)) {
    json.append(json.empty() ? u"" : u", ").append(JsonMember(reason));
  }
  return u"{" + json + u"}";
}

std::u16string JsonDropped() {
  std::u16string json;
  for (const auto& [path, dropped] : TheRun().counts.dropped) {
    json.append(json.empty() ? u"" : u", ").append(JsonText(path));
    json.append(u": ").append(JsonReasons(dropped));
  }
  return u"{" + json + u"}";
}

std::u16string JsonString(const RecordedString& string) {
  std::u16string json = u"{\"source\": " + JsonText(string.source);
  json.append(u", \"count\": ").append(platform::ToText(string.count));
  json.append(u", \"state\": ").append(JsonText(StateOf(string)));
  json.append(u", \"translations\": ").append(JsonTexts(string.translations));
  json.append(u", \"written\": ").append(JsonTexts(WrittenOf(string)));
  return json + u"}";
}

std::u16string Cell(std::u16string_view text) {
  if (text.find_first_of(u"\t\"\r\n") == std::u16string_view::npos) {
    return WithoutLoneHalves(text);
  }
  return u"\"" + platform::ReplaceAll(WithoutLoneHalves(text), u"\"", u"\"\"") + u"\"";
}

std::u16string Cell(std::span<const std::u16string> values) {
  std::u16string lines;
  for (const auto& value : values) {
    lines.append(&value == values.data() ? u"" : u"\n").append(value);
  }
  return Cell(lines);
}

std::u16string TableRow(std::initializer_list<std::u16string> cells) {
  std::u16string row;
  for (const auto& cell : cells) {
    row.append(&cell == cells.begin() ? u"" : u"\t").append(cell);
  }
  return row;
}

void ReportStrings(const std::function<void(const RecordedString&)>& onString) {
  if (const auto strings = std::exchange(TheRun().strings, nullptr)) {
    strings->ForEach(onString);
  }
}

}  // namespace

void ReportAsJson(const ReportLine& takeLine) {
  takeLine(u"{");
  for (const NamedCount& count : NamedCounts()) {
    takeLine(u"  " + JsonMember(count) + u",");
  }
  takeLine(u"  \"dropped\": " + JsonDropped() + u",");
  takeLine(u"  \"strings\": [");
  std::u16string line;  // is held back until it is known whether a comma follows
  ReportStrings([&](const RecordedString& string) {
    if (!line.empty()) {
      takeLine(line + u",");
    }
    line = u"    " + JsonString(string);
  });
  if (!line.empty()) {
    takeLine(line);
  }
  takeLine(u"  ]");
  takeLine(u"}");
}

void ReportAsTable(const ReportLine& takeLine) {
  for (const NamedCount& count : NamedCounts()) {
    takeLine(TableRow({std::u16string(count.name), platform::ToText(count.count)}));
  }
  for (const auto& [path, dropped] : TheRun().counts.dropped) {
    for (const NamedCount& reason : NamedReasons(dropped)) {
      takeLine(TableRow(
          {u"dropped", platform::ToText(reason.count), std::u16string(reason.name), Cell(path)}));
    }
  }
  takeLine({});
  takeLine(u"source\tcount\tstate\ttranslations\twritten");
  ReportStrings([&](const RecordedString& string) {
    takeLine(TableRow({Cell(string.source), platform::ToText(string.count),
                       std::u16string(StateOf(string)), Cell(std::span(string.translations)),
                       Cell(WrittenOf(string))}));
  });
}

void WriteReport(std::u16string_view path) {
  using platform::TextEncoding;
  const bool isJson = platform::LowerCase(path).ends_with(u".json");
  auto file = platform::FileSystemObject().CreateTextFile(
      path, true, isJson ? TextEncoding::Utf8 : TextEncoding::Utf8WithMark);
  const auto takeLine = [&](std::u16string_view line) { file.WriteLine(line); };
  isJson ? ReportAsJson(takeLine) : ReportAsTable(takeLine);
  file.Close();
}

void ReadReportSetting() {
  cInifile settings;
  settings.Path(SettingsFile());
  settings.Section(u"LexmillPlatform");
  settings.Key(u"Report");
  TheRun().reportsBesideResult = settings.Value() == u"1";
}

}  // namespace lexmill
