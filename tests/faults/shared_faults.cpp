// SPDX-License-Identifier: MIT
#include "tests/faults/shared_faults.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

#include <new>

namespace lexmill::test {
namespace {

constexpr const char* kVariable = "LEXMILL_TEST_FAULTS";

SharedFaults* shared = nullptr;

std::optional<platform::HostError> FaultOf(platform::HostCall call) {
  const bool isMeant = shared->n > 0 && call == shared->kind && ++shared->calls == shared->n;
  return isMeant ? std::optional(shared->error) : std::nullopt;
}

/// Without the platform's own files, whose calls are counted.
void Map(const char* file) {
  const int descriptor = open(file, O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (descriptor < 0 || ftruncate(descriptor, sizeof(SharedFaults)) != 0) {
    abort();
  }
  void* const memory =
      mmap(nullptr, sizeof(SharedFaults), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
  close(descriptor);
  if (memory == MAP_FAILED) {
    abort();
  }
  shared = static_cast<SharedFaults*>(memory);
  platform::HostFaults::SetSource(FaultOf);
}

}  // namespace

FaultInjection::FaultInjection(const std::filesystem::path& file) {
  Map(file.c_str());
  new (shared) SharedFaults{};
  setenv(kVariable, file.c_str(), 1);
}

FaultInjection::~FaultInjection() {
  unsetenv(kVariable);
  platform::HostFaults::SetSource(nullptr);
  munmap(shared, sizeof(SharedFaults));
  shared = nullptr;
}

void FaultInjection::Arm(platform::HostCall kind, platform::HostError error, int n) {
  shared->kind = kind;
  shared->error = error;
  shared->n = n;
  shared->calls = 0;
}

bool FaultInjection::Disarm() {
  const bool hasCome = shared->calls >= shared->n;
  shared->n = 0;
  return hasCome;
}

void JoinFaultInjection() {
  if (const char* const file = getenv(kVariable)) {
    Map(file);
  }
}

}  // namespace lexmill::test
