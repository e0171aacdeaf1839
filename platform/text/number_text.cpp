// SPDX-License-Identifier: MIT
#include "platform/text/number_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>
#include <system_error>

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

  /// Digits with at most one point; after the first digit commas may be anywhere.
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

  /// An exponent, if there is one. @return false for a letter without digits after it
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

}  // namespace

std::optional<double> ReadNumber(std::u16string_view text) {
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

}  // namespace lexmill::platform
