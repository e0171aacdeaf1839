// SPDX-License-Identifier: MIT
#include "platform/host/application.h"

#include <map>

#include "platform/host/system_facts.h"

namespace lexmill::platform {
namespace {

std::u16string& Folder() {
  static std::u16string folder = system::ProgramFolder().Text();
  return folder;
}

std::map<int, std::u16string_view>& StringResources() {
  static std::map<int, std::u16string_view> resources;
  return resources;
}

}  // namespace

std::u16string ApplicationFolder() {
  return Folder();
}

void SetApplicationFolder(std::u16string_view folder) {
  Folder() = folder;
}

void AddStringResource(int id, std::u16string_view text) {
  StringResources()[id] = text;
}

std::u16string_view LoadStringResource(int id) {
  const auto found = StringResources().find(id);
  return found == StringResources().end() ? std::u16string_view() : found->second;
}

}  // namespace lexmill::platform
