// SPDX-License-Identifier: MIT
// pipeline: carries one run, one class for each pair of formats.
// The last step of a run that ends in a text: the listing of table O cut into the final file.
#pragma once

#include <cstdint>
#include <string>

namespace lexmill {

/// Writes an empty line and then each line of the listing without its head of eight units, empty ones
/// as they are. Stars in row 3 grow meanwhile. The result has the encoding of the untranslated
/// dictionary.
/// @return tick count at which the copying started
/// @throws platform::Failure if the listing is missing or empty (the result then holds one empty
///   line), or the result can't be created or written
[[nodiscard]] std::int32_t ConvertLineListing(const std::u16string& listing,
                                              const std::u16string& result);

}  // namespace lexmill
