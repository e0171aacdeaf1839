// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// The way through an XML catalog, and its first tags.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "catalog/catalog_head.h"
#include "platform/interchange/markup_reader.h"

namespace lexmill {

/// Reads an XML catalog with `onEvent`.
/// @throws platform::Failure with file, line and reason for a file that isn't well-formed, and
///   whatever `onEvent` throws
void ReadMarkupCatalog(std::u16string_view path, platform::MarkupReader& reader,
                       const platform::MarkupReader::OnEvent& onEvent);

/// Where the languages of an XML catalog are.
struct MarkupLanguages {
  std::u16string_view element;  ///< the first of this name counts
  std::u16string_view source;   ///< its attributes
  std::u16string_view target;
};

/// The head of an XML catalog. @throws as ReadMarkupCatalog
[[nodiscard]] CatalogHead ReadMarkupHead(std::u16string_view path,
                                         const MarkupLanguages& languages);

/// The first element of a file.
struct MarkupRoot {
  std::u16string name;                         ///< empty for what isn't XML up to there
  std::optional<platform::MarkupFault> fault;  ///< why it isn't
};

/// @throws platform::Failure for a file that can't be read
[[nodiscard]] MarkupRoot ReadMarkupRoot(std::u16string_view path);

}  // namespace lexmill
