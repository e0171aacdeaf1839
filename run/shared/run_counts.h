// SPDX-License-Identifier: MIT
// run/shared: what every room may read of a run.
// What a run counts while its stages pass the entries. By entry: a string that occurs twice counts
// twice. The head line of a glossary enters no count.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace lexmill {

/// Entries of one dictionary that take no part in the run, by reason.
struct DroppedEntries {
  std::int64_t moreColumns = 0;  ///< a line of a glossary with more than two columns
  std::int64_t equalSides = 0;   ///< of a reference: not translated
  std::int64_t tooLong = 0;      ///< of a reference: a source longer than txtLenLimit
  std::int64_t plural = 0;       ///< of a catalog: an entry with several forms
  std::int64_t inlined = 0;      ///< of a catalog: an entry with elements in its strings

  bool operator==(const DroppedEntries&) const = default;
};

struct RunCounts {
  std::int64_t searched = 0;           ///< untranslated entries that were looked for: rows of S
  std::int64_t filled = 0;             ///< those of them that got a translation
  std::int64_t several = 0;            ///< those of them that have different ones
  std::int64_t leftOpen = 0;           ///< those with different ones that are left open for it
  std::int64_t tooLong = 0;            ///< untranslated entries longer than txtLenLimit
  std::int64_t alreadyTranslated = 0;  ///< entries whose sides differ
  std::int64_t referenceEntries = 0;   ///< rows of R that this run wrote
  /// Untranslated entries that a reference before the last one knew, so that no further one was
  /// asked; counted if the run asks so.
  std::int64_t settledEarly = 0;
  std::map<std::u16string, DroppedEntries> dropped{};  ///< by path of the dictionary

  bool untranslatedRead = false;  ///< the untranslated dictionary was read to its end
  bool readyRead = false;         ///< so was the ready dictionary
  bool resultWritten = false;     ///< the result was written to its end

  /// Untranslated entries in all.
  [[nodiscard]] std::int64_t ToDo() const { return searched + tooLong; }
  /// Those that were looked for and not found.
  [[nodiscard]] std::int64_t Unknown() const { return searched - filled - leftOpen; }
  /// True once the counts are those of a whole run.
  [[nodiscard]] bool Complete() const { return untranslatedRead && readyRead && resultWritten; }
};

}  // namespace lexmill
