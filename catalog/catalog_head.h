// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// What a catalog says of itself.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/files/file_range.h"
#include "platform/text/ansi_text.h"

namespace lexmill {

struct CatalogHead {
  std::u16string sourceLanguage;  ///< as the catalog names it; empty if it doesn't
  std::u16string targetLanguage;
  std::u16string accelerator;  ///< the mark of hot keys; empty if it doesn't say
  /// Where a charset is still to be chosen; UTF-8 is read and written then.
  std::optional<platform::FileRange> openCharset;
  std::shared_ptr<const platform::CodePage> page;  ///< the catalog's encoding
};

}  // namespace lexmill
