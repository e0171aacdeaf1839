// SPDX-License-Identifier: MIT
#include "catalog/po_filling.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "catalog/po_comment.h"
#include "catalog/po_tokens.h"
#include "platform/text/columns.h"

namespace lexmill {
namespace {

// What the usual programs wrap at; a file may have wider lines.
constexpr std::size_t kUsualColumns = 79;
constexpr std::u16string_view kKeyword = u"msgstr ";

std::u16string LineEnd(const PoPlace& place) {
  return std::u16string(place.lineEnd.empty() ? u"\n" : place.lineEnd);
}

std::u16string Quoted(std::u16string_view text) {
  return u"\"" + EscapedForPo(text) + u"\"";
}

std::size_t QuotedColumns(std::u16string_view text) {
  return platform::Columns(Quoted(text));
}

// The lines of `text`, each with its line feed, cut further where they are too wide.
std::vector<std::u16string_view> LinesOf(std::u16string_view text, std::size_t width) {
  std::vector<std::u16string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(u'\n'), text.size() - 1) + 1;
    const auto pieces = platform::WrapLines(text.substr(0, end), width, QuotedColumns);
    lines.insert(lines.end(), pieces.begin(), pieces.end());
    text.remove_prefix(end);
  }
  return lines;
}

std::u16string TargetText(const PoPlace& place, std::u16string_view target) {
  if (place.hasSourceOnOneLine) {
    return Quoted(target);
  }
  const std::size_t columns = std::max(kUsualColumns, place.width);
  const std::size_t width = place.isWrapped ? columns : std::u16string::npos;
  const auto lines = LinesOf(target, width);
  if (lines.size() < 2 && QuotedColumns(target) + kKeyword.size() <= width) {
    return Quoted(target);
  }
  std::u16string text = u"\"\"";
  for (const std::u16string_view line : lines) {
    text += LineEnd(place) + Quoted(line);
  }
  return text;
}

// A line of its own in front of the entry.
Change NewLine(const PoPlace& place, std::int64_t at, const std::u16string& line) {
  const std::u16string before = place.beginsInLine ? LineEnd(place) : std::u16string();
  return {platform::PlaceAt(at), before + line + LineEnd(place)};
}

Change ChangedFlags(const PoFlagLine& line, const std::u16string& flags) {
  return {line.range, flags.empty() ? flags : flags + std::u16string(line.lineEnd)};
}

void AddMark(const PoPlace& place, Changes& changes) {
  const auto isMarked = [](const PoFlagLine& line) { return HasFuzzyFlag(line.text); };
  if (std::any_of(place.flagLines.begin(), place.flagLines.end(), isMarked)) {
    return;
  }
  if (place.flagLines.empty()) {
    changes.push_back(NewLine(place, place.flags, u"#, fuzzy"));
  } else {
    const PoFlagLine& line = place.flagLines.front();
    changes.push_back(ChangedFlags(line, WithFuzzyFlag(line.text)));
  }
}

void RemoveMarks(const PoPlace& place, Changes& changes) {
  for (const PoFlagLine& line : place.flagLines) {
    if (HasFuzzyFlag(line.text)) {
      changes.push_back(ChangedFlags(line, WithoutFuzzyFlag(line.text)));
    }
  }
}

}  // namespace

Changes FillPoEntry(const PoPlace& place, const Filling& filling) {
  Changes changes;
  if (!filling.comment.empty()) {
    changes.push_back(NewLine(place, place.comment, u"# Lexmill: " + filling.comment));
  }
  if (filling.needsReview) {
    AddMark(place, changes);
  } else {
    RemoveMarks(place, changes);
  }
  changes.push_back({place.target, TargetText(place, filling.target)});
  std::stable_sort(changes.begin(), changes.end(), [](const Change& left, const Change& right) {
    return left.range.begin < right.range.begin;
  });
  return changes;
}

}  // namespace lexmill
