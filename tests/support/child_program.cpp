// SPDX-License-Identifier: MIT
// tests/support: the program `child`, which tests start. Its first word says what it does:
//   words W...   prints each word in angle brackets
//   folder       prints the folder that it lies in
//   streams      reads its input to the end, writes to both outputs, prints "kept" if it could
//   end CODE     ends with this exit code
//   vanish       ends as if it were killed
//   sleep        prints "asleep" and sleeps for ever
//   family       starts `child sleep` with its own output and waits for it
#include <chrono>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "platform/host/application.h"
#include "platform/host/program_start.h"
#include "platform/host/standard_streams.h"
#include "platform/host/termination.h"
#include "platform/text/text.h"
#include "tests/support/hard_surroundings.h"

namespace {

namespace platform = lexmill::platform;

int PrintWords(const std::vector<std::u16string>& words) {
  for (std::size_t i = 2; i < words.size(); ++i) {
    std::cout << "<" << platform::ToUtf8(words[i]) << ">";
  }
  return 0;
}

int UseStreams() {
  for (std::string line; std::getline(std::cin, line);) {
  }
  std::cerr << "lost" << std::flush;
  std::cout << (std::cin.eof() && std::cerr ? "kept" : "");
  return 0;
}

[[noreturn]] void Sleep() {
  std::cout << "asleep" << std::flush;
  while (true) {
    std::this_thread::sleep_for(std::chrono::hours(1));
  }
}

int Perform(const std::vector<std::u16string>& words) {
  const std::u16string& task = words.at(1);
  if (task == u"words") {
    return PrintWords(words);
  }
  if (task == u"folder") {
    std::cout << platform::ToUtf8(platform::ApplicationFolder());
    return 0;
  }
  if (task == u"streams") {
    return UseStreams();
  }
  if (task == u"end") {
    return std::stoi(platform::ToUtf8(words.at(2)));
  }
  if (task == u"vanish") {
    platform::ShowOrderlyEnd();
    lexmill::test::EndAsByAKill();
  }
  if (task == u"family") {
    const auto output = platform::TakeStandardStream(platform::StandardStream::Output);
    return *platform::RunProgram(
        {.words = {u"child", u"sleep"}, .directory = {}, .standardOutput = &output});
  }
  Sleep();
}

}  // namespace

int main(int count, char** words) {
  platform::PrepareOutput();
  return Perform(platform::ProgramWords(count, words));
}
