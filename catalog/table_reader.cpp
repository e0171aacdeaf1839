// SPDX-License-Identifier: MIT
#include "catalog/table_reader.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include "catalog/catalog_failure.h"
#include "catalog/language_tag.h"
#include "foundation/entry_point.h"
#include "platform/files/utf8_file.h"
#include "platform/interchange/csv_rows.h"
#include "platform/text/named_page.h"
#include "platform/text/text.h"

namespace lexmill {
namespace {

constexpr std::u16string_view kSources[] = {u"source", u"src", u"original", u"msgid", u"原文"};
constexpr std::u16string_view kTargets[] = {u"target", u"translation", u"msgstr", u"译文"};

/// How a table is laid out.
struct TableColumns {
  char separator = ',';
  std::size_t source = 0;
  std::size_t target = 0;
};

// Which of the columns has one of `names`, or else `language`.
std::optional<std::size_t> FindColumn(const std::vector<std::u16string>& columns,
                                      std::span<const std::u16string_view> names,
                                      std::u16string_view language) {
  const auto isNamed = [&](const std::u16string& column) {
    const std::u16string name = platform::LowerCase(platform::Trim(column));
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  const auto isLanguage = [&](const std::u16string& column) {
    return IsLanguage(column, language);
  };
  auto found = std::find_if(columns.begin(), columns.end(), isNamed);
  found = found == columns.end() ? std::find_if(columns.begin(), columns.end(), isLanguage) : found;
  return found == columns.end() ? std::nullopt
                                : std::optional<std::size_t>(found - columns.begin());
}

std::optional<TableColumns> FindColumns(std::u16string_view path, const CatalogHead& head) {
  for (const char separator : {',', ';', '\t'}) {
    std::optional<TableColumns> columns;
    std::ignore = platform::ReadCsvRows(
        path, *head.page, separator, [&](const std::vector<std::u16string>& fields, std::int64_t) {
          const auto source = FindColumn(fields, kSources, head.sourceLanguage);
          const auto target = FindColumn(fields, kTargets, head.targetLanguage);
          if (source && target && source != target) {
            columns = {separator, *source, *target};
          }
          return false;
        });
    if (columns) {
      return columns;
    }
  }
  return std::nullopt;
}

}  // namespace

bool IsTable(std::u16string_view path, const CatalogHead& head) {
  bool isTable = false;
  IgnoreFailures([&] { isTable = FindColumns(path, head).has_value(); });
  return isTable;
}

CatalogHead ReadTableHead(std::u16string_view path) {
  CatalogHead head;
  const bool isUtf8 = platform::RecogniseUtf8(path, [] {}).has_value();
  head.page = isUtf8 ? platform::OpenNamedPage(u"UTF-8")
                     : std::shared_ptr<const platform::CodePage>(std::shared_ptr<void>(),
                                                                 &platform::AnsiCodePage());
  return head;
}

void ReadTable(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry) {
  const auto columns = FindColumns(path, head);
  if (!columns) {
    RefuseCatalog(path, 1, u"首行没有“source”和“target”两列");
  }
  CatalogEntry entry;
  bool isHeadLine = true;
  const auto onRow = [&](const std::vector<std::u16string>& fields, std::int64_t line) {
    if (!isHeadLine && fields.size() > std::max(columns->source, columns->target)) {
      entry.source = fields[columns->source];
      entry.target = fields[columns->target];
      entry.state = entry.target.empty() ? EntryState::Open : EntryState::Translated;
      entry.line = line;
      onEntry(entry);
    }
    isHeadLine = false;
    return true;
  };
  if (const auto line = platform::ReadCsvRows(path, *head.page, columns->separator, onRow)) {
    RefuseCatalog(path, *line, u"引号没有结束");
  }
}

}  // namespace lexmill
