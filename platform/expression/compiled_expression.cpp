// SPDX-License-Identifier: MIT
#include "platform/expression/compiled_expression.h"

#include <algorithm>
#include <limits>

#include "platform/expression/expression_pattern.h"
#include "platform/failure.h"

namespace lexmill::platform {
namespace {

/// Ways that a match may try before it counts as endless. Machine code tries half a billion to a
/// billion a second, the interpreter a tenth of that, so that (a+)+$ gives up within seconds.
/// A pattern of use tries a few ways for each unit of a text.
constexpr std::uint64_t kMostWays = 500'000'000;
constexpr std::uint64_t kWaysForEachUnit = 16;

/// Address space for the stack of one match; only what the match touches becomes memory. Groups
/// repeated over the text take some 24 bytes for each unit.
constexpr std::size_t kLargestStack = std::size_t{8} << 30;
constexpr std::size_t kSmallestStack = std::size_t{64} << 20;
constexpr std::size_t kFirstStackPart = std::size_t{64} << 10;

/// The library's view of 16-bit text; its pointers may not be null.
PCRE2_SPTR Units(std::u16string_view text) {
  return reinterpret_cast<PCRE2_SPTR>(text.data() == nullptr ? u"" : text.data());
}

template <class T>
T* OrOutOfMemory(T* object) {
  if (object == nullptr) {
    throw Failure(FailureNumber::OutOfMemory, FailureOrigin::ScriptLibrary);
  }
  return object;
}

/// The platform's engine would go on for ever here. The pattern is at fault, so the number is the
/// one for patterns; the text says what no other failure says.
[[noreturn]] void RefuseEndlessMatch() {
  throw Failure(static_cast<std::int32_t>(FailureNumber::ExpressionSyntax),
                u"正则表达式的匹配过程过长");
}

}  // namespace

CompiledExpression::CompiledExpression(std::u16string_view pattern) {
  Compile(LibraryPattern(pattern));
  matchData_.reset(OrOutOfMemory(pcre2_match_data_create_from_pattern(code_.get(), nullptr)));
  matchContext_.reset(OrOutOfMemory(pcre2_match_context_create(nullptr)));
  std::uint32_t options = 0;
  pcre2_pattern_info(code_.get(), PCRE2_INFO_ALLOPTIONS, &options);
  isAnchored_ = (options & PCRE2_ANCHORED) != 0;
  groups_.resize(pcre2_get_ovector_count(matchData_.get()));
}

void CompiledExpression::Compile(std::u16string_view pattern) {
  const std::unique_ptr<pcre2_compile_context, FreeBy<pcre2_compile_context_free>> context(
      OrOutOfMemory(pcre2_compile_context_create(nullptr)));
  pcre2_set_newline(context.get(), PCRE2_NEWLINE_LF);
  int error = 0;
  std::size_t errorOffset = 0;
  code_.reset(pcre2_compile(Units(pattern), pattern.size(),
                            PCRE2_DOLLAR_ENDONLY | PCRE2_MATCH_UNSET_BACKREF, &error, &errorOffset,
                            context.get()));
  if (code_ == nullptr) {
    throw Failure(error == PCRE2_ERROR_HEAP_FAILED ? FailureNumber::OutOfMemory
                                                   : FailureNumber::ExpressionSyntax,
                  FailureOrigin::ScriptLibrary);
  }
  // Where machine code may not be made, the library interprets the pattern instead.
  isMachineCode_ = pcre2_jit_compile(code_.get(), PCRE2_JIT_COMPLETE) == 0;
}

std::span<const std::u16string_view> CompiledExpression::Match(std::u16string_view text) {
  int found = FindFirst(text);
  if (found == PCRE2_ERROR_JIT_STACKLIMIT) {
    found = FindFirstOnLargeStack(text);
  }
  if (found == PCRE2_ERROR_NOMATCH) {
    return {};
  }
  if (found == PCRE2_ERROR_MATCHLIMIT) {
    RefuseEndlessMatch();
  }
  if (found < 0) {
    throw Failure(FailureNumber::OutOfMemory, FailureOrigin::ScriptLibrary);
  }
  const std::span ends(pcre2_get_ovector_pointer(matchData_.get()), groups_.size() * 2);
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    const std::size_t start = ends[2 * i];
    groups_[i] =
        start == PCRE2_UNSET ? std::u16string_view() : text.substr(start, ends[2 * i + 1] - start);
  }
  return groups_;
}

/// The library counts anew at each place where a match may start.
std::uint32_t CompiledExpression::MatchLimit(std::size_t length) const {
  const std::uint64_t starts = isAnchored_ ? 1 : std::uint64_t{length} + 1;
  const std::uint64_t limit = kMostWays / starts + kWaysForEachUnit * (std::uint64_t{length} + 1);
  return static_cast<std::uint32_t>(
      std::min<std::uint64_t>(limit, std::numeric_limits<std::uint32_t>::max()));
}

int CompiledExpression::FindFirst(std::u16string_view text) {
  pcre2_set_match_limit(matchContext_.get(), MatchLimit(text.size()));
  const auto match = isMachineCode_ ? pcre2_jit_match : pcre2_match;
  return match(code_.get(), Units(text), text.size(), 0, 0, matchData_.get(), matchContext_.get());
}

int CompiledExpression::FindFirstOnLargeStack(std::u16string_view text) {
  for (std::size_t size = kLargestStack; size >= kSmallestStack; size /= 2) {
    const std::unique_ptr<pcre2_jit_stack, FreeBy<pcre2_jit_stack_free>> stack(
        pcre2_jit_stack_create(kFirstStackPart, size, nullptr));
    if (stack != nullptr) {
      pcre2_jit_stack_assign(matchContext_.get(), nullptr, stack.get());
      const int found = FindFirst(text);
      pcre2_jit_stack_assign(matchContext_.get(), nullptr, nullptr);
      return found;
    }
  }
  return PCRE2_ERROR_NOMEMORY;
}

}  // namespace lexmill::platform
