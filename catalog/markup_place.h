// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// Where the pieces of an entry of an XML catalog lie.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/files/file_range.h"
#include "platform/text/ansi_text.h"

namespace lexmill {

/// An element of a file.
struct MarkupElement {
  std::u16string tag;            ///< its start tag, or the one tag that it is, as written
  platform::FileRange tagRange;  ///< of that tag
  platform::FileRange content;   ///< between its tags; empty after the one tag
  std::int64_t end = 0;          ///< after its last tag
};

/// Where an XML catalog has the pieces of an entry, and how it writes them.
struct MarkupPlace {
  enum class Language { Ts, Xliff };

  Language language = Language::Ts;
  MarkupElement source;
  std::optional<MarkupElement> target;
  std::optional<MarkupElement> comment;  ///< of the translator, as far as the format has one only
  std::int64_t afterSource = 0;          ///< where a target may go that is missing
  std::u16string indent;                 ///< line end and blanks before source or target
  bool escapesQuotes = false;            ///< quotes are written as references
  std::shared_ptr<const platform::CodePage> page;
};

}  // namespace lexmill
