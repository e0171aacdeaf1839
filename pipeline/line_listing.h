// SPDX-License-Identifier: MIT
// pipeline: performs one run, one class for each pair of formats.
// The last step of a run that ends in a text: the listing of table O cut into the final file.
#pragma once

#include <string>

namespace lexmill {

/// Writes an empty line and then each line of the listing without its head of eight characters,
/// empty ones as they are. Stars grow in row 3 meanwhile, which ends with the time of this step.
/// The result has the encoding of the untranslated dictionary. In a run that is abandoned an
/// earlier one stays.
/// @throws platform::Failure if the listing is missing or empty (the result then holds one empty
///   line), or if the result can't be created or written
void ConvertLineListing(const std::u16string& listing, const std::u16string& result);

}  // namespace lexmill
