// SPDX-License-Identifier: MIT
#include "platform/text/converter.h"

#include <algorithm>

#include <unicode/uset.h>
#include <unicode/utf16.h>

#include "platform/text/library_status.h"

namespace lexmill::platform {

Converter::Converter(const std::string& name) : converter_(nullptr, &ucnv_close) {
  UErrorCode status = U_ZERO_ERROR;
  converter_.reset(ucnv_open(name.c_str(), &status));
  ThrowIfError(status);
}

UConverterType Converter::Type() const {
  return ucnv_getType(converter_.get());
}

// ASCII is the same everywhere, and half of a pair has no code: neither is asked for.
std::u16string Converter::ExactUnits() const {
  constexpr UChar32 kFirst = 0x80;
  constexpr UChar32 kLast = 0xFFFF;
  const std::unique_ptr<USet, decltype(&uset_close)> set(uset_openEmpty(), &uset_close);
  UErrorCode status = U_ZERO_ERROR;
  ucnv_getUnicodeSet(converter_.get(), set.get(), UCNV_ROUNDTRIP_SET, &status);
  ThrowIfError(status);
  std::u16string units;
  for (int32_t item = 0; item < uset_getItemCount(set.get()); ++item) {
    UChar32 first = 0;
    UChar32 last = 0;
    uset_getItem(set.get(), item, &first, &last, nullptr, 0, &status);
    for (UChar32 unit = std::max(first, kFirst); unit <= std::min(last, kLast); ++unit) {
      if (!U_IS_SURROGATE(unit)) {
        units += static_cast<char16_t>(unit);
      }
    }
  }
  return units;
}

// One call for all units: `offsets` says of each byte which unit it belongs to, however many bytes
// that has.
std::vector<std::uint32_t> Converter::Codes(std::u16string_view units) const {
  constexpr std::size_t kLongest = 4;
  std::vector<char> bytes(units.size() * kLongest);
  std::vector<int32_t> offsets(bytes.size());
  char* out = bytes.data();
  const char16_t* in = units.data();
  UErrorCode status = U_ZERO_ERROR;
  ucnv_fromUnicode(converter_.get(), &out, out + bytes.size(), &in, in + units.size(),
                   offsets.data(), true, &status);
  ThrowIfError(status);
  std::vector<std::uint32_t> codes(units.size());
  for (std::size_t i = 0; i < static_cast<std::size_t>(out - bytes.data()); ++i) {
    std::uint32_t& code = codes[static_cast<std::size_t>(offsets[i])];
    code = code << 8 | static_cast<unsigned char>(bytes[i]);
  }
  return codes;
}

}  // namespace lexmill::platform
