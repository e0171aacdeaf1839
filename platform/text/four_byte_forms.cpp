// SPDX-License-Identifier: MIT
// A form is a number of four digits in mixed radix, and characters beyond the Basic Multilingual
// Plane follow one another in it, so those need no table. Those of the plane come from the
// converter: GB18030 gives a form to what its own two-byte codes leave over.
//
// The page may differ from GB18030's two-byte part. A character that has a two-byte code there and
// none in the page takes the form of the character that the page has under that code, which needs
// it no more. So each form still belongs to one character.
#include "platform/text/four_byte_forms.h"

#include <string>
#include <vector>

#include "platform/text/converter.h"

namespace lexmill::platform {
namespace {

/// Number of the form 90 30 81 30, that of the first character beyond the Basic Multilingual Plane.
constexpr std::uint32_t kFirstSupplementaryForm = 189000;
constexpr char32_t kFirstSupplementary = 0x10000;
constexpr char32_t kLastCodePoint = 0x10FFFF;

/// The four bytes of a form with the bounds of each: a number in mixed radix.
struct Place {
  unsigned char first;
  unsigned char last;

  [[nodiscard]] std::uint32_t Count() const { return last - first + 1U; }
};
constexpr std::array<Place, FourByteForms::kLength> kPlaces = {
    {{0x81, 0xFE}, {0x30, 0x39}, {0x81, 0xFE}, {0x30, 0x39}}};

/// Number of the form at the start of `bytes`; none if its bytes are out of bounds.
std::optional<std::uint32_t> FormNumber(std::string_view bytes) {
  if (bytes.size() < kPlaces.size()) {
    return std::nullopt;
  }
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < kPlaces.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if (byte < kPlaces[i].first || byte > kPlaces[i].last) {
      return std::nullopt;
    }
    number = number * kPlaces[i].Count() + (byte - kPlaces[i].first);
  }
  return number;
}

void WriteForm(std::uint32_t number, char* bytes) {
  for (std::size_t i = kPlaces.size(); i-- > 0;) {
    bytes[i] = static_cast<char>(kPlaces[i].first + number % kPlaces[i].Count());
    number /= kPlaces[i].Count();
  }
}

/// Number of the form with the code `code` as Converter::Codes gives it.
std::uint16_t FormNumber(std::uint32_t code) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) {
    bytes += static_cast<char>(code >> shift & 0xFF);
  }
  return static_cast<std::uint16_t>(FormNumber(std::string_view(bytes)).value());
}

}  // namespace

FourByteForms::FourByteForms(const DoubleByteTable& page) {
  forms_.fill(kNone);
  const Converter converter("gb18030");
  const std::u16string units = converter.ExactUnits();
  const std::vector<std::uint32_t> codes = converter.Codes(units);
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (codes[i] > 0xFFFF) {
      forms_[units[i]] = FormNumber(codes[i]);
    }
  }
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (codes[i] <= 0xFFFF && page.Code(units[i]) == 0) {
      const char16_t other = page.Unit(static_cast<DoubleByteCode>(codes[i]));
      forms_[units[i]] = forms_[other];
    }
  }
  for (const char16_t unit : units) {
    if (page.Code(unit) != 0) {
      forms_[unit] = kNone;
    } else if (forms_[unit] != kNone) {
      units_[forms_[unit]] = unit;
    }
  }
}

std::optional<char32_t> FourByteForms::Decode(std::string_view bytes) const {
  const auto number = FormNumber(bytes);
  if (!number) {
    return std::nullopt;
  }
  if (*number < kForms) {
    const char16_t unit = units_[*number];
    return unit == 0 ? std::nullopt : std::optional<char32_t>(unit);
  }
  const char32_t codePoint = *number - kFirstSupplementaryForm + kFirstSupplementary;
  if (*number < kFirstSupplementaryForm || codePoint > kLastCodePoint) {
    return std::nullopt;
  }
  return codePoint;
}

bool FourByteForms::Encode(char32_t codePoint, char* bytes) const {
  if (codePoint >= kFirstSupplementary) {
    WriteForm(codePoint - kFirstSupplementary + kFirstSupplementaryForm, bytes);
    return true;
  }
  const std::uint16_t form = forms_[codePoint];
  if (form == kNone) {
    return false;
  }
  WriteForm(form, bytes);
  return true;
}

}  // namespace lexmill::platform
