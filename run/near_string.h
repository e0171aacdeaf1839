// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// Strings that miss each other by little.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace lexmill {

/// In what two strings differ.
struct Differences {
  bool letterCase = false;
  bool ending = false;  ///< punctuation, blanks, line ends, a part after a literal tab
  bool hotKey = false;  ///< a mark before a letter, a letter in brackets at the end

  bool operator==(const Differences&) const = default;
  [[nodiscard]] int Count() const { return int{letterCase} + int{ending} + int{hotKey}; }
};

/// A string that others are compared with.
class NearString {
 public:
  explicit NearString(std::u16string_view string);

  /// The fewest differences that explain why `other` is not the string; none if there is more to
  /// it, or if nothing of the string is left without them.
  [[nodiscard]] std::optional<Differences> Compare(std::u16string_view other) const;

 private:
  std::array<std::u16string, 7> folded_;  ///< without each set of differences
};

}  // namespace lexmill
