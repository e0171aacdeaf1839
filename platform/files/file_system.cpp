// SPDX-License-Identifier: MIT
#include "platform/files/file_system.h"

#include <algorithm>

#include "platform/files/opened_file.h"
#include "platform/host/clock.h"
#include "platform/host/host_failure.h"
#include "platform/host/host_file.h"
#include "platform/host/host_path.h"
#include "platform/host/replacement_file.h"

namespace lexmill::platform {
namespace {

/// True if there is something of this kind under `path`.
template <class Test>
bool Exists(std::u16string_view path, Test isMeant) {
  if (!IsFileName(path)) {
    return false;
  }
  const auto status = StatusOf(HostPath(path));
  return status && isMeant(status->kind);
}

/// What is found under the name of a file; a folder is not found.
FileStatus StatusOfFile(std::u16string_view path) {
  const auto status = StatusOf(CheckedPath(path));
  if (!status || status->kind == FileKind::Folder) {
    throw FileFailure(status ? HostError::NotFound : status.Error(), path);
  }
  return *status;
}

}  // namespace

bool FileSystemObject::FileExists(std::u16string_view path) const {
  return Exists(path, [](FileKind kind) { return kind != FileKind::Folder; });
}

bool FileSystemObject::FolderExists(std::u16string_view path) const {
  return Exists(path, [](FileKind kind) { return kind == FileKind::Folder; });
}

std::u16string FileSystemObject::GetParentFolderName(std::u16string_view path) const {
  return ParentFolder(path);
}

std::int64_t FileSystemObject::FileSize(std::u16string_view path) const {
  return StatusOfFile(path).size;
}

// Source of the form: the names that the scripting runtime draws, such as rad2A605.tmp.
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

// Hosts may let a file go that nobody may write to, since its folder may be written to; the
// platform keeps it unless told otherwise.
void FileSystemObject::DeleteFile(std::u16string_view path, bool force) const {
  StatusOfFile(path);
  const HostPath hostPath(path);
  auto outcome = force ? Done() : MayWrite(hostPath);
  if (outcome) {
    outcome = RemoveFile(hostPath);
  }
  if (!outcome) {
    throw FileFailure(outcome.Error(), path);
  }
}

TextReader FileSystemObject::OpenTextFile(std::u16string_view path, TextEncoding encoding) const {
  OpenedFile opened = OpenToRead(path);
  return TextReader(std::move(opened.file), opened.size, encoding);
}

TextWriter FileSystemObject::CreateTextFile(std::u16string_view path, bool overwrite,
                                            TextEncoding encoding) const {
  std::ignore = CheckedPath(path);
  if (!overwrite && FileExists(path)) {
    throw FileFailure(HostError::Exists, path);
  }
  return TextWriter(OpenToReplace(path), std::u16string(path), encoding);
}

std::optional<std::int64_t> ModificationTime(std::u16string_view path) {
  if (!IsFileName(path)) {
    return std::nullopt;
  }
  const auto status = StatusOf(HostPath(path));
  return status && status->kind != FileKind::Folder ? std::optional(status->changed) : std::nullopt;
}

std::string ReadBinary(std::u16string_view path, std::int64_t offset, std::size_t length) {
  const auto file = HostFile::Open(CheckedPath(path, FailureOrigin::Runtime), OpenMode::Read);
  if (!file) {
    throw BinaryFileFailure(file.Error(), path);
  }
  // The size of a device or a file of the kernel says nothing.
  const auto size = file->Size();
  const auto left = (size ? *size : 0) - offset;
  std::string bytes(left > 0 ? std::min(length, static_cast<std::size_t>(left)) : length, '\0');
  const auto count = file->ReadAt(bytes, offset);
  if (!count) {
    throw BinaryFileFailure(count.Error(), path);
  }
  bytes.resize(*count);
  return bytes;
}

}  // namespace lexmill::platform
