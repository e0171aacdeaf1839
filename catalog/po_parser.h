// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// How the lines of a PO file become entries.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "catalog/catalog_entry.h"
#include "catalog/po_tokens.h"
#include "platform/files/placed_lines.h"

namespace lexmill {

/// What a template has in its header in place of a charset.
inline constexpr std::u16string_view kOpenCharset = u"CHARSET";

/// Goes through the lines and puts entries together. An entry is complete when something begins
/// that doesn't belong to it.
class PoParser {
 public:
  /// @param path, page, onEntry  kept by reference
  /// @throws platform::Failure if the file can't be opened
  PoParser(std::u16string_view path, const platform::CodePage& page, const OnEntry& onEntry);

  /// Reads the next line and reports the entries that it shows to be complete.
  /// @return false at the end of the file, when all entries have been reported
  /// @throws platform::Failure with file, line and reason for what is no PO
  bool ReadLine();

  /// Reads the header entry, the first without source and context, and all before it; no line
  /// after it, which may be of another charset than the page's. Without one all is read.
  /// @throws as ReadLine
  void ReadHeader();

  /// Where the header read so far has a charset that is still to be chosen.
  [[nodiscard]] std::optional<platform::FileRange> OpenCharset() const { return openCharset_; }

 private:
  enum class Part { None, Context, Source, Plural, Target };

  [[noreturn]] void Refuse(std::u16string_view reason) const;
  void Clear();
  void TakeLine();
  void TakeComment(std::size_t start);
  void TakeTokens();
  void TakeToken(const PoTokens& tokens, const PoToken& token);
  void TakeKeyword(PoKeyword keyword, const PoToken& token);
  void BeginEntry(const PoToken& token);
  void BeginTarget();
  void TakeIndex(std::u16string_view index);
  void TakeText(const PoToken& token);
  void TakeSourceText();
  void TakeTargetText(const PoToken& token);
  void LookForOpenCharset();
  void RequireText() const;
  void CompleteEntry();
  [[nodiscard]] std::u16string& TextOfPart();
  [[nodiscard]] bool IsHeader() const { return entry_.source.empty() && !hasContext_; }

  std::u16string_view path_;
  platform::PlacedLines lines_;
  const OnEntry& onEntry_;
  CatalogEntry entry_;
  PoPlace place_;
  Part part_ = Part::None;
  bool hasText_ = true;  ///< the last keyword has a string
  bool hasContext_ = false;
  bool isFuzzy_ = false;
  bool isBlockOpen_ = false;  ///< a comment of the entry is right above
  bool hasPrevious_ = false;  ///< one of the comments above is an earlier source
  int targets_ = 0;           ///< forms of the target so far
  bool lacksIndex_ = false;   ///< the last keyword was msgstr of a plural entry
  std::int64_t sourceLine_ = 0;
  std::size_t sourceSize_ = 0;  ///< before the last string
  std::size_t columns_ = 0;     ///< of the last line of the source
  std::u16string other_;        ///< a string that isn't kept
  std::optional<platform::FileRange> openCharset_;
};

}  // namespace lexmill
