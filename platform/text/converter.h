// SPDX-License-Identifier: MIT
// platform/text: what the machine's converters know of a code page, as plain tables.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <unicode/ucnv.h>

namespace lexmill::platform {

/// A converter of the machine, used only while tables are built.
class Converter {
 public:
  /// Opens the converter called `name`. @throws Failure InvalidCall if there is none
  explicit Converter(const std::string& name);

  /// How the converter lays out its bytes.
  [[nodiscard]] UConverterType Type() const;

  /// All 16-bit units but ASCII and surrogates that have bytes of their own, which no other unit
  /// shares, in rising order.
  [[nodiscard]] std::u16string ExactUnits() const;

  /// The bytes of each of `units`, which all have bytes of their own, as one number: the first byte
  /// is the highest.
  [[nodiscard]] std::vector<std::uint32_t> Codes(std::u16string_view units) const;

 private:
  std::unique_ptr<UConverter, decltype(&ucnv_close)> converter_;
};

}  // namespace lexmill::platform
