// SPDX-License-Identifier: MIT
#include "platform/batch/file_commands.h"

#include <fcntl.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <vector>

#include "platform/batch/messages.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/host/host_failure.h"
#include "platform/host/host_path.h"
#include "platform/text/text.h"

namespace lexmill::platform::batch {
namespace {

constexpr std::size_t kBlockSize = 256 * 1024;  // bytes

/// Where a copy of `source` goes: into `target` if that is a folder.
std::string CopyTarget(const std::string& source, const std::string& target) {
  const auto status = StatusOf(target);
  return status && status->kind == FileKind::Folder
             ? target + '/' + std::filesystem::path(source).filename().string()
             : target;
}

/// @return false and `errno` if one of the two files fails
bool CopyContent(HostFile& from, HostFile& to) {
  std::vector<char> block(kBlockSize);
  while (true) {
    const auto count = from.Read(block);
    if (!count || !to.Write({block.data(), *count})) {
      return false;
    }
    if (*count == 0) {
      return true;
    }
  }
}

/// A database that is empty was never filled, since its writer died or met no end of its script.
/// One beside which a journal stands was being changed then: its pages make sense with the journal
/// alone. A copy of either would pass for a whole one.
bool IsUnfinished(const HostFile& file, const std::string& source) {
  const auto status = file.Status();
  const auto journal = StatusOf(source + "-journal");
  return (status && status->kind == FileKind::Regular && status->size == 0) ||
         (journal && journal->size > 0);
}

/// @return 0 if `target` is there in full; otherwise it is as it was, and why, as in `errno`
int ReplaceByCopy(HostFile& source, const std::string& target) {
  auto copy = ReplacementFile::Create(target);
  const bool isDone = copy && CopyContent(source, copy->File()) && copy->Commit(true);
  return isDone ? 0 : errno;
}

std::u16string FullPath(std::u16string_view name) {
  std::error_code none;
  return FromHostPath(
      std::filesystem::absolute(ToHostPath(name), none).lexically_normal().string());
}

bool DeleteOne(std::u16string_view name, HostFile& error) {
  try {
    FileSystemObject().DeleteFile(name);
    return true;
  } catch (const Failure& failure) {
    const std::u16string path = FullPath(name);
    const std::u16string_view reason = Describe(failure);
    if (reason == kFileNotFound || reason == kPathNotFound) {
      PrintLine(error, std::u16string(kCouldNotFind) + path);
    } else {
      PrintLine(error, path);
      PrintLine(error, reason);
    }
    return false;
  }
}

}  // namespace

std::string HostName(std::u16string_view name) {
  return LowerCase(name) == u"nul" ? "/dev/null" : ToHostPath(name);
}

bool Copy(std::span<const std::u16string> names, CommandStreams streams) {
  if (names.size() != 2) {
    PrintLine(streams.error, kWrongSyntax);
    return false;
  }
  const std::string source = HostName(names[0]);
  HostFile file = HostFile::Open(source, O_RDONLY);
  if (!file.IsOpen()) {
    PrintLine(streams.error, Describe(FileFailure(errno, source)));
    return false;
  }
  if (IsUnfinished(file, source)) {
    PrintLine(streams.error, kAccessDenied);
    return false;
  }
  const std::string target = CopyTarget(source, HostName(names[1]));
  if (const int error = ReplaceByCopy(file, target); error != 0) {
    PrintLine(streams.error, Describe(FileFailure(error, target)));
    PrintLine(streams.output, kNoFileCopied);
    return false;
  }
  PrintLine(streams.output, kOneFileCopied);
  return true;
}

bool Delete(std::span<const std::u16string> names, CommandStreams streams) {
  if (names.empty()) {
    PrintLine(streams.error, kWrongSyntax);
  }
  bool isDone = !names.empty();
  for (const auto& name : names) {
    isDone = DeleteOne(name, streams.error) && isDone;
  }
  return isDone;
}

}  // namespace lexmill::platform::batch
