// SPDX-License-Identifier: MIT
// platform/sqlite: the database shell: SQL from a script or from the command line, run on a
// database file.
#pragma once

#include <span>
#include <string>

#include "platform/sqlite/streams.h"

namespace lexmill::platform::sqlite {

/// Runs the shell with a command line.
///
/// A script goes on after a statement that fails; its text and what is wrong with it are part of
/// the output. Only a disk that is full or broken ends it there: what would follow could do no
/// better. A statement of the command line that fails ends the run, and the failure goes to the
/// error stream. A transaction that is open at the end is rolled back.
/// @param words  the command line, the program's name first
/// @return the exit code: 0, also after failed statements of a script; 74 if the disk, the file or
/// a
///   stream broke, so that rows printed may be a part of the whole; else 1
[[nodiscard]] int RunShell(std::span<const std::string> words, const ShellStreams& streams);

}  // namespace lexmill::platform::sqlite
