// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "platform/host/application.h"
#include "platform/host/posix/child.h"
#include "platform/host/posix/descriptor.h"
#include "platform/host/posix/error.h"
#include "platform/host/system_process.h"
#include "platform/text/text.h"

namespace lexmill::platform::system {
namespace {

/// What the new process does before the program starts.
class FileActions {
 public:
  FileActions() { posix_spawn_file_actions_init(&actions_); }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;

  [[nodiscard]] int Give(const HostFile& file, int descriptor) {
    return posix_spawn_file_actions_adddup2(&actions_, DescriptorOf(file.Handle()), descriptor);
  }
  [[nodiscard]] int ChangeDirectory(const HostPath& directory) {
    return posix_spawn_file_actions_addchdir_np(&actions_, directory.Native().c_str());
  }
  [[nodiscard]] const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

/// The process's group and signals: none blocked, and a broken pipe ends it as it would from a
/// shell, whatever this process has chosen for itself.
class Attributes {
 public:
  explicit Attributes(Family family) {
    posix_spawnattr_init(&attributes_);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    const int groupFlag = family == Family::Own ? POSIX_SPAWN_SETPGROUP : 0;
    posix_spawnattr_setflags(&attributes_, static_cast<short>(POSIX_SPAWN_SETSIGMASK |
                                                              POSIX_SPAWN_SETSIGDEF | groupFlag));
  }
  ~Attributes() { posix_spawnattr_destroy(&attributes_); }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;

  [[nodiscard]] const posix_spawnattr_t* Get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_;
};

/// A copy of `file`, or of the empty device, above the three standard descriptors: a plain one
/// might be overwritten by its neighbour on its way into the new process.
HostResult<HostFile> ForChild(const HostFile* file) {
  HostFile empty;
  if (file == nullptr) {
    auto device = HostFile::Open(HostPath(kNullDevice), OpenMode::ReadWrite);
    if (!device) {
      return device;
    }
    empty = *std::move(device);
    file = &empty;
  }
  const int copy = fcntl(DescriptorOf(file->Handle()), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  if (copy < 0) {
    return LastError();
  }
  return HostFile(HandleOf(copy));
}

bool IsExecutable(const std::filesystem::path& directory, const std::string& program) {
  const std::filesystem::path candidate = directory / program;
  std::error_code none;
  return std::filesystem::is_regular_file(candidate, none) && access(candidate.c_str(), X_OK) == 0;
}

/// Where the search for `program` ends in `directory`; the name as it is if PATH is to be searched.
std::string Locate(const std::string& program, const std::filesystem::path& directory) {
  if (program.empty() || program.find('/') != std::string::npos) {
    return program;
  }
  if (IsExecutable(directory, program)) {
    return "./" + program;
  }
  const std::filesystem::path ours = HostPath(ApplicationFolder()).Native();
  return IsExecutable(ours, program) ? (ours / program).native() : program;
}

std::vector<char*> Pointers(std::vector<std::string>& arguments) {
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (auto& argument : arguments) {
    pointers.push_back(argument.data());
  }
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

HostResult<ChildHandle> Start(const ProgramStart& start, Family family) {
  if (start.words.empty()) {
    return HostError::NotFound;
  }
  const auto streams = StreamsForChild(start, ForChild);
  if (!streams) {
    return streams.Error();
  }
  std::vector<std::string> arguments;
  for (const auto& word : start.words) {
    arguments.push_back(ToUtf8(word));
  }
  const HostPath directory(start.directory);

  FileActions actions;
  int error = start.directory.empty() ? 0 : actions.ChangeDirectory(directory);
  for (int i = 0; i < 3 && error == 0; ++i) {
    error = actions.Give((*streams)[static_cast<std::size_t>(i)], i);
  }
  pid_t process = 0;
  if (error == 0) {
    error = posix_spawnp(&process, Locate(arguments[0], directory.Native()).c_str(), actions.Get(),
                         Attributes(family).Get(), Pointers(arguments).data(), environ);
  }
  if (error != 0) {
    return HostErrorOf(error);
  }
  return std::make_shared<Child>(process);
}

}  // namespace lexmill::platform::system

namespace lexmill::platform {

bool IsProgramThere(std::u16string_view program, std::u16string_view directory) {
  const std::string name = ToUtf8(program);
  if (system::IsExecutable(HostPath(directory).Native(), name) ||
      system::IsExecutable(HostPath(ApplicationFolder()).Native(), name)) {
    return true;
  }
  const char* path = std::getenv("PATH");
  std::istringstream folders(path == nullptr ? "" : path);
  for (std::string folder; std::getline(folders, folder, ':');) {
    if (system::IsExecutable(folder, name)) {
      return true;
    }
  }
  return false;
}

}  // namespace lexmill::platform
