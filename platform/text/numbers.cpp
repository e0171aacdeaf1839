// SPDX-License-Identifier: MIT
#include "platform/text/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>

#include "platform/failure.h"
#include "platform/text/number_text.h"

namespace lexmill::platform {
namespace {

[[noreturn]] void Fail(FailureNumber number) {
  throw Failure(number, FailureOrigin::Runtime);
}

template <std::signed_integral Integer>
Integer ToInteger(std::u16string_view text) {
  const auto number = ReadNumber(text);
  if (!number) {
    Fail(FailureNumber::TypeMismatch);
  }
  // A half goes to the even neighbour, as the runtime rounds. Every bound is exact as a double.
  const double rounded = std::nearbyint(*number);
  if (rounded < std::numeric_limits<Integer>::min() ||
      rounded > std::numeric_limits<Integer>::max()) {
    Fail(FailureNumber::Overflow);
  }
  return static_cast<Integer>(rounded);
}

}  // namespace

bool IsNumeric(std::u16string_view text) {
  return ReadNumber(text).has_value();
}

std::int32_t ToInt32(std::u16string_view text) {
  return ToInteger<std::int32_t>(text);
}

std::int16_t ToInt16(std::u16string_view text) {
  return ToInteger<std::int16_t>(text);
}

std::int16_t ToInt16(std::int64_t number) {
  const auto narrow = static_cast<std::int16_t>(number);
  if (narrow != number) {
    Fail(FailureNumber::Overflow);
  }
  return narrow;
}

std::u16string ToText(std::int64_t number) {
  std::array<char, 24> digits;
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  return {digits.data(), result.ptr};
}

std::u16string FormatGrouped(std::int64_t number) {
  constexpr std::size_t kGroup = 3;
  std::u16string text = ToText(number);
  const std::size_t first = number < 0 ? 1 : 0;
  for (std::size_t at = text.size(); at > first + kGroup;) {
    at -= kGroup;
    text.insert(at, 1, u',');
  }
  return text;
}

}  // namespace lexmill::platform
