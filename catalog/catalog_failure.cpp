// SPDX-License-Identifier: MIT
#include "catalog/catalog_failure.h"

#include <string>

#include "platform/failure.h"
#include "platform/text/text.h"

namespace lexmill {

void RefuseCatalog(std::u16string_view path, std::int64_t line, std::u16string_view reason) {
  constexpr std::int32_t kOwnFailure = 1;
  const std::u16string number = platform::FromUtf8(std::to_string(line));
  throw platform::Failure(kOwnFailure, u"“" + std::u16string(path) + u"”第 " + number + u" 行：" +
                                           std::u16string(reason));
}

}  // namespace lexmill
