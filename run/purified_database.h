// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
// Which reference is the database that an earlier run saved.
#pragma once

#include <cstdint>
#include <string_view>

namespace lexmill::modMain {

/// True if the file is a database of the format that the runs save, with the reference table as its
/// first. Looks at two fixed places and opens no database. Never fails: a file that can't be read
/// is none.
[[nodiscard]] bool IsPurifiedDatabase(std::u16string_view path);

/// How many entries the purified database `path` holds, as the `sqlite` program beside this one
/// counts them; 0 if it can't.
[[nodiscard]] std::int64_t RowsOfPurifiedDatabase(std::u16string_view path);

}  // namespace lexmill::modMain
