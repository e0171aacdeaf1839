// SPDX-License-Identifier: MIT
// window: the program's one window outside a run.
// The table of languages, the text of `POLOLID.ini`.
#pragma once

namespace lexmill {

/// Id of the string resource that holds the table.
inline constexpr int kLanguageTableId = 101;

/// Puts the table into the program's string resources.
void AddLanguageTable();

}  // namespace lexmill
