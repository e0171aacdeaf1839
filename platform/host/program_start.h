// SPDX-License-Identifier: MIT
// platform/host: starts programs of the host, each argument by itself and never through a shell.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/host_file.h"

namespace lexmill::platform {

/// A program to start. The files have to stay open until it is started. A null file gives the
/// program an empty stream that takes everything.
struct ProgramStart {
  /// The program and its arguments; passed as ToHostPath makes them. A program named without a
  /// folder is looked for in `directory` first, then in this program's folder, then in PATH.
  std::vector<std::u16string> words;
  std::u16string directory;  ///< the program's current directory; empty: this process's own
  const HostFile* standardInput = nullptr;
  const HostFile* standardOutput = nullptr;
  const HostFile* standardError = nullptr;
};

/// Which process group a started program belongs to. A signal to a group reaches all of it.
enum class ProcessGroup {
  Own,     ///< a new one, whose number is the program's process number
  Shared,  ///< that of this process
};

/// True if a program named without a folder would be found for a start in `directory`.
[[nodiscard]] bool IsProgramThere(std::u16string_view program, std::u16string_view directory);

/// Starts a program and goes on. The caller has to reap it with waitpid.
/// @return its process number; none and `errno` if there is no such program or directory, or if the
///   host refuses
[[nodiscard]] std::optional<int> StartProgram(const ProgramStart& start, ProcessGroup group);

/// The exit code of a program whose output may be a part of the whole, since it could not read or
/// write to the end.
inline constexpr int kExitBrokenStream = 74;
/// Exit codes from here on tell of a signal.
inline constexpr int kExitBySignal = 128;

/// Starts a program in this process's group and waits for its end.
/// @return its exit code, kExitBySignal plus the signal's number if a signal ended it; none as
/// StartProgram
[[nodiscard]] std::optional<int> RunProgram(const ProgramStart& start);

}  // namespace lexmill::platform
