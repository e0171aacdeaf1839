// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// What is said of a catalog that can't be read.
#pragma once

#include <cstdint>
#include <string_view>

namespace lexmill {

/// Ends the reading of the catalog `path`: its line `line`, the first being 1, is wrong for
/// `reason`, a Chinese phrase. @throws platform::Failure always
[[noreturn]] void RefuseCatalog(std::u16string_view path, std::int64_t line,
                                std::u16string_view reason);

}  // namespace lexmill
