// SPDX-License-Identifier: MIT
// A family of its own is a process group, led by the program; the group may outlive its leader.
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <limits>

#include "platform/host/posix/child.h"
#include "platform/host/posix/descriptor.h"
#include "platform/host/posix/error.h"
#include "platform/host/system_process.h"

namespace lexmill::platform::system {

HostResult<Pipe> CreatePipe() {
  std::array<int, 2> ends = {};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) {
    return LastError();
  }
  return Pipe{HostFile(HandleOf(ends[0])), HostFile(HandleOf(ends[1]))};
}

Arrival WaitForInput(HostHandle handle, int milliseconds) {
  pollfd input = {DescriptorOf(handle), POLLIN, 0};
  const int ready = poll(&input, 1, milliseconds);
  if (ready > 0) {
    return Arrival::Something;
  }
  return ready == 0 || errno == EINTR ? Arrival::NothingYet : Arrival::Failure;
}

int WaitForEnd(Child& child) {
  int status = 0;
  while (waitpid(child.process, &status, 0) < 0 && errno == EINTR) {
  }
  child.isReaped = true;
  return WIFSIGNALED(status) ? kExitByForce + WTERMSIG(status) : WEXITSTATUS(status);
}

void WaitForEnd(Child& child, int milliseconds) {
  if (child.isReaped) {
    return;
  }
  // The library's own declaration of this call can't be linked from C++ on all its versions.
  const HostFile process(HandleOf(static_cast<int>(syscall(SYS_pidfd_open, child.process, 0))));
  if (process.IsOpen()) {
    std::ignore = WaitForInput(process.Handle(), milliseconds);
  }
}

bool IsGone(Child& child) {
  if (!child.isReaped) {
    child.isReaped = waitpid(child.process, nullptr, WNOHANG) != 0;
  }
  return child.isReaped && kill(-child.process, 0) != 0;
}

void End(Child& child) {
  std::ignore = kill(-child.process, SIGKILL);
}

std::uint32_t ProcessNumber() {
  return static_cast<std::uint32_t>(getpid());
}

bool IsProcessGone(std::uint32_t number) {
  const bool isNumber = number > 0 && number <= std::uint32_t{std::numeric_limits<pid_t>::max()};
  return isNumber && kill(static_cast<pid_t>(number), 0) != 0 && errno == ESRCH;
}

}  // namespace lexmill::platform::system
