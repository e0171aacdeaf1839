// SPDX-License-Identifier: MIT
// platform/expression: regular expressions over 16-bit units.
// One pattern made ready for matching.
#pragma once

#include <pcre2.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace lexmill::platform {

/// A pattern compiled to machine code where the machine allows it, with the memory that its matches
/// use.
class CompiledExpression {
 public:
  /// @throws Failure as RegExp::Test for a bad pattern
  explicit CompiledExpression(std::u16string_view pattern);

  /// The groups of the first match in `text`, as RegExp::Execute gives them; the span lives until
  /// the next call.
  /// @throws Failure OutOfMemory, or ExpressionSyntax for a pattern that tries too many ways
  [[nodiscard]] std::span<const std::u16string_view> Match(std::u16string_view text);

 private:
  template <auto kFunction>
  struct FreeBy {
    template <class T>
    void operator()(T* object) const {
      kFunction(object);
    }
  };

  void Compile(std::u16string_view pattern);
  [[nodiscard]] std::uint32_t MatchLimit(std::size_t length) const;
  [[nodiscard]] int FindFirst(std::u16string_view text);
  [[nodiscard]] int FindFirstOnLargeStack(std::u16string_view text);

  std::unique_ptr<pcre2_code, FreeBy<pcre2_code_free>> code_;
  std::unique_ptr<pcre2_match_data, FreeBy<pcre2_match_data_free>> matchData_;
  std::unique_ptr<pcre2_match_context, FreeBy<pcre2_match_context_free>> matchContext_;
  bool isMachineCode_ = false;
  bool isAnchored_ = false;
  std::vector<std::u16string_view> groups_;
};

}  // namespace lexmill::platform
