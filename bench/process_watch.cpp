// SPDX-License-Identifier: MIT
#include "bench/process_watch.h"

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <limits>
#include <system_error>

namespace lexmill::bench {
namespace {

constexpr int kNotFound = 127;

[[noreturn]] void ThrowErrno(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

[[noreturn]] void BecomeCommand(const std::vector<std::string>& arguments) {
  std::vector<char*> values;
  for (const std::string& argument : arguments) {
    values.push_back(const_cast<char*>(argument.c_str()));
  }
  values.push_back(nullptr);
  ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
  raise(SIGSTOP);
  execvp(values.front(), values.data());
  _exit(kNotFound);
}

/// The process's name and peak, read at its end, while its memory is still there.
EndedProcess ReadEnding(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  EndedProcess ended;
  for (std::string key; status >> key;) {
    if (key == "Name:") {
      status >> ended.name;
    } else if (key == "VmHWM:") {
      constexpr std::int64_t kKibi = 1024;
      status >> ended.peakBytes;
      ended.peakBytes *= kKibi;
    }
    status.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
  }
  return ended;
}

/// Time that the process has had on a processor, its children not counted.
double ReadCpuSeconds(pid_t process) {
  std::ifstream statistics("/proc/" + std::to_string(process) + "/schedstat");
  double nanoseconds = 0;
  statistics >> nanoseconds;
  return nanoseconds * 1e-9;
}

/// The signal that a stopped process is to go on with: its own, but none for a stop of ours.
int SignalToPassOn(int status, bool isKnown) {
  const int signal = WSTOPSIG(status);
  const bool isOurs = signal == SIGTRAP || (status >> 16) != 0 || (signal == SIGSTOP && !isKnown);
  return isOurs ? 0 : signal;
}

bool IsAtItsEnd(int status) {
  return status >> 8 == (SIGTRAP | PTRACE_EVENT_EXIT << 8);
}

/// Lets the processes go on from stop to stop until none is left.
void FollowToTheEnd(pid_t first, CommandMeasurement& result) {
  std::vector<pid_t> known{first};
  int status = 0;
  for (pid_t process = 0; (process = waitpid(-1, &status, __WALL)) > 0;) {
    if (!WIFSTOPPED(status)) {
      if (process == first) {
        result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
      }
      continue;
    }
    if (IsAtItsEnd(status)) {
      result.processes.push_back(ReadEnding(process));
      result.cpuSeconds += ReadCpuSeconds(process);
    }
    const bool isKnown = std::find(known.begin(), known.end(), process) != known.end();
    if (!isKnown) {
      known.push_back(process);
    }
    ptrace(PTRACE_CONT, process, nullptr, SignalToPassOn(status, isKnown));
  }
}

}  // namespace

CommandMeasurement MeasureCommand(const std::vector<std::string>& arguments) {
  using Clock = std::chrono::steady_clock;
  const pid_t process = fork();
  if (process < 0) {
    ThrowErrno("fork");
  }
  if (process == 0) {
    BecomeCommand(arguments);
  }
  int status = 0;
  if (waitpid(process, &status, 0) < 0 ||
      ptrace(PTRACE_SETOPTIONS, process, nullptr,
             PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK | PTRACE_O_TRACECLONE | PTRACE_O_TRACEEXEC |
                 PTRACE_O_TRACEEXIT | PTRACE_O_EXITKILL) < 0) {
    ThrowErrno("ptrace");
  }
  CommandMeasurement result;
  const auto start = Clock::now();
  ptrace(PTRACE_CONT, process, nullptr, nullptr);
  FollowToTheEnd(process, result);
  result.seconds = std::chrono::duration<double>(Clock::now() - start).count();
  return result;
}

}  // namespace lexmill::bench
