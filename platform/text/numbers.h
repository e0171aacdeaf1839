// SPDX-License-Identifier: MIT
// platform/text: the numeric test, conversions between text and integers, grouped digits.
// Stands for: the runtime's IsNumeric, CLng, CInt and Format.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lexmill::platform {

/// True if `text` is what the platform's number parser takes: an optional sign, digits that may be
/// grouped by commas, a decimal part, a decimal exponent, blanks and tabs round the whole.
/// Currency, hexadecimal and bracket forms fail, and so does a number beyond the range of a double.
[[nodiscard]] bool IsNumeric(std::u16string_view text);

/// `text` as an integer, a fraction rounded to the nearest, a tie to the even one.
/// @throws Failure TypeMismatch if IsNumeric fails, Overflow if the number does not fit
[[nodiscard]] std::int32_t ToInt32(std::u16string_view text);
[[nodiscard]] std::int16_t ToInt16(std::u16string_view text);

/// A wider integer as a 16-bit one. @throws Failure Overflow if it does not fit
[[nodiscard]] std::int16_t ToInt16(std::int64_t number);

/// The plain decimal digits of `number`, "-" before a negative one.
[[nodiscard]] std::u16string ToText(std::int64_t number);

/// `number` with a comma between groups of three digits: 1,234,567.
[[nodiscard]] std::u16string FormatGrouped(std::int64_t number);

}  // namespace lexmill::platform
