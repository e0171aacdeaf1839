// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// Names of languages.
#pragma once

#include <string_view>

namespace lexmill {

/// True if `tag`, as a file has it, names `wanted` or a part of it, or what it is a part of:
/// "zh_CN" and "zh" are "zh-cn", "zh-TW" isn't. Case and the kind of the dash don't count.
[[nodiscard]] bool IsLanguage(std::u16string_view tag, std::u16string_view wanted);

}  // namespace lexmill
