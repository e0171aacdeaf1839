// SPDX-License-Identifier: MIT
// platform/text: languages by the numbers that the platform has for them.
#pragma once

#include <optional>
#include <string_view>

namespace lexmill::platform {

/// The two numbers of a language: 9 and 1 for English of the United States.
struct LanguageId {
  int primary = 0;
  int sublanguage = 0;

  bool operator==(const LanguageId&) const = default;
};

/// The numbers of the language `tag`, such as "zh_CN" or "en"; a language without a country is that
/// of the country where most of its speakers live. None for a language without numbers.
/// Source: the published language identifiers of the platform
[[nodiscard]] std::optional<LanguageId> LanguageIdOf(std::u16string_view tag);

}  // namespace lexmill::platform
