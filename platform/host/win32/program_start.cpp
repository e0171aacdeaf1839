// SPDX-License-Identifier: MIT
#include <array>
#include <vector>

#include "platform/host/system_process.h"
#include "platform/host/win32/child.h"
#include "platform/host/win32/error.h"
#include "platform/host/win32/handle.h"
#include "platform/host/win32/path.h"
#include "platform/host/win32/program_search.h"
#include "platform/host/win32/running_mark.h"
#include "platform/host/win32/wide.h"

namespace lexmill::platform::system {
namespace {

/// An argument as programs read it back: backslashes count only before a quote, where each is
/// doubled, and the quote has one more.
std::wstring Quoted(std::wstring_view word) {
  if (!word.empty() && word.find_first_of(L" \t\n\v\"") == std::wstring_view::npos) {
    return std::wstring(word);
  }
  std::wstring result = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t unit : word) {
    if (unit == L'"') {
      result.append(backslashes + 1, L'\\');
    }
    backslashes = unit == L'\\' ? backslashes + 1 : 0;
    result += unit;
  }
  return result.append(backslashes, L'\\') + L"\"";
}

/// The program's name is read by another rule: up to the next quote, whatever is before it.
std::wstring CommandLineOf(const std::vector<std::u16string>& words) {
  std::wstring line = L"\"" + Wide(words[0]) + L"\"";
  for (std::size_t i = 1; i < words.size(); ++i) {
    line += L" " + Quoted(Wide(words[i]));
  }
  return line;
}

/// A handle for the child, of `file` or of the empty device; it alone will inherit it. A stream
/// that this process was started without is an empty one, too.
HostResult<OwnedHandle> ForChild(const HostFile* file) {
  HostFile empty;
  if (file == nullptr || !file->IsOpen()) {
    auto device = HostFile::Open(HostPath(kNullDevice), OpenMode::ReadWrite);
    if (!device) {
      return device.Error();
    }
    empty = *std::move(device);
    file = &empty;
  }
  const HANDLE self = GetCurrentProcess();
  HANDLE copy = nullptr;
  if (::DuplicateHandle(self, HandleOf(file->Handle()), self, &copy, 0, TRUE,
                        DUPLICATE_SAME_ACCESS) == 0) {
    return LastError();
  }
  return OwnedHandle(copy);
}

using Streams = std::array<OwnedHandle, 3>;

/// A job for a program and all that it starts. What is left in it ends with its last handle, which
/// is this process's: so also if this process is killed, even in the midst of starting a program.
HostResult<OwnedHandle> NewJob() {
  OwnedHandle job(CreateJobObjectW(nullptr, nullptr));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  if (!job.IsOpen() || SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation,
                                               &limits, sizeof limits) == 0) {
    return LastError();
  }
  return job;
}

/// What a new process begins with: the three streams, which are all that it inherits, and its job,
/// which it is in from its first moment on.
class StartupInformation {
 public:
  StartupInformation(const Streams& streams, HANDLE job) : job_(job) {
    for (std::size_t i = 0; i < streams.size(); ++i) {
      handles_[i] = streams[i].Get();
    }
    information_.StartupInfo.cb = sizeof information_;
    information_.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    information_.StartupInfo.hStdInput = handles_[0];
    information_.StartupInfo.hStdOutput = handles_[1];
    information_.StartupInfo.hStdError = handles_[2];
    isComplete_ = MakeList() &&
                  Set(PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_.data(), sizeof handles_) &&
                  Set(PROC_THREAD_ATTRIBUTE_JOB_LIST, &job_, sizeof job_);
  }
  ~StartupInformation() {
    if (information_.lpAttributeList != nullptr) {
      DeleteProcThreadAttributeList(information_.lpAttributeList);
    }
  }
  StartupInformation(const StartupInformation&) = delete;
  StartupInformation& operator=(const StartupInformation&) = delete;

  [[nodiscard]] bool IsComplete() const { return isComplete_; }
  [[nodiscard]] STARTUPINFOW* Get() { return &information_.StartupInfo; }

 private:
  static constexpr DWORD kMostAttributes = 2;

  bool MakeList() {
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, kMostAttributes, 0, &size);
    attributes_.resize(size);
    const auto list = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(attributes_.data());
    if (InitializeProcThreadAttributeList(list, kMostAttributes, 0, &size) == 0) {
      return false;
    }
    information_.lpAttributeList = list;
    return true;
  }
  bool Set(DWORD_PTR attribute, void* value, SIZE_T size) {
    return UpdateProcThreadAttribute(information_.lpAttributeList, 0, attribute, value, size,
                                     nullptr, nullptr) != 0;
  }

  std::array<HANDLE, 3> handles_{};
  HANDLE job_;
  std::vector<char> attributes_;
  STARTUPINFOEXW information_{};
  bool isComplete_ = false;
};

/// A family of its own gets a console without a window, which no key on ours reaches. Any other
/// shares ours, if there is one.
DWORD FlagsFor(Family family) {
  const bool hasConsole = GetConsoleCP() != 0;
  const bool isHidden = family == Family::Own || !hasConsole;
  return EXTENDED_STARTUPINFO_PRESENT | (isHidden ? CREATE_NO_WINDOW : 0);
}

HostResult<PROCESS_INFORMATION> Created(const ProgramStart& start, const std::wstring& file,
                                        StartupInformation& information, Family family) {
  std::wstring line = CommandLineOf(start.words);
  const auto folder = start.directory.empty() ? HostResult<std::wstring>(std::wstring())
                                              : NameForStart(HostPath(start.directory));
  if (!folder) {
    return folder.Error();
  }
  PROCESS_INFORMATION process = {};
  if (!information.IsComplete() ||
      CreateProcessW(file.c_str(), line.data(), nullptr, nullptr, TRUE, FlagsFor(family), nullptr,
                     folder->empty() ? nullptr : folder->c_str(), information.Get(),
                     &process) == 0) {
    return LastError();
  }
  return process;
}

}  // namespace

HostResult<ChildHandle> Start(const ProgramStart& start, Family family) {
  const auto file =
      start.words.empty() ? std::nullopt : ProgramFile(start.words[0], start.directory);
  if (!file) {
    return HostError::NotFound;
  }
  const auto streams = StreamsForChild(start, ForChild);
  if (!streams) {
    return streams.Error();
  }
  auto job = NewJob();
  if (!job) {
    return job.Error();
  }
  StartupInformation information(*streams, job->Get());
  const auto created = Created(start, *file, information, family);
  if (!created) {
    return created.Error();
  }
  const OwnedHandle thread(created->hThread);
  return std::make_shared<Child>(OwnedHandle(created->hProcess), RunningMark(created->dwProcessId),
                                 *std::move(job));
}

}  // namespace lexmill::platform::system
