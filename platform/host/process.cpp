// SPDX-License-Identifier: MIT
// Children are kept until nothing is left of them and what they started, so that EndChildProcesses
// reaches also what a child that has ended left running.
#include "platform/host/process.h"

#include <optional>
#include <utility>
#include <vector>

#include "platform/host/command_line.h"
#include "platform/host/host_faults.h"
#include "platform/host/program_start.h"
#include "platform/host/system_file.h"
#include "platform/host/system_process.h"

namespace lexmill::platform {
namespace {

constexpr int kWaitingStep = 50;  // milliseconds
constexpr int kStepsAfterEnd = 40;

std::vector<system::ChildHandle>& Children() {
  static std::vector<system::ChildHandle> children;
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

/// Steps for which output is still waited for, once the children have been ended. Who can't be
/// ended, such as one that hangs in a device, may keep its end of the pipe for ever.
std::optional<int>& StepsLeft() {
  static std::optional<int> steps;
  return steps;
}

// A notice of the host would come at once, but such notices belong to the whole process, and the
// window toolkit has children of its own. So the ended ones are looked for at each call here.
void ForgetEnded() {
  std::erase_if(Children(), [](const system::ChildHandle& child) { return IsGone(*child); });
}

/// A child lets go of its pipe a moment before it has ended: gives the last one that moment, so
/// that the host keeps nothing of it until the next call.
void ForgetEndedSoon() {
  if (!Children().empty()) {
    WaitForEnd(*Children().back(), kWaitingStep);
  }
  ForgetEnded();
}

/// Waits until `file` can be read or is broken, with the waiting step in between.
/// @return false if it can't be read, or nobody is left whose output it is
bool WaitForInput(const HostFile& file) {
  while (true) {
    const system::Arrival arrival = system::WaitForInput(file.Handle(), kWaitingStep);
    if (arrival != system::Arrival::NothingYet) {
      return arrival == system::Arrival::Something;
    }
    ForgetEnded();
    if (WaitingStep()) {
      WaitingStep()();
    }
    if (StepsLeft() && --*StepsLeft() <= 0) {
      return false;
    }
  }
}

}  // namespace

std::optional<Pipe> CreatePipe() {
  if (HostFaults::Strike(HostCall::Start)) {
    return std::nullopt;
  }
  auto pipe = system::CreatePipe();
  return pipe ? std::optional(*std::move(pipe)) : std::nullopt;
}

HostFile DuplicateHandle(const HostFile& file) {
  const auto handle = system::Duplicate(file.Handle());
  return handle ? HostFile(*handle) : HostFile();
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
    return *count;
  }
  if (!count) {
    // The caller goes on as if the child were gone, so it must not write unseen any longer.
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
  if (HostFaults::Strike(HostCall::Start)) {
    return false;
  }
  auto child = system::Start(program, system::Family::Own);
  if (!child) {
    return false;
  }
  Children().push_back(*std::move(child));
  StepsLeft().reset();
  return true;
}

void EndChildProcesses() {
  ForgetEnded();
  for (const auto& child : Children()) {
    End(*child);
  }
  StepsLeft() = StepsLeft().value_or(kStepsAfterEnd);
}

void SetWaiting(std::function<void()> step) {
  WaitingStep() = std::move(step);
}

void SetOutputWatch(std::function<void(std::string_view)> watch) {
  OutputWatch() = std::move(watch);
}

HostResult<int> RunProgram(const ProgramStart& start) {
  if (const auto error = HostFaults::Strike(HostCall::Start)) {
    return *error;
  }
  const auto child = system::Start(start, system::Family::Shared);
  if (!child) {
    return child.Error();
  }
  return system::WaitForEnd(**child);
}

}  // namespace lexmill::platform
