// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <utility>

#include "platform/host/host_file.h"

namespace lexmill::platform {
namespace {

constexpr int kMostLinks = 40;
constexpr std::size_t kLongestName = 255;
constexpr std::string_view kAsideMark = ".lexmill-";
/// Room for the point before the name, a process number and the number of a further stream.
constexpr std::size_t kAsideRoom = 1 + kAsideMark.size() + 10 + 4;
constexpr int kMostStreams = 999;

/// `path` up to its last separator, with it; empty if there is none.
std::string FolderPart(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}

/// The folder part as the host's calls take it.
std::string HostFolder(const std::string& path) {
  const std::string folder = FolderPart(path);
  return folder.empty() ? "." : folder;
}

/// Where the last component of `path` leads, the file itself existing or not.
/// @return none and ELOOP for links that go round
std::optional<std::string> FollowLinks(std::string path) {
  for (int i = 0; i < kMostLinks; ++i) {
    const auto link = ReadLink(path);
    if (!link) {
      return path;
    }
    path = link->starts_with('/') ? *link : FolderPart(path) + *link;
  }
  errno = ELOOP;
  return std::nullopt;
}

/// `.NAME.lexmill-`, with NAME cut, between characters, to what a folder can hold.
std::string AsidePrefix(const std::string& target) {
  std::string name = target.substr(FolderPart(target).size());
  std::size_t length = std::min(name.size(), kLongestName - kAsideRoom);
  while (length < name.size() && length > 0 &&
         (static_cast<unsigned char>(name[length]) & 0xC0U) == 0x80U) {
    --length;
  }
  name.resize(length);
  return "." + name + std::string(kAsideMark);
}

/// True if `name` is that of a file aside whose process is gone.
bool IsStale(std::string_view name, std::string_view prefix) {
  if (!name.starts_with(prefix)) {
    return false;
  }
  pid_t process = 0;
  const char* const end = name.data() + name.size();
  const auto [rest, failure] = std::from_chars(name.data() + prefix.size(), end, process);
  const bool isOurs = failure == std::errc() && process > 0 && (rest == end || *rest == '-');
  return isOurs && kill(process, 0) != 0 && errno == ESRCH;
}

void RemoveStaleFiles(const std::string& target) {
  const std::string prefix = AsidePrefix(target);
  for (const auto& name : NamesIn(HostFolder(target))) {
    if (IsStale(name, prefix)) {
      RemoveFile(FolderPart(target) + name);
    }
  }
}

/// True if the folder's rules would refuse the rename: in a sticky folder only the owner of a file
/// or of the folder may replace it.
bool IsHeldBySticky(const std::string& target, const FileStatus& older) {
  constexpr unsigned kSticky = 01000;
  const unsigned user = geteuid();
  if (user == 0 || older.owner == user) {
    return false;
  }
  const auto folder = StatusOf(HostFolder(target));
  return folder && (folder->permissions & kSticky) != 0 && folder->owner != user;
}

}  // namespace

std::optional<ReplacementFile> ReplacementFile::CreateInPlace(const std::string& target) {
  HostFile file = HostFile::Open(target, O_WRONLY | O_TRUNC);
  if (!file.IsOpen()) {
    return std::nullopt;
  }
  return ReplacementFile(std::move(file), "", target, false);
}

std::optional<ReplacementFile> ReplacementFile::CreateAside(
    const std::string& target, const std::optional<FileStatus>& older) {
  RemoveStaleFiles(target);
  const std::string first = FolderPart(target) + AsidePrefix(target) + std::to_string(getpid());
  std::string aside = first;
  HostFile file = HostFile::Open(aside, O_WRONLY | O_CREAT | O_EXCL);
  for (int i = 2; !file.IsOpen() && errno == EEXIST && i <= kMostStreams; ++i) {
    aside = first + "-" + std::to_string(i);
    file = HostFile::Open(aside, O_WRONLY | O_CREAT | O_EXCL);
  }
  if (!file.IsOpen()) {
    return std::nullopt;
  }
  if (older) {
    file.TakeOver(*older);
  }
  return ReplacementFile(std::move(file), std::move(aside), target, older.has_value());
}

std::optional<ReplacementFile> ReplacementFile::Create(const std::string& target) {
  const auto older = StatusOf(target);
  if (!older && errno != ENOENT) {
    return std::nullopt;
  }
  if (target.empty()) {
    return std::nullopt;
  }
  if (target.ends_with('/') || (older && older->kind == FileKind::Folder)) {
    errno = EISDIR;
    return std::nullopt;
  }
  if (older && !MayWrite(target)) {
    return std::nullopt;
  }
  if (older && older->kind != FileKind::Regular) {
    return CreateInPlace(target);
  }
  const auto place = FollowLinks(target);
  if (!place) {
    return std::nullopt;
  }
  if (older && IsHeldBySticky(*place, *older)) {
    return CreateInPlace(*place);
  }
  auto aside = CreateAside(*place, older);
  const bool folderRefuses = errno == EACCES || errno == EPERM || errno == EROFS;
  return !aside && older && folderRefuses ? CreateInPlace(*place) : std::move(aside);
}

ReplacementFile::ReplacementFile(HostFile file, std::string aside, std::string target,
                                 bool replaces)
    : file_(std::move(file)),
      aside_(std::move(aside)),
      target_(std::move(target)),
      replaces_(replaces) {}

ReplacementFile::ReplacementFile(ReplacementFile&& other) noexcept
    : file_(std::move(other.file_)),
      aside_(std::exchange(other.aside_, {})),
      target_(std::move(other.target_)),
      replaces_(other.replaces_) {}

ReplacementFile& ReplacementFile::operator=(ReplacementFile&& other) noexcept {
  if (this != &other) {
    Drop();
    file_ = std::move(other.file_);
    aside_ = std::exchange(other.aside_, {});
    target_ = std::move(other.target_);
    replaces_ = other.replaces_;
  }
  return *this;
}

ReplacementFile::~ReplacementFile() {
  Drop();
}

bool ReplacementFile::Commit(bool flush) {
  if (flush && replaces_ && !file_.Synchronise()) {
    return false;
  }
  if (!file_.Close()) {
    return false;
  }
  if (!aside_.empty() && !RenameFile(aside_, target_)) {
    return false;
  }
  aside_.clear();
  return true;
}

void ReplacementFile::Drop() {
  file_.Close();
  if (!aside_.empty()) {
    RemoveFile(std::exchange(aside_, {}));
  }
}

}  // namespace lexmill::platform
