// SPDX-License-Identifier: MIT
#include "platform/host/process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>
#include <vector>

#include "platform/host/command_line.h"
#include "platform/host/host_faults.h"
#include "platform/host/program_start.h"

namespace lexmill::platform {
namespace {

constexpr int kWaitingStep = 50;  // milliseconds

/// A child process and the group that it leads. The group may outlive its leader.
struct Child {
  pid_t process;
  bool isReaped;
};

std::vector<Child>& Children() {
  static std::vector<Child> children;
  return children;
}

std::function<void()>& WaitingStep() {
  static std::function<void()> step;
  return step;
}

std::function<void(std::string_view)>& OutputWatch() {
  static std::function<void(std::string_view)> watch;
  return watch;
}

/// True if nothing is left of `child`: it has ended, and so has all that it started.
bool IsGone(Child& child) {
  if (!child.isReaped) {
    child.isReaped = waitpid(child.process, nullptr, WNOHANG) != 0;
  }
  return child.isReaped && kill(-child.process, 0) != 0;
}

// A SIGCHLD handler would reap at once, but the handler belongs to the whole process, and the
// window toolkit has children of its own. So the ended ones are looked for at each call here.
void ForgetEnded() {
  std::erase_if(Children(), IsGone);
}

/// A child lets go of its pipe a moment before it can be reaped: gives the last one that moment, so
/// that it doesn't stay in the host's process table until the next call.
void ForgetEndedSoon() {
  if (!Children().empty() && !Children().back().isReaped) {
    // The library's own declaration of this call can't be linked from C++ on all its versions.
    const HostFile child(static_cast<int>(syscall(SYS_pidfd_open, Children().back().process, 0)));
    pollfd end = {child.Descriptor(), POLLIN, 0};
    poll(&end, child.IsOpen() ? 1 : 0, child.IsOpen() ? kWaitingStep : 0);
  }
  ForgetEnded();
}

/// Waits until `file` can be read or is broken, with the waiting step in between.
bool WaitForInput(const HostFile& file) {
  pollfd input = {file.Descriptor(), POLLIN, 0};
  while (true) {
    const int ready = poll(&input, 1, kWaitingStep);
    if (ready > 0) {
      return true;
    }
    if (ready < 0 && errno != EINTR) {
      return false;
    }
    ForgetEnded();
    if (WaitingStep()) {
      WaitingStep()();
    }
  }
}

}  // namespace

std::optional<Pipe> CreatePipe() {
  std::array<int, 2> ends = {};
  if (HostFaults::Strike(HostCall::Start) || pipe2(ends.data(), O_CLOEXEC) != 0) {
    return std::nullopt;
  }
  return Pipe{HostFile(ends[0]), HostFile(ends[1])};
}

HostFile DuplicateHandle(const HostFile& file) {
  return HostFile(fcntl(file.Descriptor(), F_DUPFD_CLOEXEC, 0));
}

std::optional<std::size_t> ReadPipe(HostFile& readEnd, std::span<char> buffer) {
  if (!readEnd.IsOpen() || !WaitForInput(readEnd)) {
    return std::nullopt;
  }
  const auto count = readEnd.Read(buffer);
  if (count && *count > 0) {
    if (OutputWatch()) {
      OutputWatch()({buffer.data(), *count});
    }
    return count;
  }
  if (!count) {
    // The caller goes on as if the child were gone, so it must not write behind the caller's back.
    EndChildProcesses();
  }
  ForgetEndedSoon();
  return std::nullopt;
}

bool CreateProcess(const ProcessStart& start) {
  ForgetEnded();
  const ProgramStart program = {
      .words = CommandLine(start.commandLine, start.currentDirectory),
      .directory = start.currentDirectory,
      .standardInput = start.standardInput,
      .standardOutput = start.standardOutput,
      .standardError = start.standardError,
  };
  const auto process = StartProgram(program, ProcessGroup::Own);
  if (process) {
    Children().push_back({.process = *process, .isReaped = false});
  }
  return process.has_value();
}

void EndChildProcesses() {
  ForgetEnded();
  for (const auto& child : Children()) {
    kill(-child.process, SIGKILL);
  }
}

void SetWaiting(std::function<void()> step) {
  WaitingStep() = std::move(step);
}

void SetOutputWatch(std::function<void(std::string_view)> watch) {
  OutputWatch() = std::move(watch);
}

}  // namespace lexmill::platform
