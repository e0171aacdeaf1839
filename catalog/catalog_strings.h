// SPDX-License-Identifier: MIT
// catalog: message catalogs and exchange formats as dictionaries.
// Strings of a catalog as a dictionary of the system has them, and back.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "run/shared/catalog_options.h"

namespace lexmill {

/// A string of a catalog as the rules take it: on one line, without a TAB, its hot key after "&".
/// FromDictionary turns it back.
/// @param accelerator  the mark that the catalog has before a hot key; one "&" of a catalog with
///   another mark becomes two, two marks become one
/// @param room  takes the result where it isn't `text` itself
/// @return `text` or what `room` has
[[nodiscard]] std::u16string_view ToDictionary(std::u16string_view text, char16_t accelerator,
                                               std::u16string& room);

/// A string of a dictionary as the catalog has it. Only `\n`, `\t`, `\r` and `\\` are turned back.
[[nodiscard]] std::u16string FromDictionary(std::u16string_view text, char16_t accelerator);

/// As FromDictionary, but `\n` and the like stay, so that the result is one line.
[[nodiscard]] std::u16string WithAccelerator(std::u16string_view text, char16_t accelerator);

/// `target` with its ending turned by the first of `endings` that `source` ends with, if `target`
/// does so, too.
[[nodiscard]] std::u16string TurnEnding(std::u16string_view source, std::u16string target,
                                        std::span<const Ending> endings);

}  // namespace lexmill
