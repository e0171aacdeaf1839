// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// Which format a dictionary has, by its content.
#pragma once

#include <string>
#include <string_view>

#include "run/shared/dictionary_kind.h"

namespace lexmill::modMain {

/// Looks at the first lines of a dictionary; one line with exactly one TAB makes it a glossary.
/// Writes the language table into the work folder when it is one.
/// @param languagePair  [in,out] the head line of a glossary, if it names two known languages;
///   otherwise left alone
/// @return Unknown also for a file that does not exist
/// @throws platform::Failure InputPastEnd for an empty file, or one whose last line has a number
///   before a colon while no line is one of a glossary; and what opening a file throws
[[nodiscard]] DictionaryFormat DetectDictionaryFormat(std::u16string_view path,
                                                      std::u16string& languagePair);

/// The same without a look at languages; no table is written.
[[nodiscard]] DictionaryFormat DetectDictionaryFormat(std::u16string_view path);

/// @throws platform::Failure of the system's own for a file that is of no known format
[[noreturn]] void RefuseUnknownFormat(std::u16string_view path);

}  // namespace lexmill::modMain
