// SPDX-License-Identifier: MIT
#include "platform/batch/file_commands.h"

#include <vector>

#include "platform/batch/messages.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/host/host_failure.h"
#include "platform/host/host_path.h"
#include "platform/host/replacement_file.h"
#include "platform/text/text.h"

namespace lexmill::platform::batch {
namespace {

constexpr std::size_t kBlockSize = 256 * 1024;  // bytes

/// Where a copy of `source` goes: into `target` if that is a folder.
std::u16string CopyTarget(std::u16string_view source, const std::u16string& target) {
  const auto status = StatusOf(HostPath(target));
  return status && status->kind == FileKind::Folder
             ? WithSeparator(target) + std::u16string(FileName(source))
             : target;
}

HostOutcome CopyContent(HostFile& from, HostFile& to) {
  std::vector<char> block(kBlockSize);
  while (true) {
    const auto count = from.Read(block);
    if (!count) {
      return count.Error();
    }
    if (*count == 0) {
      return Done();
    }
    if (const auto written = to.Write({block.data(), *count}); !written) {
      return written;
    }
  }
}

/// A database that is empty was never filled, since its writer died or met no end of its script.
/// One beside which a journal lies was being changed then: its pages make sense with the journal
/// alone. A copy of either would pass for a whole one.
bool IsUnfinished(const HostFile& file, const std::u16string& source) {
  const auto status = file.Status();
  const auto journal = StatusOf(HostPath(source + u"-journal"));
  return (status && status->kind == FileKind::Regular && status->size == 0) ||
         (journal && journal->size > 0);
}

/// After a failure `target` is as it was.
HostOutcome ReplaceByCopy(HostFile& source, std::u16string_view target) {
  auto copy = ReplacementFile::Create(target);
  if (!copy) {
    return copy.Error();
  }
  const auto copied = CopyContent(source, copy->File());
  return copied ? copy->Commit(true) : copied;
}

bool DeleteOne(std::u16string_view name, HostFile& error) {
  try {
    FileSystemObject().DeleteFile(name);
    return true;
  } catch (const Failure& failure) {
    const std::u16string path = NormalPath(AbsolutePath(name));
    const auto number = static_cast<FailureNumber>(failure.Number());
    if (number == FailureNumber::FileNotFound || number == FailureNumber::PathNotFound) {
      PrintLine(error, std::u16string(kCouldNotFind) + path);
    } else {
      PrintLine(error, path);
      PrintLine(error, Describe(failure));
    }
    return false;
  }
}

}  // namespace

std::u16string FileNamed(std::u16string_view name) {
  return std::u16string(LowerCase(name) == u"nul" ? kNullDevice : name);
}

bool Copy(std::span<const std::u16string> names, CommandStreams streams) {
  if (names.size() != 2) {
    PrintLine(streams.error, kWrongSyntax);
    return false;
  }
  const std::u16string source = FileNamed(names[0]);
  auto file = HostFile::Open(HostPath(source), OpenMode::Read);
  if (!file) {
    PrintLine(streams.error, Describe(FileFailure(file.Error(), source)));
    // A folder is there to be copied from, and opens on some systems.
    if (file.Error() == HostError::IsFolder) {
      PrintLine(streams.output, kNoFileCopied);
    }
    return false;
  }
  if (IsUnfinished(*file, source)) {
    PrintLine(streams.error, kAccessDenied);
    return false;
  }
  const std::u16string target = CopyTarget(source, FileNamed(names[1]));
  if (const auto copied = ReplaceByCopy(*file, target); !copied) {
    PrintLine(streams.error, Describe(FileFailure(copied.Error(), target)));
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
