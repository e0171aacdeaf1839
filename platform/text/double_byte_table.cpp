// SPDX-License-Identifier: MIT
#include "platform/text/double_byte_table.h"

#include "platform/failure.h"
#include "platform/text/converter.h"

namespace lexmill::platform {
namespace {

/// Pages with shift states, or without ASCII where it belongs, can't be the system's.
bool IsPlain(UConverterType type) {
  return type == UCNV_SBCS || type == UCNV_MBCS || type == UCNV_US_ASCII;
}

}  // namespace

DoubleByteTable::DoubleByteTable(const std::string& name) {
  const Converter converter(name);
  if (!IsPlain(converter.Type())) {
    throw Failure(FailureNumber::InvalidCall, FailureOrigin::Runtime);
  }
  const std::u16string units = converter.ExactUnits();
  const auto codes = converter.Codes(units);
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (codes[i] >= 0x80 && codes[i] <= 0xFFFF) {
      const auto code = static_cast<DoubleByteCode>(codes[i]);
      codes_[units[i]] = code;
      units_[code] = units[i];
    }
  }
}

}  // namespace lexmill::platform
