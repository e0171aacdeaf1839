// SPDX-License-Identifier: MIT
// platform/host: what the folder of each system defines for processes. Called by this folder's
// sources alone, which ask HostFaults before and say in their headers what each call means.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include "platform/host/host_file.h"
#include "platform/host/process.h"
#include "platform/host/program_start.h"

namespace lexmill::platform::system {

[[nodiscard]] HostResult<Pipe> CreatePipe();

enum class Arrival { Something, NothingYet, Failure };
/// Waits until something can be read from `handle` or its other end is closed, which counts as
/// Something; no longer than `milliseconds`.
[[nodiscard]] Arrival WaitForInput(HostHandle handle, int milliseconds);

/// Who is ended together with a started program.
enum class Family {
  Own,     ///< all that it starts in turn, and nobody else
  Shared,  ///< whoever is ended with this process
};

/// A program that was started. Letting go of it may end it where it hasn't ended.
class Child;
using ChildHandle = std::shared_ptr<Child>;

/// What a program to start gets as its standard streams: each as `forChild` makes it from the file
/// that `start` names for it. @return the streams, or the first failure
template <class Stream>
[[nodiscard]] HostResult<std::array<Stream, 3>> StreamsForChild(
    const ProgramStart& start, HostResult<Stream> (*forChild)(const HostFile*)) {
  const std::array files = {start.standardInput, start.standardOutput, start.standardError};
  std::array<Stream, 3> streams;
  for (std::size_t i = 0; i < files.size(); ++i) {
    auto stream = forChild(files[i]);
    if (!stream) {
      return stream.Error();
    }
    streams[i] = *std::move(stream);
  }
  return streams;
}

[[nodiscard]] HostResult<ChildHandle> Start(const ProgramStart& start, Family family);
/// Waits for the program's end. @return its exit code, as RunProgram says
[[nodiscard]] int WaitForEnd(Child& child);
/// Gives the program up to `milliseconds` to end.
void WaitForEnd(Child& child, int milliseconds);
/// True if nothing is left of a family of its own.
[[nodiscard]] bool IsGone(Child& child);
/// Ends a family of its own, at once and without a chance to refuse.
void End(Child& child);

/// Number of this process, as IsProcessGone takes it.
[[nodiscard]] std::uint32_t ProcessNumber();
/// True if there is surely no process of this number.
[[nodiscard]] bool IsProcessGone(std::uint32_t number);

}  // namespace lexmill::platform::system
