// SPDX-License-Identifier: MIT
// platform/files: the text of an INI file, searched and changed line by line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lexmill::platform {

/// `text` without the blanks, tabs and ^Z at its ends.
[[nodiscard]] std::u16string_view TrimBlanks(std::u16string_view text);

/// An INI file in memory. Names are compared without case; a line that isn't touched keeps its
/// bytes. In the file: blanks, tabs and the old end mark ^Z round a line, a name or a value do not
/// count, ";" begins a comment line, the first "=" ends a key, the last "]" a header, a NUL the
/// text of its line, and of two like names the first counts. A header without a name ends the
/// section before it, and is none itself.
class ProfileText {
 public:
  /// Takes a file's content: UTF-16LE or UTF-8 if it has the mark of that, else the system's code
  /// page.
  explicit ProfileText(std::string_view bytes);
  /// The content in the encoding in which it came.
  [[nodiscard]] std::string Bytes() const;

  /// The value without one pair of quotes round it; none if section or key is missing.
  [[nodiscard]] std::optional<std::u16string> Value(std::u16string_view section,
                                                    std::u16string_view key) const;
  /// Names of the section's keys in the order of the file; none if the section is missing.
  [[nodiscard]] std::optional<std::vector<std::u16string>> Keys(std::u16string_view section) const;
  [[nodiscard]] std::vector<std::u16string> Sections() const;

  /// Puts the value into the key's line. A new key goes after the section's last one, a new
  /// section to the end.
  /// @return false if the encoding lacks a character; nothing has changed then
  [[nodiscard]] bool Set(std::u16string_view section, std::u16string_view key,
                         std::u16string_view value);
  /// Takes the key's line away, if there is one.
  void RemoveKey(std::u16string_view section, std::u16string_view key);
  /// Takes the section away up to the next header, if there is one.
  void RemoveSection(std::u16string_view section);

 private:
  /// Positions in `units_`: where the line begins, where its end mark does, where the next begins.
  struct Line {
    std::size_t begin;
    std::size_t textEnd;
    std::size_t end;
  };
  /// A section from its header line up to the next header or the end of the file.
  struct Section {
    Line header;
    std::size_t end;
  };

  [[nodiscard]] std::string_view Mark() const;
  [[nodiscard]] Line LineAt(std::size_t begin) const;
  [[nodiscard]] std::u16string_view Content(const Line& line) const;
  [[nodiscard]] std::optional<std::u16string> HeaderName(const Line& line) const;
  [[nodiscard]] std::u16string_view RawKey(const Line& line) const;
  [[nodiscard]] std::optional<Section> FindSection(std::u16string_view name) const;
  [[nodiscard]] std::optional<Line> FindKey(const Section& section, std::u16string_view name) const;
  [[nodiscard]] std::size_t EndOfKeys(const Section& section) const;
  void Insert(std::size_t at, std::u16string_view raw);

  [[nodiscard]] std::u16string Decode(std::u16string_view raw) const;
  [[nodiscard]] std::optional<std::u16string> Encode(std::u16string_view text) const;

  enum class Encoding { Ansi, Utf8, Wide };

  Encoding encoding_;
  /// The content as it came but for its mark, so that all of it can go back: UTF-16 units of a wide
  /// file, else one unit for each byte. Line ends, blanks and "=" are themselves in all of them.
  std::u16string units_;
};

}  // namespace lexmill::platform
