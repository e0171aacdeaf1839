// SPDX-License-Identifier: MIT
#include "catalog/catalog.h"

#include <algorithm>

#include "catalog/catalog_failure.h"
#include "catalog/markup_head.h"
#include "catalog/table_reader.h"
#include "foundation/entry_point.h"
#include "platform/files/placed_lines.h"
#include "platform/text/named_page.h"

namespace lexmill {
namespace {

constexpr std::u16string_view kBlanks = u" \t";

bool BeginsEntry(std::u16string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
  for (const std::u16string_view keyword : {u"msgid", u"msgctxt", u"domain"}) {
    if (line.starts_with(keyword)) {
      const std::size_t next = line.find_first_not_of(kBlanks, keyword.size());
      return next != std::u16string_view::npos && line[next] == u'"';
    }
  }
  return false;
}

// Comments and empty lines may come first. A file of comments alone is one if some of them are
// entries.
bool IsPo(std::u16string_view path) {
  const auto page = platform::OpenNamedPage(u"UTF-8");
  platform::PlacedLines lines(path, *page);
  bool hasObsolete = false;
  while (lines.Next()) {
    hasObsolete = hasObsolete || lines.StartsWith("#~ msgid \"");
    if (!lines.StartsWith("#") &&
        lines.Text().find_first_not_of(kBlanks) != std::u16string_view::npos) {
      return BeginsEntry(lines.Text());
    }
  }
  return hasObsolete;
}

std::optional<CatalogFormat> FormatOfRoot(std::u16string_view root) {
  if (root == u"TS") {
    return CatalogFormat::Ts;
  }
  if (root == u"xliff") {
    return CatalogFormat::Xliff;
  }
  if (root == u"tmx") {
    return CatalogFormat::Tmx;
  }
  return std::nullopt;
}

void TakeLanguages(const CatalogOptions& options, CatalogHead& head) {
  if (options.languages) {
    head.sourceLanguage = options.languages->source;
    head.targetLanguage = options.languages->target;
  }
}

char16_t AcceleratorOf(CatalogFormat format, const CatalogHead& head,
                       const CatalogOptions& options) {
  if (head.accelerator.size() == 1) {
    return head.accelerator.front();
  }
  const bool isOpen = format == CatalogFormat::Po || format == CatalogFormat::Xliff;
  return isOpen ? options.accelerator : u'&';
}

}  // namespace

std::optional<CatalogFormat> DetectCatalog(std::u16string_view path) {
  MarkupRoot root;
  bool isPo = false;
  IgnoreFailures([&] {
    root = ReadMarkupRoot(path);
    isPo = root.name.empty() && IsPo(path);
  });
  if (root.fault && root.fault->isOfEncoding) {
    RefuseCatalog(path, root.fault->line, root.fault->reason);
  }
  return isPo ? std::optional(CatalogFormat::Po) : FormatOfRoot(root.name);
}

bool CanBeFilled(CatalogFormat format) {
  return format != CatalogFormat::Tmx && format != CatalogFormat::Table;
}

Catalog OpenCatalog(std::u16string_view path, CatalogFormat format, const CatalogOptions& options) {
  Catalog catalog{std::u16string(path), format, ReadCatalogHead(format, path)};
  catalog.accelerator = AcceleratorOf(format, catalog.head, options);
  if (!CanBeFilled(format)) {
    TakeLanguages(options, catalog.head);
  }
  return catalog;
}

std::optional<Catalog> OpenTable(std::u16string_view path, const CatalogOptions& options) {
  std::optional<Catalog> catalog;
  IgnoreFailures([&] {
    Catalog found = OpenCatalog(path, CatalogFormat::Table, options);
    if (IsTable(path, found.head)) {
      catalog = std::move(found);
    }
  });
  return catalog;
}

}  // namespace lexmill
