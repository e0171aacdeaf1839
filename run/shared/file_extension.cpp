// SPDX-License-Identifier: MIT
#include "run/shared/file_extension.h"

#include "platform/failure.h"

namespace lexmill::modMain {

std::u16string ChangeFileExtension(std::u16string_view path, const std::u16string& extension) {
  const auto point = path.rfind(u'.');
  if (point == std::u16string_view::npos) {
    throw platform::Failure(platform::FailureNumber::InvalidCall, platform::FailureOrigin::Runtime);
  }
  return std::u16string(path.substr(0, point)) + extension;
}

}  // namespace lexmill::modMain
