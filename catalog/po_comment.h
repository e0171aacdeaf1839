// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// The comment lines of a PO file.
#pragma once

#include <string>
#include <string_view>

namespace lexmill {

enum class PoCommentKind {
  Translator,  ///< `# ` and what isn't known
  Flags,       ///< `#,`
  Previous,    ///< `#|`, a source that the entry had before
  Obsolete,    ///< `#~`, an entry that the program no longer has
  Other,       ///< `#.` and `#:`, written by programs
};

/// What kind of comment `line` is, which begins with `#`.
[[nodiscard]] PoCommentKind KindOfPoComment(std::u16string_view line);

/// True if a line of flags has the one that asks for a review.
[[nodiscard]] bool HasFuzzyFlag(std::u16string_view line);
/// A line of flags with the flag that asks for a review, which comes first there.
[[nodiscard]] std::u16string WithFuzzyFlag(std::u16string_view line);
/// A line of flags without that flag; empty if no other is left.
[[nodiscard]] std::u16string WithoutFuzzyFlag(std::u16string_view line);

}  // namespace lexmill
