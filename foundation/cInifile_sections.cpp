// SPDX-License-Identifier: MIT
#include "foundation/cInifile.h"
#include "foundation/entry_point.h"
#include "platform/text/numbers.h"

namespace lexmill {
namespace {

/// The pieces of `list` that a NUL ends; text after the last NUL is not taken.
std::vector<std::u16string> EndedPieces(std::u16string_view list) {
  std::vector<std::u16string> pieces;
  for (auto end = list.find(u'\0'); end != std::u16string_view::npos; end = list.find(u'\0')) {
    pieces.emplace_back(list.substr(0, end));
    list.remove_prefix(end + 1);
  }
  return pieces;
}

}  // namespace

void cInifile::EnumerateCurrentSection(std::vector<std::u16string>& sKey,
                                       std::int32_t& iCount) const {
  sKey = EndedPieces(INISection());
  iCount = static_cast<std::int32_t>(sKey.size());
}

void cInifile::EnumerateAllSections(std::vector<std::u16string>& sSections,
                                    std::int32_t& iCount) const {
  sSections = EndedPieces(Sections());
  std::erase(sSections, std::u16string());
  iCount = static_cast<std::int32_t>(sSections.size());
}

std::int32_t cInifile::CLngDefault(std::u16string_view sString, std::int32_t lDefault) {
  std::int32_t number = lDefault;
  IgnoreFailures([&number, sString] { number = platform::ToInt32(sString); });
  return number;
}

}  // namespace lexmill
