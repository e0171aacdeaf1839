// SPDX-License-Identifier: MIT
// The text is kept as it came, in units of the file: one for each byte, or for each pair of bytes
// in UTF-16. So a line that isn't touched keeps its bytes, valid or not. What structure needs (line
// ends, blanks, ";" and "=") is ASCII in every encoding and no second byte of any character, so it
// is found in the units; names and values are decoded where they are compared or given.
#include "platform/files/profile_text.h"

#include <algorithm>

#include "platform/files/text_stream.h"
#include "platform/text/ansi_text.h"
#include "platform/text/text.h"

namespace lexmill::platform {
namespace {

constexpr std::string_view kWideMark = "\xFF\xFE";
constexpr std::u16string_view kLineEnd = u"\r\n";
constexpr std::u16string_view kBlanks = u" \t\x1A";

std::u16string Widen(std::string_view bytes) {
  std::u16string units(bytes.size(), u'\0');
  std::ranges::transform(bytes, units.begin(),
                         [](char byte) -> char16_t { return static_cast<unsigned char>(byte); });
  return units;
}

std::string Narrow(std::u16string_view units) {
  std::string bytes(units.size(), '\0');
  std::ranges::transform(units, bytes.begin(),
                         [](char16_t unit) { return static_cast<char>(unit); });
  return bytes;
}

/// Units of little-endian byte pairs; a byte without a partner is the low one of the last unit.
std::u16string JoinPairs(std::string_view bytes) {
  const std::u16string wide = Widen(bytes);
  std::u16string units;
  for (std::size_t i = 0; i < wide.size(); i += 2) {
    const unsigned high = i + 1 < wide.size() ? wide[i + 1] : 0U;
    units += static_cast<char16_t>(wide[i] | high << 8U);
  }
  return units;
}

std::string SplitPairs(std::u16string_view units) {
  std::string bytes;
  for (const unsigned unit : units) {
    bytes += static_cast<char>(unit & 0xFFU);
    bytes += static_cast<char>(unit >> 8U);
  }
  return bytes;
}

bool IsSameName(std::u16string_view left, std::u16string_view right) {
  return std::ranges::equal(left, right,
                            [](char16_t a, char16_t b) { return UpperCase(a) == UpperCase(b); });
}

std::u16string_view WithoutQuotes(std::u16string_view value) {
  const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
  return isQuoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

std::u16string_view TrimBlanks(std::u16string_view text) {
  const auto begin = text.find_first_not_of(kBlanks);
  if (begin == std::u16string_view::npos) {
    return {};
  }
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

ProfileText::ProfileText(std::string_view bytes)
    : encoding_(bytes.starts_with(kWideMark)   ? Encoding::Wide
                : bytes.starts_with(kUtf8Mark) ? Encoding::Utf8
                                               : Encoding::Ansi) {
  bytes.remove_prefix(Mark().size());
  units_ = encoding_ == Encoding::Wide ? JoinPairs(bytes) : Widen(bytes);
}

std::string_view ProfileText::Mark() const {
  switch (encoding_) {
    case Encoding::Wide:
      return kWideMark;
    case Encoding::Utf8:
      return kUtf8Mark;
    case Encoding::Ansi:
      break;
  }
  return {};
}

std::string ProfileText::Bytes() const {
  return std::string(Mark()).append(encoding_ == Encoding::Wide ? SplitPairs(units_)
                                                                : Narrow(units_));
}

std::u16string ProfileText::Decode(std::u16string_view raw) const {
  switch (encoding_) {
    case Encoding::Wide:
      return std::u16string(raw);
    case Encoding::Utf8:
      return FromUtf8(Narrow(raw));
    case Encoding::Ansi:
      break;
  }
  return FromAnsi(Narrow(raw));
}

std::optional<std::u16string> ProfileText::Encode(std::u16string_view text) const {
  switch (encoding_) {
    case Encoding::Wide:
      return std::u16string(text);
    case Encoding::Utf8:
      return Widen(ToUtf8(text));
    case Encoding::Ansi:
      break;
  }
  std::string bytes;
  return AnsiCodePage().Encode(text, bytes) ? std::optional(Widen(bytes)) : std::nullopt;
}

ProfileText::Line ProfileText::LineAt(std::size_t begin) const {
  const std::size_t textEnd = std::min(units_.find_first_of(kLineEnd, begin), units_.size());
  const bool isPair = units_.compare(textEnd, kLineEnd.size(), kLineEnd) == 0;
  return {begin, textEnd, std::min(textEnd + (isPair ? 2 : 1), units_.size())};
}

/// What counts of a line, in the file's units.
std::u16string_view ProfileText::Content(const Line& line) const {
  const auto text = std::u16string_view(units_).substr(line.begin, line.textEnd - line.begin);
  return TrimBlanks(text.substr(0, text.find(u'\0')));
}

std::optional<std::u16string> ProfileText::HeaderName(const Line& line) const {
  const auto content = Content(line);
  if (!content.starts_with(u'[')) {
    return std::nullopt;
  }
  // Only the decoded text shows which "]" is a character and which the second half of one.
  const std::u16string text = Decode(content);
  const auto end = text.rfind(u']');
  if (end == std::u16string::npos) {
    return std::nullopt;
  }
  return std::u16string(TrimBlanks(std::u16string_view(text).substr(1, end - 1)));
}

/// The key of a line that is no header, in the file's units; empty if the line has none.
std::u16string_view ProfileText::RawKey(const Line& line) const {
  const auto content = Content(line);
  const auto end = content.find(u'=');
  const bool hasKey = end != std::u16string_view::npos && !content.starts_with(u';');
  return hasKey ? TrimBlanks(content.substr(0, end)) : std::u16string_view();
}

std::optional<ProfileText::Section> ProfileText::FindSection(std::u16string_view name) const {
  std::optional<Section> found;
  for (std::size_t at = 0; at < units_.size();) {
    const Line line = LineAt(at);
    const auto header = HeaderName(line);
    if (header && found) {
      found->end = line.begin;
      break;
    }
    if (header && IsSameName(*header, name)) {
      found = Section{line, units_.size()};
    }
    at = line.end;
  }
  return found;
}

std::optional<ProfileText::Line> ProfileText::FindKey(const Section& section,
                                                      std::u16string_view name) const {
  for (std::size_t at = section.header.end; at < section.end;) {
    const Line line = LineAt(at);
    const auto key = RawKey(line);
    if (!key.empty() && IsSameName(Decode(key), name)) {
      return line;
    }
    at = line.end;
  }
  return std::nullopt;
}

/// Where a new key of the section goes: after its last line that is neither blank nor a comment.
std::size_t ProfileText::EndOfKeys(const Section& section) const {
  std::size_t end = section.header.end;
  for (std::size_t at = section.header.end; at < section.end;) {
    const Line line = LineAt(at);
    const auto content = Content(line);
    if (!content.empty() && !content.starts_with(u';')) {
      end = line.end;
    }
    at = line.end;
  }
  return end;
}

/// Inserts lines at the beginning of a line or at the end of the file, whose last line may still
/// lack its end.
void ProfileText::Insert(std::size_t at, std::u16string_view raw) {
  const bool lacksEnd = at > 0 && kLineEnd.find(units_[at - 1]) == std::u16string_view::npos;
  units_.insert(at, (lacksEnd ? std::u16string(kLineEnd) : std::u16string()).append(raw));
}

std::optional<std::u16string> ProfileText::Value(std::u16string_view section,
                                                 std::u16string_view key) const {
  const auto found = FindSection(section);
  const auto line = found ? FindKey(*found, key) : std::nullopt;
  if (!line) {
    return std::nullopt;
  }
  const auto content = Content(*line);
  const std::u16string value = Decode(TrimBlanks(content.substr(content.find(u'=') + 1)));
  return std::u16string(WithoutQuotes(value));
}

std::optional<std::vector<std::u16string>> ProfileText::Keys(std::u16string_view section) const {
  const auto found = FindSection(section);
  if (!found) {
    return std::nullopt;
  }
  std::vector<std::u16string> names;
  for (std::size_t at = found->header.end; at < found->end;) {
    const Line line = LineAt(at);
    if (const auto key = RawKey(line); !key.empty()) {
      names.push_back(Decode(key));
    }
    at = line.end;
  }
  return names;
}

std::vector<std::u16string> ProfileText::Sections() const {
  std::vector<std::u16string> names;
  for (std::size_t at = 0; at < units_.size();) {
    const Line line = LineAt(at);
    // An empty name would end the list for whoever reads it.
    if (auto header = HeaderName(line); header && !header->empty()) {
      names.push_back(std::move(*header));
    }
    at = line.end;
  }
  return names;
}

bool ProfileText::Set(std::u16string_view section, std::u16string_view key,
                      std::u16string_view value) {
  const auto rawSection = Encode(section);
  const auto rawKey = Encode(key);
  const auto rawValue = Encode(value);
  if (!rawSection || !rawKey || !rawValue) {
    return false;
  }
  const std::u16string added = *rawKey + u"=" + *rawValue;
  const auto found = FindSection(section);
  if (!found) {
    Insert(units_.size(), (u"[" + *rawSection + u"]").append(kLineEnd) + added + u"\r\n");
  } else if (const auto line = FindKey(*found, key)) {
    const std::u16string replaced = std::u16string(RawKey(*line)) + u"=" + *rawValue;
    units_.replace(line->begin, line->textEnd - line->begin, replaced);
  } else {
    Insert(EndOfKeys(*found), added + u"\r\n");
  }
  return true;
}

void ProfileText::RemoveKey(std::u16string_view section, std::u16string_view key) {
  const auto found = FindSection(section);
  if (const auto line = found ? FindKey(*found, key) : std::nullopt) {
    units_.erase(line->begin, line->end - line->begin);
  }
}

void ProfileText::RemoveSection(std::u16string_view section) {
  if (const auto found = FindSection(section)) {
    units_.erase(found->header.begin, found->end - found->header.begin);
  }
}

}  // namespace lexmill::platform
