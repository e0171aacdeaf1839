// SPDX-License-Identifier: MIT
// A file aside belongs to the process whose number ends its name. Invariant: under the target's
// name there is at each moment either all of the old content or all of the new one. It rests on the
// rename alone, which hosts do in one step; flushing first keeps the order on the disk, so that a
// power cut can't leave the new name with an empty file.
#include "platform/host/replacement_file.h"

#include <charconv>
#include <utility>

#include "platform/host/system_file.h"
#include "platform/host/system_path.h"
#include "platform/host/system_process.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

constexpr std::u16string_view kAsideMark = u".lexmill-";
/// Room for the point before the name, a process number and the number of a further stream.
constexpr std::size_t kAsideRoom = 1 + kAsideMark.size() + 10 + 4;
constexpr int kMostStreams = 999;

bool IsSecondHalf(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// `.NAME.lexmill-`, with NAME cut, between characters, to what a folder can hold.
std::u16string AsidePrefix(std::u16string_view target) {
  std::u16string_view name = FileName(target);
  while (system::NameLength(name) > system::kLongestName - kAsideRoom) {
    const bool isPair = name.size() > 1 && IsSecondHalf(name.back());
    name.remove_suffix(isPair ? 2 : 1);
  }
  return u"." + std::u16string(name) + std::u16string(kAsideMark);
}

/// True if `name` is that of a file aside whose process is gone.
bool IsStale(std::u16string_view name, std::u16string_view prefix) {
  if (!name.starts_with(prefix)) {
    return false;
  }
  const std::string digits = ToUtf8(name.substr(prefix.size()));
  std::uint32_t process = 0;
  const char* const end = digits.data() + digits.size();
  const auto [rest, failure] = std::from_chars(digits.data(), end, process);
  const bool isOurs = failure == std::errc() && (rest == end || *rest == '-');
  return isOurs && system::IsProcessGone(process);
}

void RemoveStaleFiles(std::u16string_view target) {
  const std::u16string folder(FolderPart(target));
  const std::u16string prefix = AsidePrefix(target);
  for (const auto& name : NamesIn(HostPath(folder.empty() ? u"." : folder))) {
    if (IsStale(name, prefix)) {
      RemoveFile(HostPath(folder + name));
    }
  }
}

}  // namespace

HostResult<ReplacementFile> ReplacementFile::CreateInPlace(const std::u16string& target) {
  auto file = HostFile::Open(HostPath(target), OpenMode::Overwrite);
  if (!file) {
    return file.Error();
  }
  return ReplacementFile(*std::move(file), u"", target, false);
}

HostResult<ReplacementFile> ReplacementFile::CreateAside(const std::u16string& target,
                                                         bool replaces) {
  RemoveStaleFiles(target);
  const std::u16string first = std::u16string(FolderPart(target)) + AsidePrefix(target) +
                               FromUtf8(std::to_string(system::ProcessNumber()));
  std::u16string aside = first;
  auto file = HostFile::Open(HostPath(aside), OpenMode::CreateNew);
  for (int i = 2; file.FailedBy(HostError::Exists) && i <= kMostStreams; ++i) {
    aside = first + u"-" + FromUtf8(std::to_string(i));
    file = HostFile::Open(HostPath(aside), OpenMode::CreateNew);
  }
  if (!file) {
    return file.Error();
  }
  if (replaces) {
    file->TakeOver(HostPath(target));
  }
  return ReplacementFile(*std::move(file), std::move(aside), target, replaces);
}

HostResult<ReplacementFile> ReplacementFile::Create(std::u16string_view target) {
  const HostPath path(target);
  const auto older = StatusOf(path);
  if (!older && (older.Error() != HostError::NotFound || target.empty())) {
    return older.Error();
  }
  if (FileName(target).empty() || (older && older->kind == FileKind::Folder)) {
    return HostError::IsFolder;
  }
  if (older) {
    if (const auto allowed = MayWrite(path); !allowed) {
      return allowed.Error();
    }
    if (older->kind != FileKind::Regular) {
      return CreateInPlace(std::u16string(target));
    }
  }
  const auto place = system::FollowLinks(path);
  if (!place) {
    return place.Error();
  }
  if (older && !system::MayReplace(*place)) {
    return CreateInPlace(place->Text());
  }
  auto aside = CreateAside(place->Text(), static_cast<bool>(older));
  return older && aside.FailedBy(HostError::Denied) ? CreateInPlace(place->Text())
                                                    : std::move(aside);
}

ReplacementFile::ReplacementFile(HostFile file, std::u16string aside, std::u16string target,
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

HostOutcome ReplacementFile::Commit(bool flush) {
  auto outcome = flush && replaces_ ? file_.Synchronise() : Done();
  if (outcome) {
    outcome = file_.Close();
  }
  if (outcome && !aside_.empty()) {
    outcome = RenameFile(HostPath(aside_), HostPath(target_));
  }
  if (outcome) {
    aside_.clear();
  }
  return outcome;
}

void ReplacementFile::Drop() {
  file_.Close();
  if (!aside_.empty()) {
    RemoveFile(HostPath(std::exchange(aside_, {})));
  }
}

}  // namespace lexmill::platform
