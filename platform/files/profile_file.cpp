// SPDX-License-Identifier: MIT
#include "platform/files/profile_file.h"

#include <map>
#include <set>
#include <tuple>
#include <vector>

#include "platform/files/profile_text.h"
#include "platform/host/host_file.h"
#include "platform/host/replacement_file.h"
#include "platform/text/ansi_text.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

/// What the writes of this process have left to remember, by path.
struct Writes {
  std::optional<std::map<std::u16string, std::string, std::less<>>>
      inMemory;  ///< contents; none: files are written
  std::set<std::u16string> unflushed;
};

Writes& TheWrites() {
  static Writes writes;
  return writes;
}

/// The content of a file. @return BadName if it is no regular file
HostResult<std::string> ReadWhole(std::u16string_view path) {
  const auto file = HostFile::Open(HostPath(path), OpenMode::Read);
  if (!file) {
    return file.Error();
  }
  const auto status = file->Status();
  if (!status) {
    return status.Error();
  }
  if (status->kind != FileKind::Regular) {
    return HostError::BadName;
  }
  std::string bytes(static_cast<std::size_t>(status->size), '\0');
  const auto count = file->ReadAt(bytes, 0);
  if (!count) {
    return count.Error();
  }
  bytes.resize(*count);
  return bytes;
}

HostResult<std::string> Load(std::u16string_view path) {
  if (const auto& inMemory = TheWrites().inMemory) {
    if (const auto kept = inMemory->find(path); kept != inMemory->end()) {
      return kept->second;
    }
  }
  return ReadWhole(path);
}

bool Store(std::u16string_view path, std::string bytes) {
  if (auto& inMemory = TheWrites().inMemory) {
    inMemory->insert_or_assign(std::u16string(path), std::move(bytes));
    return true;
  }
  auto file = ReplacementFile::Create(path);
  if (!file || !file->File().Write(bytes) || !file->Commit(false)) {
    return false;
  }
  TheWrites().unflushed.emplace(path);
  return true;
}

/// A name as the functions take it: up to a NUL, without blanks at its ends.
std::u16string_view Name(std::u16string_view argument) {
  return TrimBlanks(argument.substr(0, argument.find(u'\0')));
}

std::u16string Joined(const std::vector<std::u16string>& names) {
  std::u16string list;
  for (const auto& name : names) {
    list += name + u'\0';
  }
  return list;
}

/// The first `limit` bytes of `text` in the code page. A character that the limit divides leaves
/// its first byte as one that is no text.
std::u16string Cut(std::u16string text, std::size_t limit) {
  constexpr std::size_t kMostBytesOfUnit = 4;
  if (text.size() <= limit / kMostBytesOfUnit) {
    return text;  // and no program makes the code page's tables for it
  }
  std::string bytes;
  if (!AnsiCodePage().Encode(text, bytes)) {
    return text.substr(0, limit);
  }
  return bytes.size() <= limit ? text : FromAnsi(std::string_view(bytes).substr(0, limit));
}

std::size_t Less(std::size_t size, std::size_t reserved) {
  return size > reserved ? size - reserved : 0;
}

/// What a call finds, uncut; none if it takes the default.
std::optional<std::u16string> Find(OptionalText section, OptionalText key,
                                   std::u16string_view path) {
  const auto content = Load(path);
  if (!content) {
    return std::nullopt;
  }
  const ProfileText text(*content);
  if (!section) {
    return Joined(text.Sections());
  }
  if (key) {
    return Name(*section).empty() ? std::nullopt : text.Value(Name(*section), Name(*key));
  }
  const auto keys = text.Keys(Name(*section));
  return keys ? std::optional(Joined(*keys)) : std::nullopt;
}

/// Makes the change that a write asks for. @return false if it can't be made
bool Change(ProfileText& text, std::u16string_view section, OptionalText key, OptionalText value) {
  if (!key) {
    text.RemoveSection(section);
    return true;
  }
  if (!value) {
    text.RemoveKey(section, Name(*key));
    return true;
  }
  return text.Set(section, Name(*key), value->substr(0, value->find(u'\0')));
}

}  // namespace

std::u16string GetPrivateProfileString(OptionalText section, OptionalText key,
                                       std::u16string_view defaultText, std::size_t size,
                                       std::u16string_view path) {
  auto found = Find(section, key, path);
  if (!found) {
    return Cut(std::u16string(TrimRight(defaultText)), Less(size, 1));
  }
  const bool isList = !section || !key;
  return Cut(std::move(*found), Less(size, isList ? 2 : 1));
}

int WritePrivateProfileString(OptionalText section, OptionalText key, OptionalText value,
                              std::u16string_view path) {
  if (path.empty() || !section || Name(*section).empty() || (key && Name(*key).empty())) {
    return 0;
  }
  const auto content = Load(path);
  if (!content && content.Error() != HostError::NotFound) {
    return 0;
  }
  ProfileText text(content ? *content : "");
  return Change(text, Name(*section), key, value) && Store(path, text.Bytes()) ? 1 : 0;
}

bool ComesBackWhole(std::u16string_view value, std::size_t size) {
  constexpr std::u16string_view kName = u"x";
  ProfileText text("");
  return text.Set(kName, kName, value) && text.Value(kName, kName) == value &&
         Cut(std::u16string(value), Less(size, 1)) == value;
}

void FlushProfileFiles() {
  for (const auto& path : TheWrites().unflushed) {
    if (auto file = HostFile::Open(HostPath(path), OpenMode::Read)) {
      std::ignore = file->Synchronise();
    }
  }
  TheWrites().unflushed.clear();
}

void KeepProfileWritesInMemory() {
  auto& inMemory = TheWrites().inMemory;
  if (!inMemory) {
    inMemory.emplace();
  }
}

}  // namespace lexmill::platform
