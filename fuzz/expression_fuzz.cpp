// SPDX-License-Identifier: MIT
// Regular expressions and replacements of any kind: a result or one of the published failures.
#include "fuzz/fuzz_input.h"
#include "platform/expression/regular_expression.h"
#include "platform/failure.h"
#include "platform/text/text.h"

namespace lexmill::fuzz {
namespace {

bool IsPublished(const platform::Failure& failure) {
  constexpr int kFirst = static_cast<int>(platform::FailureNumber::ExpressionSyntax);
  constexpr int kLast = static_cast<int>(platform::FailureNumber::InvalidRange);
  const int number = failure.Number();
  return number == static_cast<int>(platform::FailureNumber::OutOfMemory) ||
         (number >= kFirst && number <= kLast);
}

bool LiesIn(std::u16string_view part, std::u16string_view whole) {
  return part.empty() ||
         (part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size());
}

void Check(std::u16string_view pattern, std::u16string_view text, std::u16string_view replacement) {
  platform::RegExp expression;
  expression.Pattern(pattern);
  const bool isFound = expression.Test(text);
  const std::u16string result = expression.Replace(text, replacement);
  Require(isFound || result == text, "a text without a match stays as it is");
  const auto groups = expression.Execute(text);
  Require(groups.empty() != isFound, "a match has groups");
  for (const auto group : groups) {
    Require(LiesIn(group, text), "a group is a part of the text");
  }
  if (isFound && replacement.find(u'$') == std::u16string_view::npos) {
    Require(result.size() == text.size() - groups[0].size() + replacement.size(),
            "the match alone is replaced");
  }
}

}  // namespace
}  // namespace lexmill::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lexmill::fuzz::Input input(data, size);
  const auto pattern = lexmill::platform::FromUtf8(input.TakePiece());
  const auto text = lexmill::platform::FromUtf8(input.TakePiece());
  const auto replacement = lexmill::platform::FromUtf8(input.TakePiece());
  try {
    lexmill::fuzz::Check(pattern, text, replacement);
  } catch (const lexmill::platform::Failure& failure) {
    lexmill::fuzz::Require(lexmill::fuzz::IsPublished(failure), "a failure is a published one");
  }
  return 0;
}
