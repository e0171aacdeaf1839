// SPDX-License-Identifier: MIT
#include "platform/expression/regular_expression.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/expression/compiled_expression.h"
#include "platform/expression/replacement_template.h"

namespace lexmill::platform {
namespace {

/// More patterns than any stage uses. A user who sets many more makes the oldest be compiled anew.
constexpr std::size_t kKeptPatterns = 32;

struct KeptPattern {
  std::u16string text;
  std::unique_ptr<CompiledExpression> compiled;  ///< null until the first use
};

/// As ==, which compares 16-bit text unit by unit.
bool IsSame(std::u16string_view left, std::u16string_view right) {
  return left.size() == right.size() &&
         std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0;
}

}  // namespace

struct RegExp::State {
  std::vector<KeptPattern> kept = std::vector<KeptPattern>(1);
  std::size_t current = 0;
  std::size_t oldest = 0;

  /// The place for a pattern that is not kept yet.
  std::size_t NewPlace() {
    if (kept.size() < kKeptPatterns) {
      kept.emplace_back();
      return kept.size() - 1;
    }
    return std::exchange(oldest, (oldest + 1) % kKeptPatterns);
  }

  CompiledExpression& Compiled() {
    KeptPattern& pattern = kept[current];
    if (pattern.compiled == nullptr) {
      pattern.compiled = std::make_unique<CompiledExpression>(pattern.text);
    }
    return *pattern.compiled;
  }
};

RegExp::RegExp() : state_(std::make_unique<State>()) {}
RegExp::RegExp(RegExp&&) noexcept = default;
RegExp& RegExp::operator=(RegExp&&) noexcept = default;
RegExp::~RegExp() = default;

std::u16string RegExp::Pattern() const {
  return state_->kept[state_->current].text;
}

void RegExp::Pattern(std::u16string_view pattern) {
  const auto known = std::ranges::find_if(
      state_->kept, [pattern](const KeptPattern& kept) { return IsSame(kept.text, pattern); });
  if (known != state_->kept.end()) {
    state_->current = static_cast<std::size_t>(known - state_->kept.begin());
    return;
  }
  state_->current = state_->NewPlace();
  state_->kept[state_->current] = {std::u16string(pattern), nullptr};
}

bool RegExp::Test(std::u16string_view text) const {
  return !Execute(text).empty();
}

std::u16string RegExp::Replace(std::u16string_view text, std::u16string_view replacement) const {
  std::u16string result;
  return ReplaceInto(text, replacement, result) ? result : std::u16string(text);
}

bool RegExp::ReplaceInto(std::u16string_view text, std::u16string_view replacement,
                         std::u16string& result) const {
  const auto groups = Execute(text);
  if (groups.empty()) {
    return false;
  }
  const auto start = static_cast<std::size_t>(groups[0].data() - text.data());
  const ExpressionMatch match{.before = text.substr(0, start),
                              .groups = groups,
                              .after = text.substr(start + groups[0].size())};
  result.assign(match.before);
  ExpandReplacement(replacement, match, result);
  result += match.after;
  return true;
}

std::span<const std::u16string_view> RegExp::Execute(std::u16string_view text) const {
  return state_->Compiled().Match(text);
}

}  // namespace lexmill::platform
