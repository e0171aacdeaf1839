// SPDX-License-Identifier: MIT
// measure COMMAND ARGUMENTS...: runs the command and prints one line of JSON to standard output.
// The command's own output goes to standard error.
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "bench/process_watch.h"

namespace {

using lexmill::bench::CommandMeasurement;

void Print(const CommandMeasurement& result, std::ostream& out) {
  out << "{\"seconds\": " << result.seconds << ", \"cpu\": " << result.cpuSeconds
      << ", \"exit\": " << result.exitCode << ", \"processes\": [";
  const char* before = "";
  for (const auto& process : result.processes) {
    out << before << "[\"" << process.name << "\", " << process.peakBytes << "]";
    before = ", ";
  }
  out << "]}\n";
}

}  // namespace

int main(int count, char** values) {
  const std::vector<std::string> arguments(values + 1, values + count);
  if (arguments.empty()) {
    std::cerr << "usage: measure COMMAND ARGUMENTS...\n";
    return 2;
  }
  try {
    const int output = dup(STDOUT_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    const CommandMeasurement result = lexmill::bench::MeasureCommand(arguments);
    std::fflush(stdout);
    dup2(output, STDOUT_FILENO);
    Print(result, std::cout);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
