// SPDX-License-Identifier: MIT
#include "run/catalog_arguments.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "platform/text/text.h"

namespace lexmill {
namespace {

using platform::FromUtf8;

/// How an option is read.
struct CatalogOption {
  std::string_view name;
  bool wantsValue;
  /// @return whether the value can be taken
  bool (*set)(std::string_view value, CatalogOptions& options);
  std::string_view values;  ///< what it wants
};

// The two sides of `value`, of which the first is not empty.
std::optional<std::pair<std::u16string, std::u16string>> Sides(std::string_view value, char sign) {
  const std::size_t at = value.find(sign);
  if (at == std::string_view::npos || at == 0) {
    return std::nullopt;
  }
  return std::pair(FromUtf8(value.substr(0, at)), FromUtf8(value.substr(at + 1)));
}

bool SetRefill(std::string_view /*value*/, CatalogOptions& options) {
  return options.refillFuzzy = true;
}

bool SetTrusted(std::string_view /*value*/, CatalogOptions& options) {
  return options.trusted = true;
}

bool SetSeveral(std::string_view value, CatalogOptions& options) {
  options.skipSeveral = value == "skip";
  return value == "skip" || value == "first";
}

bool SetState(std::string_view value, CatalogOptions& options) {
  options.state = FromUtf8(value);
  const auto isOfName = [](char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
           (unit >= u'0' && unit <= u'9') || unit == u'-' || unit == u'_' || unit == u'.';
  };
  return !value.empty() && std::all_of(options.state.begin(), options.state.end(), isOfName);
}

bool AddEnding(std::string_view value, CatalogOptions& options) {
  const auto sides = Sides(value, '=');
  if (sides) {
    options.endings.push_back({sides->first, sides->second});
  }
  return sides.has_value();
}

bool SetAccelerator(std::string_view value, CatalogOptions& options) {
  constexpr std::string_view kMarks = "&_~^$";
  options.accelerator = value.empty() ? u'&' : static_cast<char16_t>(value.front());
  return value.size() == 1 && kMarks.find(value.front()) != std::string_view::npos;
}

bool SetLanguages(std::string_view value, CatalogOptions& options) {
  const auto sides = Sides(value, ':');
  if (sides) {
    options.languages = {sides->first, sides->second};
  }
  return sides && !sides->second.empty();
}

constexpr std::array kOptions{
    CatalogOption{"--refill-fuzzy", false, SetRefill, ""},
    CatalogOption{"--trusted", false, SetTrusted, ""},
    CatalogOption{"--several", true, SetSeveral, "first or skip"},
    CatalogOption{"--state", true, SetState, "the name of a state"},
    CatalogOption{"--ending", true, AddEnding, "FROM=TO"},
    CatalogOption{"--accelerator", true, SetAccelerator, "one of & _ ~ ^ $"},
    CatalogOption{"--languages", true, SetLanguages, "FROM:TO"},
};

const CatalogOption* Find(std::string_view name) {
  const auto* const found =
      std::find_if(kOptions.begin(), kOptions.end(),
                   [&](const CatalogOption& option) { return option.name == name; });
  return found == kOptions.end() ? nullptr : found;
}

}  // namespace

bool IsCatalogOption(std::string_view option) {
  return Find(option) != nullptr;
}

bool WantsValue(std::string_view option) {
  return Find(option)->wantsValue;
}

std::string SetCatalogOption(std::string_view option, std::string_view value,
                             CatalogOptions& options) {
  const CatalogOption& found = *Find(option);
  if (found.set(value, options)) {
    return {};
  }
  return std::string(option).append(" wants ").append(found.values);
}

}  // namespace lexmill
