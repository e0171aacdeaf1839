// SPDX-License-Identifier: MIT
// What the address sanitizer of every fuzzer starts with.

/// Runs are short: memory that one has freed need not outlive the next ones, and each page that is
/// never touched saves the time of several inputs.
extern "C" const char* __asan_default_options() {
  return "quarantine_size_mb=1:max_malloc_fill_size=0";
}
