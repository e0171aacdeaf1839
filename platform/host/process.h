// SPDX-License-Identifier: MIT
// platform/host: pipes and child processes.
// Stands for: CreatePipe, DuplicateHandle, CreateProcessA, ReadFile, CloseHandle.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/host/host_file.h"

namespace lexmill::platform {

/// Both ends of an anonymous pipe.
struct Pipe {
  HostFile readEnd;
  HostFile writeEnd;
};

/// @return none if the host has no more pipes
[[nodiscard]] std::optional<Pipe> CreatePipe();

/// A second handle to what `file` is open on; not open if the host has no more.
[[nodiscard]] HostFile DuplicateHandle(const HostFile& file);

/// Reads what has arrived, at most `buffer.size()` bytes; waits for the first byte. While it waits,
/// the function of SetWaiting runs in short steps.
/// @return number of bytes, never 0; none when the pipe is broken (its last writer is gone) or if
///   it can't be read; in that case all child processes are ended
[[nodiscard]] std::optional<std::size_t> ReadPipe(HostFile& readEnd, std::span<char> buffer);

/// How a child is started. A null handle gives the child an empty stream that takes everything.
struct ProcessStart {
  std::u16string commandLine;       ///< as CommandLine in command_line.h reads it
  std::u16string currentDirectory;  ///< empty: this process's own
  const HostFile* standardInput = nullptr;
  const HostFile* standardOutput = nullptr;
  const HostFile* standardError = nullptr;
};

/// Starts a child process that can be ended with all it started. Nobody waits for its end: what the
/// host keeps of an ended child is released by a later call of CreateProcess, ReadPipe or
/// EndChildProcesses, as a rule when the pipe breaks that it wrote to.
/// @return false if the program can't be started
[[nodiscard]] bool CreateProcess(const ProcessStart& start);

/// Ends every child process that CreateProcess started, with all it started, at once and without a
/// chance to refuse; also what a child that has ended left running. ReadPipe waits two seconds at
/// most for one that the host can't end, and then gives none.
void EndChildProcesses();

/// Sets what runs about every 50 milliseconds while ReadPipe waits; nothing by default. The window
/// repaints itself there.
void SetWaiting(std::function<void()> step);

/// Sets what sees each piece of output that ReadPipe reads, before its caller does; nobody by
/// default.
void SetOutputWatch(std::function<void(std::string_view)> watch);

}  // namespace lexmill::platform
