// SPDX-License-Identifier: MIT
#include "catalog/catalog_format.h"

#include <utility>

#include "catalog/catalog_failure.h"
#include "catalog/markup_filling.h"
#include "catalog/po_filling.h"
#include "catalog/po_reader.h"
#include "catalog/table_reader.h"
#include "catalog/tmx_reader.h"
#include "catalog/ts_reader.h"
#include "catalog/xliff_reader.h"
#include "platform/files/spliced_file.h"

namespace lexmill {
namespace {

/// What serves a format.
struct FormatServices {
  CatalogHead (*readHead)(std::u16string_view path);
  void (*read)(std::u16string_view path, const CatalogHead& head, const OnEntry& onEntry);
};

FormatServices ServicesOf(CatalogFormat format) {
  switch (format) {
    case CatalogFormat::Ts:
      return {ReadTsHead, ReadTs};
    case CatalogFormat::Xliff:
      return {ReadXliffHead, ReadXliff};
    case CatalogFormat::Tmx:
      return {ReadTmxHead, ReadTmx};
    case CatalogFormat::Table:
      return {ReadTableHead, ReadTable};
    default:
      return {ReadPoHead, ReadPo};
  }
}

Changes FillEntry(const CatalogEntry& entry, const Filling& filling) {
  if (const auto* po = std::get_if<PoPlace>(&entry.place)) {
    return FillPoEntry(*po, filling);
  }
  return FillMarkupEntry(std::get<MarkupPlace>(entry.place), filling);
}

}  // namespace

CatalogHead ReadCatalogHead(CatalogFormat format, std::u16string_view path) {
  return ServicesOf(format).readHead(path);
}

void ReadCatalog(CatalogFormat format, std::u16string_view path, const CatalogHead& head,
                 const OnEntry& onEntry) {
  ServicesOf(format).read(path, head, onEntry);
}

void FillCatalog(CatalogFormat format, std::u16string_view path, std::u16string_view result,
                 const CatalogHead& head, const ChooseFilling& choose) {
  platform::SplicedFile file(path, result, *head.page);
  auto openCharset = head.openCharset;
  ReadCatalog(format, path, head, [&](const CatalogEntry& entry) {
    const auto filling = choose(entry);
    if (!filling) {
      return;
    }
    Changes changes = FillEntry(entry, *filling);
    // Only now, so that a catalog that nothing fills stays as it is. The header comes first.
    if (openCharset) {
      changes.insert(changes.begin(), {*std::exchange(openCharset, std::nullopt), u"UTF-8"});
    }
    for (const Change& change : changes) {
      if (!file.Replace(change.range, change.text)) {
        RefuseCatalog(path, entry.line, u"文件的字符集中没有译文所需的字符");
      }
    }
  });
  file.Close();
}

}  // namespace lexmill
