// SPDX-License-Identifier: MIT
// platform/host: starts programs of the host, each argument by itself and never through a shell.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/host/host_file.h"

namespace lexmill::platform {

/// A program to start. The files have to stay open until it is started. A null file gives the
/// program an empty stream that takes everything.
struct ProgramStart {
  /// The program and its arguments. A program named without a folder is looked for in `directory`
  /// first, then in this program's folder, then where the host looks for programs.
  std::vector<std::u16string> words;
  std::u16string directory;  ///< the program's current directory; empty: this process's own
  const HostFile* standardInput = nullptr;
  const HostFile* standardOutput = nullptr;
  const HostFile* standardError = nullptr;
};

/// True if a program named without a folder would be found for a start in `directory`.
[[nodiscard]] bool IsProgramThere(std::u16string_view program, std::u16string_view directory);

/// The exit code of a program whose output may be a part of the whole, since it could not read or
/// write to the end.
inline constexpr int kExitBrokenStream = 74;
/// From here on an exit code means a violent end: by a signal, or whatever the host has.
inline constexpr int kExitByForce = 128;

/// Starts a program and waits for its end. What ends this process by its terminal ends the program,
/// too.
/// @return its exit code, kExitByForce and more if it was ended; NotFound if there is no such
///   program or directory, or why the host refuses
[[nodiscard]] HostResult<int> RunProgram(const ProgramStart& start);

}  // namespace lexmill::platform
