// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
#pragma once

#include <string_view>

namespace lexmill {

/// An untranslated string taken apart. Read from left to right it is sh, sm, its hot key, st; its
/// translation becomes sh, the translation, sk, st.
struct DecomposedString {
  std::u16string_view so;  ///< the string, unchanged
  std::u16string_view sh;  ///< head: the leading blanks
  std::u16string_view sm;  ///< main text: the key that the reference is searched for
  std::u16string_view sk;  ///< hot key to put back, brackets included; empty if there is none
  std::u16string_view st;  ///< tail: punctuation, blanks, the part from a literal \t on

  bool operator==(const DecomposedString&) const = default;
};

}  // namespace lexmill
