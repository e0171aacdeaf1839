// SPDX-License-Identifier: MIT
// bench: dictionaries of any size, and measurements of the run and its parts.
// One command with all processes that it starts: its time, and the peak memory of each.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace lexmill::bench {

/// A process that has ended.
struct EndedProcess {
  std::string name;            ///< of its program, as the host shortens it
  std::int64_t peakBytes = 0;  ///< of physical memory since the program was started
};

struct CommandMeasurement {
  double seconds = 0;                   ///< from its start to its end
  double cpuSeconds = 0;                ///< user and system time of all its processes
  int exitCode = 0;                     ///< -1 if a signal ended it
  std::vector<EndedProcess> processes;  ///< in the order in which they ended
};

/// Runs a command and follows its processes as a debugger would, so that none is missed however
/// short it lives. They stop only when they start another process or end.
/// @param arguments  the program, searched in PATH, and what it is given; not empty
/// @throws std::system_error if it can't be started or followed
[[nodiscard]] CommandMeasurement MeasureCommand(const std::vector<std::string>& arguments);

}  // namespace lexmill::bench
