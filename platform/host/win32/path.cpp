// SPDX-License-Identifier: MIT
// Calls for paths take 260 units at most, folders 248, unless a path bears the mark `\\?\`, which
// also makes the system take it literally. So the mark goes to long paths alone, after they have
// been made whole.
#include "platform/host/win32/path.h"

#include <algorithm>
#include <array>

#include "platform/host/system_path.h"
#include "platform/host/win32/error.h"
#include "platform/host/win32/wide.h"
#include "platform/host/win32/windows_api.h"
#include "platform/text/text.h"

namespace lexmill::platform {

const std::u16string_view kPathSeparators = u"\\/";
// Unlike a bare name of a device, it can't be meant for a file.
const std::u16string_view kNullDevice = uR"(\\.\NUL)";

namespace {

constexpr std::size_t kLongestFolder = 248;
constexpr std::wstring_view kLongMark = LR"(\\?\)";
constexpr std::wstring_view kLongShareMark = LR"(\\?\UNC\)";

bool IsSeparator(char16_t unit) {
  return unit == u'\\' || unit == u'/';
}

bool IsLetter(char16_t unit) {
  const char16_t lower = unit | u' ';
  return lower >= u'a' && lower <= u'z';
}

/// Units of `path` up to the separator after `names` names, that included.
std::size_t LengthOfNames(std::u16string_view path, int names) {
  std::size_t end = 0;
  for (; names > 0 && end < path.size(); --names) {
    end = std::min(path.find_first_of(kPathSeparators, end), path.size() - 1) + 1;
  }
  return end;
}

std::size_t DriveRootLength(std::u16string_view path) {
  if (path.size() < 2 || !IsLetter(path[0]) || path[1] != u':') {
    return 0;
  }
  return path.size() > 2 && IsSeparator(path[2]) ? 3 : 2;
}

/// What goes before the path of a device, or before one that the system takes literally.
constexpr std::size_t kMarkLength = 4;

/// The root of what begins with two separators: `\\server\share\`, `\\.\`, `\\?\C:\`,
/// `\\?\Volume{...}\` or `\\?\UNC\server\share\`.
std::size_t SharedRootLength(std::u16string_view path) {
  const std::u16string_view rest = path.substr(2);
  if (rest.size() < 2 || (rest[0] != u'.' && rest[0] != u'?') || !IsSeparator(rest[1])) {
    return 2 + LengthOfNames(rest, 2);
  }
  const std::u16string_view marked = path.substr(kMarkLength);
  const std::u16string name = LowerCase(marked.substr(0, marked.find_first_of(kPathSeparators)));
  if (name == u"unc") {
    return kMarkLength + LengthOfNames(marked, 3);
  }
  return kMarkLength +
         (name.starts_with(u"volume{") ? LengthOfNames(marked, 1) : DriveRootLength(marked));
}

/// True for a path that begins with the mark and leads to no drive, volume or share.
bool IsOfDevice(std::u16string_view path) {
  const bool isMarked = path.size() >= kMarkLength && IsSeparator(path[0]) &&
                        IsSeparator(path[1]) && (path[2] == u'.' || path[2] == u'?') &&
                        IsSeparator(path[3]);
  return isMarked && system::RootLength(path) == kMarkLength;
}

bool IsDeviceName(std::u16string_view name) {
  std::u16string stem = LowerCase(name.substr(0, name.find(u'.')));
  stem.erase(stem.find_last_not_of(u' ') + 1);
  constexpr std::array<std::u16string_view, 6> kNames = {u"con", u"prn",    u"aux",
                                                         u"nul", u"conin$", u"conout$"};
  const bool isPort = stem.size() == 4 && (stem.starts_with(u"com") || stem.starts_with(u"lpt")) &&
                      Contains(u"0123456789\u00B9\u00B2\u00B3", stem[3]);
  return isPort || std::ranges::find(kNames, stem) != kNames.end();
}

/// True if files can have all names of `path`, which is without its root.
bool AreFileNames(std::u16string_view path) {
  const auto isRefused = [](char16_t unit) { return unit < u' ' || Contains(u"<>:\"|?*", unit); };
  if (std::ranges::any_of(path, isRefused)) {
    return false;
  }
  for (std::size_t begin = 0; begin < path.size();) {
    const std::size_t end = std::min(path.find_first_of(kPathSeparators, begin), path.size());
    if (IsDeviceName(path.substr(begin, end - begin))) {
      return false;
    }
    begin = end + 1;
  }
  return true;
}

std::wstring FullName(const std::wstring& name) {
  return system::Filled([&name](wchar_t* buffer, DWORD size) {
    return GetFullPathNameW(name.c_str(), size, buffer, nullptr);
  });
}

std::wstring Marked(const std::wstring& full) {
  if (full.starts_with(kLongMark) || full.starts_with(LR"(\\.\)")) {
    return full;
  }
  const bool isShare = full.starts_with(LR"(\\)");
  return isShare ? std::wstring(kLongShareMark) + full.substr(2) : std::wstring(kLongMark) + full;
}

}  // namespace

// The library would widen text byte by byte.
HostPath::HostPath(std::u16string_view text) : native_(system::Wide(text)) {}

std::u16string HostPath::Text() const {
  return system::TextOf(native_.native());
}

// The system takes a name like `nul.txt` for a device in any folder; it stays as it is, to be
// refused where it is opened.
std::u16string AbsolutePath(std::u16string_view path) {
  std::u16string full = system::TextOf(FullName(system::Wide(path)));
  return full.empty() || IsOfDevice(full) ? std::u16string(path) : full;
}

std::u16string NormalPath(std::u16string_view path) {
  const std::size_t root = system::RootLength(path);
  const std::filesystem::path rest = HostPath(path.substr(root)).Native();
  return std::u16string(path.substr(0, root)) +
         HostPath::FromNative(rest.lexically_normal()).Text();
}

// No name has a quotation mark.
std::u16string_view CopiedPath(std::u16string_view text) {
  const bool isQuoted = text.size() > 2 && text.starts_with(u'"') && text.ends_with(u'"');
  return isQuoted ? text.substr(1, text.size() - 2) : text;
}

std::u16string AddressedPath(std::u16string_view text) {
  const bool hasDrive = !text.empty() && DriveRootLength(text.substr(1)) > 0;
  std::u16string path(text.substr(hasDrive ? 1 : 0));
  std::ranges::replace(path, u'/', u'\\');
  return path;
}

std::u16string CurrentFolder() {
  return system::TextOf(system::Filled(
      [](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); }));
}

namespace system {

std::size_t RootLength(std::u16string_view path) {
  if (path.empty() || !IsSeparator(path[0])) {
    return DriveRootLength(path);
  }
  return path.size() > 1 && IsSeparator(path[1]) ? SharedRootLength(path) : 1;
}

std::size_t NameLength(std::u16string_view name) {
  return name.size();
}

HostResult<std::wstring> NameOf(const HostPath& path) {
  const std::u16string text = path.Text();
  if (text.empty()) {
    return HostError::NotFound;
  }
  const bool isFileName =
      !IsOfDevice(text) && AreFileNames(std::u16string_view(text).substr(RootLength(text)));
  if (!isFileName && text != kNullDevice) {
    return HostError::BadName;
  }
  const std::wstring& name = path.Native().native();
  const std::wstring full = FullName(name);
  return full.size() < kLongestFolder ? name : Marked(full);
}

HostResult<std::wstring> NameForStart(const HostPath& path) {
  auto name = NameOf(path);
  if (!name || !name->starts_with(kLongMark)) {
    return name;
  }
  const std::wstring shorter = FromSystem(Filled([&name](wchar_t* buffer, DWORD size) {
                                 return GetShortPathNameW(name->c_str(), buffer, size);
                               })).Native();
  return shorter.empty() || shorter.size() >= kLongestFolder ? name : shorter;
}

HostPath FromSystem(std::wstring_view name) {
  if (name.starts_with(kLongShareMark)) {
    return HostPath::FromNative(LR"(\\)" + std::wstring(name.substr(kLongShareMark.size())));
  }
  // A volume without a drive is named by the mark alone.
  const bool hasDrive =
      name.starts_with(kLongMark) && DriveRootLength(TextOf(name.substr(kLongMark.size()))) > 0;
  return HostPath::FromNative(std::wstring(name.substr(hasDrive ? kLongMark.size() : 0)));
}

}  // namespace system
}  // namespace lexmill::platform
