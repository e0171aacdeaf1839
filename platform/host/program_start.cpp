// SPDX-License-Identifier: MIT
#include "platform/host/program_start.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "platform/host/application.h"
#include "platform/host/host_faults.h"
#include "platform/host/host_path.h"

namespace lexmill::platform {
namespace {

/// What the new process does before the program starts.
class FileActions {
 public:
  FileActions() { posix_spawn_file_actions_init(&actions_); }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;

  [[nodiscard]] int Give(const HostFile& file, int descriptor) {
    return posix_spawn_file_actions_adddup2(&actions_, file.Descriptor(), descriptor);
  }
  [[nodiscard]] int ChangeDirectory(const std::string& directory) {
    return posix_spawn_file_actions_addchdir_np(&actions_, directory.c_str());
  }
  [[nodiscard]] const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

/// The process's group and signals: none blocked, and a broken pipe ends it as it would from a
/// shell, whatever this process has chosen for itself.
class Attributes {
 public:
  explicit Attributes(ProcessGroup group) {
    posix_spawnattr_init(&attributes_);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    const int groupFlag = group == ProcessGroup::Own ? POSIX_SPAWN_SETPGROUP : 0;
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
HostFile ForChild(const HostFile* file) {
  HostFile empty;
  if (file == nullptr) {
    empty = HostFile::Open("/dev/null", O_RDWR);
    file = &empty;
  }
  return HostFile(fcntl(file->Descriptor(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

bool IsExecutable(const std::filesystem::path& directory, const std::string& program) {
  const std::filesystem::path candidate = directory / program;
  std::error_code none;
  return std::filesystem::is_regular_file(candidate, none) && access(candidate.c_str(), X_OK) == 0;
}

/// Where the search for `program` ends in `directory`; the name as it is if PATH is to be searched.
std::string Locate(const std::string& program, const std::string& directory) {
  if (program.empty() || program.find('/') != std::string::npos) {
    return program;
  }
  if (IsExecutable(directory, program)) {
    return "./" + program;
  }
  const std::string ours = ToHostPath(WithSeparator(ApplicationFolder()));
  return IsExecutable(ours, program) ? ours + program : program;
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

/// @return none and `errno` if one of the streams can't be passed on
std::optional<std::array<HostFile, 3>> StreamsForChild(const ProgramStart& start) {
  std::array<HostFile, 3> streams = {ForChild(start.standardInput), ForChild(start.standardOutput),
                                     ForChild(start.standardError)};
  for (const auto& stream : streams) {
    if (!stream.IsOpen()) {
      return std::nullopt;
    }
  }
  return streams;
}

}  // namespace

bool IsProgramThere(std::u16string_view program, std::u16string_view directory) {
  const std::string name = ToHostPath(program);
  if (IsExecutable(ToHostPath(directory), name) ||
      IsExecutable(ToHostPath(ApplicationFolder()), name)) {
    return true;
  }
  const char* path = std::getenv("PATH");
  std::istringstream folders(path == nullptr ? "" : path);
  for (std::string folder; std::getline(folders, folder, ':');) {
    if (IsExecutable(folder, name)) {
      return true;
    }
  }
  return false;
}

std::optional<int> StartProgram(const ProgramStart& start, ProcessGroup group) {
  if (start.words.empty()) {
    errno = ENOENT;
    return std::nullopt;
  }
  if (HostFaults::Strike(HostCall::Start)) {
    return std::nullopt;
  }
  const auto streams = StreamsForChild(start);
  if (!streams) {
    return std::nullopt;
  }
  std::vector<std::string> arguments;
  for (const auto& word : start.words) {
    arguments.push_back(ToHostPath(word));
  }
  const std::string directory = ToHostPath(start.directory);

  FileActions actions;
  int error = directory.empty() ? 0 : actions.ChangeDirectory(directory);
  for (int i = 0; i < 3 && error == 0; ++i) {
    error = actions.Give((*streams)[static_cast<std::size_t>(i)], i);
  }
  pid_t process = 0;
  if (error == 0) {
    error = posix_spawnp(&process, Locate(arguments[0], directory).c_str(), actions.Get(),
                         Attributes(group).Get(), Pointers(arguments).data(), environ);
  }
  errno = error;
  return error == 0 ? std::optional<int>(process) : std::nullopt;
}

std::optional<int> RunProgram(const ProgramStart& start) {
  const auto process = StartProgram(start, ProcessGroup::Shared);
  if (!process) {
    return std::nullopt;
  }
  int status = 0;
  while (waitpid(*process, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFSIGNALED(status) ? kExitBySignal + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace lexmill::platform
