// SPDX-License-Identifier: MIT
#include "platform/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>
#include <optional>
#include <system_error>

#include "platform/failure.h"

namespace lexmill::platform {
namespace {

bool IsDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}
bool IsBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t';
}
bool IsSign(char16_t unit) {
  return unit == u'+' || unit == u'-';
}
bool IsExponentLetter(char16_t unit) {
  return unit == u'e' || unit == u'E' || unit == u'd' || unit == u'D';
}

/// Reads a number's text from left to right and gathers what std::from_chars takes.
class NumberReader {
 public:
  explicit NumberReader(std::u16string_view text) : rest_(text) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  [[nodiscard]] const std::string& Plain() const { return plain_; }

  void SkipBlanks() {
    while (Next(IsBlank)) {
      rest_.remove_prefix(1);
    }
  }

  [[nodiscard]] std::optional<char16_t> TakeSign() {
    if (!Next(IsSign)) {
      return std::nullopt;
    }
    const char16_t sign = rest_.front();
    rest_.remove_prefix(1);
    return sign;
  }

  /// Digits with at most one point; behind the first digit commas may stand anywhere.
  [[nodiscard]] bool TakeDigits() {
    bool hasDigit = false;
    bool hasPoint = false;
    for (; !rest_.empty(); rest_.remove_prefix(1)) {
      const char16_t unit = rest_.front();
      if (IsDigit(unit)) {
        hasDigit = true;
      } else if (unit == u'.' && !hasPoint) {
        hasPoint = true;
      } else if (unit == u',' && hasDigit) {
        continue;
      } else {
        break;
      }
      plain_ += static_cast<char>(unit);
    }
    return hasDigit;
  }

  /// An exponent, if there is one. @return false for a letter without digits behind it
  [[nodiscard]] bool TakeExponent() {
    if (!Next(IsExponentLetter)) {
      return true;
    }
    rest_.remove_prefix(1);
    plain_ += 'e';
    plain_ += TakeSign() == u'-' ? '-' : '+';
    const auto before = plain_.size();
    for (; Next(IsDigit); rest_.remove_prefix(1)) {
      plain_ += static_cast<char>(rest_.front());
    }
    return plain_.size() > before;
  }

 private:
  template <class Test>
  [[nodiscard]] bool Next(Test test) const {
    return !rest_.empty() && test(rest_.front());
  }

  std::u16string_view rest_;
  std::string plain_;
};

/// True if `plain`, a number that is not 0, is 1 or more. Only for numbers that a double can't
/// hold.
bool IsLarge(std::string_view plain) {
  const auto mark = plain.find('e');
  const std::string_view digits = plain.substr(0, mark);
  const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
  const auto first = static_cast<std::int64_t>(digits.find_first_not_of("0."));
  if (mark == std::string_view::npos) {
    return first < point;
  }
  const bool negative = plain[mark + 1] == '-';
  const std::string_view power = plain.substr(mark + 2);
  std::int64_t exponent = 0;
  if (std::from_chars(power.data(), power.data() + power.size(), exponent).ec != std::errc()) {
    return !negative;
  }
  return point - first + (negative ? -exponent : exponent) > 0;
}

/// The double nearest to `plain`; none if it is beyond the range of a double.
std::optional<double> Convert(std::string_view plain) {
  double number = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), number);
  if (result.ec == std::errc::result_out_of_range && IsLarge(plain)) {
    return std::nullopt;
  }
  return number;
}

std::optional<double> ToDouble(std::u16string_view text) {
  NumberReader reader(text);
  reader.SkipBlanks();
  std::optional<char16_t> sign = reader.TakeSign();
  reader.SkipBlanks();
  if (!reader.TakeDigits() || !reader.TakeExponent()) {
    return std::nullopt;
  }
  reader.SkipBlanks();
  if (!sign) {
    sign = reader.TakeSign();
    reader.SkipBlanks();
  }
  if (!reader.AtEnd()) {
    return std::nullopt;
  }
  const auto number = Convert(reader.Plain());
  return number && sign == u'-' ? -*number : number;
}

[[noreturn]] void Fail(FailureNumber number) {
  throw Failure(number, FailureOrigin::Runtime);
}

template <std::signed_integral Integer>
Integer ToInteger(std::u16string_view text) {
  const auto number = ToDouble(text);
  if (!number) {
    Fail(FailureNumber::TypeMismatch);
  }
  const double rounded = std::nearbyint(*number);
  if (rounded < std::numeric_limits<Integer>::min() ||
      rounded > std::numeric_limits<Integer>::max()) {
    Fail(FailureNumber::Overflow);
  }
  return static_cast<Integer>(rounded);
}

}  // namespace

bool IsNumeric(std::u16string_view text) {
  return ToDouble(text).has_value();
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
