// SPDX-License-Identifier: MIT
#include "platform/files/file_system.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/files/opened_file.h"
#include "platform/host/clock.h"
#include "platform/host/host_failure.h"
#include "platform/host/host_file.h"
#include "platform/host/host_path.h"

namespace lexmill::platform {
namespace {

/// What is found under the name of a file; a folder is not found.
FileStatus StatusOfFile(const std::string& path) {
  const auto status = StatusOf(path);
  if (!status || status->kind == FileKind::Folder) {
    throw FileFailure(status ? ENOENT : errno, path);
  }
  return *status;
}

}  // namespace

bool FileSystemObject::FileExists(std::u16string_view path) const {
  const auto status = IsFileName(path) ? StatusOf(ToHostPath(path)) : std::nullopt;
  return status && status->kind != FileKind::Folder;
}

bool FileSystemObject::FolderExists(std::u16string_view path) const {
  const auto status = IsFileName(path) ? StatusOf(ToHostPath(path)) : std::nullopt;
  return status && status->kind == FileKind::Folder;
}

std::u16string FileSystemObject::GetParentFolderName(std::u16string_view path) const {
  return ParentFolder(path);
}

std::int64_t FileSystemObject::FileSize(std::u16string_view path) const {
  return StatusOfFile(CheckedPath(path)).size;
}

std::u16string FileSystemObject::GetTempName() const {
  constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
  constexpr int kDigitCount = 5;
  auto number = static_cast<unsigned>(Random() * (1U << (4 * kDigitCount)));
  std::u16string name(kDigitCount, u'0');
  for (auto digit = name.rbegin(); digit != name.rend(); ++digit) {
    *digit = kDigits[number % 16];
    number /= 16;
  }
  return u"rad" + name + u".tmp";
}

void FileSystemObject::DeleteFile(std::u16string_view path, bool force) const {
  const std::string hostPath = CheckedPath(path);
  StatusOfFile(hostPath);
  if ((!force && !MayWrite(hostPath)) || !RemoveFile(hostPath)) {
    throw FileFailure(errno, hostPath);
  }
}

TextReader FileSystemObject::OpenTextFile(std::u16string_view path, TextEncoding encoding) const {
  OpenedFile opened = OpenToRead(path);
  return TextReader(std::move(opened.file), opened.size, encoding);
}

TextWriter FileSystemObject::CreateTextFile(std::u16string_view path, bool overwrite,
                                            TextEncoding encoding) const {
  const std::string hostPath = CheckedPath(path);
  if (!overwrite && FileExists(path)) {
    throw FileFailure(EEXIST, hostPath);
  }
  return TextWriter(OpenToReplace(path), hostPath, encoding);
}

std::optional<std::int64_t> ModificationTime(std::u16string_view path) {
  if (!FileSystemObject().FileExists(path)) {
    return std::nullopt;
  }
  std::error_code failed;
  const auto time = std::filesystem::last_write_time(ToHostPath(path), failed);
  return failed ? std::nullopt : std::optional<std::int64_t>(time.time_since_epoch().count());
}

std::string ReadBinary(std::u16string_view path, std::int64_t offset, std::size_t length) {
  const std::string hostPath = CheckedPath(path, FailureOrigin::Runtime);
  const HostFile file = HostFile::Open(hostPath, O_RDONLY);
  if (!file.IsOpen()) {
    throw BinaryFileFailure(errno, hostPath);
  }
  // The size of a device or a file of the kernel tells nothing.
  const auto left = file.Size().value_or(0) - offset;
  std::string bytes(left > 0 ? std::min(length, static_cast<std::size_t>(left)) : length, '\0');
  const auto count = file.ReadAt(bytes, offset);
  if (!count) {
    throw BinaryFileFailure(errno, hostPath);
  }
  bytes.resize(*count);
  return bytes;
}

}  // namespace lexmill::platform
