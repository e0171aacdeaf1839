// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// A catalog that was found under a path.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "catalog/catalog_format.h"
#include "run/shared/catalog_options.h"

namespace lexmill {

struct Catalog {
  std::u16string path;
  CatalogFormat format = CatalogFormat::Po;
  CatalogHead head;
  char16_t accelerator = u'&';  ///< what is before the letter of a hot key
};

/// The format of a file, from its content: an XML file by its first element, a PO file by its first
/// line that is no comment. Tables aren't told from other dictionaries here.
/// @return none also for a file that can't be read
/// @throws platform::Failure with file, line and reason for XML in an unknown encoding
[[nodiscard]] std::optional<CatalogFormat> DetectCatalog(std::u16string_view path);

/// True for a format that can be filled.
[[nodiscard]] bool CanBeFilled(CatalogFormat format);

/// A catalog with its head read. @throws platform::Failure as ReadCatalog
[[nodiscard]] Catalog OpenCatalog(std::u16string_view path, CatalogFormat format,
                                  const CatalogOptions& options);

/// A file as a table with the columns that `options` ask for, or those that tables usually name;
/// none if it isn't one, or can't be read.
[[nodiscard]] std::optional<Catalog> OpenTable(std::u16string_view path,
                                               const CatalogOptions& options);

}  // namespace lexmill
