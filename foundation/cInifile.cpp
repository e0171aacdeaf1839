// SPDX-License-Identifier: MIT
#include "foundation/cInifile.h"

#include <optional>

#include "platform/files/profile_file.h"

namespace lexmill {
namespace {

constexpr std::size_t kValueBuffer = 255;
constexpr std::size_t kListBuffer = 8192;

}  // namespace

std::u16string cInifile::Value() const {
  return platform::GetPrivateProfileString(section_, key_, default_, kValueBuffer, path_);
}

void cInifile::Value(std::u16string& sValue) {
  std::erase(sValue, u'\0');
  lastReturnCode_ = platform::WritePrivateProfileString(section_, key_, sValue, path_);
}

bool cInifile::ComesBackWhole(std::u16string_view sValue) {
  return platform::ComesBackWhole(sValue, kValueBuffer);
}

void cInifile::DeleteKey() {
  lastReturnCode_ = platform::WritePrivateProfileString(section_, key_, std::nullopt, path_);
}

void cInifile::DeleteSection() {
  lastReturnCode_ =
      platform::WritePrivateProfileString(section_, std::nullopt, std::nullopt, path_);
}

std::u16string cInifile::INISection() const {
  return platform::GetPrivateProfileString(section_, std::nullopt, default_, kListBuffer, path_);
}

void cInifile::INISection(const std::u16string& sSection) {
  lastReturnCode_ = platform::WritePrivateProfileString(section_, std::nullopt, sSection, path_);
}

std::u16string cInifile::Sections() const {
  return platform::GetPrivateProfileString(std::nullopt, std::nullopt, default_, kListBuffer,
                                           path_);
}

}  // namespace lexmill
