// SPDX-License-Identifier: MIT
#include "platform/text/language_id.h"

#include <array>
#include <string>

#include <unicode/uloc.h>

#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

using LocaleName = std::array<char, ULOC_FULLNAME_CAPACITY>;

// The name with the country that goes without saying, but without the script.
std::string WithCountry(const std::string& tag) {
  LocaleName full{};
  LocaleName country{};
  LocaleName language{};
  UErrorCode status = U_ZERO_ERROR;
  uloc_addLikelySubtags(tag.c_str(), full.data(), full.size(), &status);
  uloc_getLanguage(full.data(), language.data(), language.size(), &status);
  uloc_getCountry(full.data(), country.data(), country.size(), &status);
  return U_SUCCESS(status) ? std::string(language.data()) + "_" + country.data() : std::string();
}

}  // namespace

std::optional<LanguageId> LanguageIdOf(std::u16string_view tag) {
  constexpr std::uint32_t kPrimaryBits = 10;
  constexpr std::uint32_t kUserDefined = 0x1000;
  const std::uint32_t number = uloc_getLCID(WithCountry(ToUtf8(tag)).c_str());
  if (tag.empty() || number == 0 || number == kUserDefined) {
    return std::nullopt;
  }
  return LanguageId{static_cast<int>(number & ((1U << kPrimaryBits) - 1)),
                    static_cast<int>(number >> kPrimaryBits)};
}

}  // namespace lexmill::platform
