// SPDX-License-Identifier: MIT
#include "tests/support/hard_surroundings.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include <gtest/gtest.h>

#include "platform/text/text.h"

namespace lexmill::test {
namespace {

struct BeforeLimit {
  rlimit size{};
  void (*handler)(int) = SIG_DFL;
};
BeforeLimit theBeforeLimit;

}  // namespace

void MakePipe(std::u16string_view path) {
  EXPECT_EQ(mkfifo(platform::ToUtf8(path).c_str(), 0600), 0);
}

FileSizeLimit::FileSizeLimit(std::uint64_t bytes) {
  theBeforeLimit.handler = std::signal(SIGXFSZ, SIG_IGN);
  getrlimit(RLIMIT_FSIZE, &theBeforeLimit.size);
  const rlimit limit = {bytes, theBeforeLimit.size.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit() {
  setrlimit(RLIMIT_FSIZE, &theBeforeLimit.size);
  std::signal(SIGXFSZ, theBeforeLimit.handler);
}

bool PerformAndVanish(const std::function<bool()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    _exit(work() ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status == 0;
}

void EndAsByAKill() {
  raise(SIGKILL);
  std::abort();
}

std::string GoneProcess() {
  const pid_t child = fork();
  if (child == 0) {
    _exit(0);
  }
  waitpid(child, nullptr, 0);
  return std::to_string(child);
}

}  // namespace lexmill::test
