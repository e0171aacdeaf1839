// SPDX-License-Identifier: MIT
// foundation: services that every room builds on.
// One INI file: settings, presets, the language table.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/form.h"

namespace lexmill {

/// Reads and writes values of an INI file by its path, a section and a key. Keeps no copy of the
/// file: every read and every write goes to it. Nothing here fails: a read yields the default, a
/// write leaves 0 as last return code. This is its documented interface, complete: members that no
/// room calls today stay, so that it can be relied on as it is known.
class cInifile {
 public:
  /// Result of the last write: 0 is failure. 0 before the first write; reads leave it alone.
  [[nodiscard]] std::int32_t LastReturnCode() const { return lastReturnCode_; }
  /// True if the last write succeeded.
  [[nodiscard]] bool Success() const { return lastReturnCode_ != 0; }

  /// What a read yields if section, key or file is missing; empty at first.
  [[nodiscard]] std::u16string Default() const { return default_; }
  void Default(std::u16string_view sDefault) { default_ = sDefault; }

  /// The file, its section and the key in it that reads and writes go to. All empty at first.
  [[nodiscard]] std::u16string Path() const { return path_; }
  void Path(std::u16string_view sPath) { path_ = sPath; }

  [[nodiscard]] std::u16string Key() const { return key_; }
  void Key(std::u16string_view sKey) { key_ = sKey; }

  [[nodiscard]] std::u16string Section() const { return section_; }
  void Section(std::u16string_view sSection) { section_ = sSection; }

  /// The value of the current key, at most 254 bytes of it in the code page.
  [[nodiscard]] std::u16string Value() const;
  /// Writes the current key.
  /// @param sValue  [in,out] loses its NUL characters, here and in the file
  void Value(std::u16string& sValue);

  /// True if a value that is written can be read as it was: it is not too long, has no line end,
  /// and neither blanks nor a pair of quotes round it.
  [[nodiscard]] static bool ComesBackWhole(std::u16string_view sValue);

  /// Takes the current key away.
  void DeleteKey();
  /// Takes the current section away with all its keys.
  void DeleteSection();

  /// The keys of the current section, each ended by a NUL; at most 8190 bytes in the code page.
  [[nodiscard]] std::u16string INISection() const;
  /// Takes the current section away, as DeleteSection does; `sSection` is not looked at.
  void INISection(const std::u16string& sSection);

  /// The names of the file's sections, each ended by a NUL; at most 8190 bytes in the code page.
  [[nodiscard]] std::u16string Sections() const;

  /// The keys of the current section as an array.
  /// @param sKey    [out] one key after the other, from index 0
  /// @param iCount  [out] their number
  void EnumerateCurrentSection(std::vector<std::u16string>& sKey, std::int32_t& iCount) const;
  /// The names of the file's sections as an array, without empty ones.
  void EnumerateAllSections(std::vector<std::u16string>& sSections, std::int32_t& iCount) const;

  /// Stores the place of a window under the keys Maximised, Left, Top, Width and Height (twips). A
  /// minimised window stores nothing, a maximised one no more than that it is. A failure leaves 0
  /// as last return code.
  void SaveFormPosition(const platform::Form& frmThis);
  /// Moves a window to the place that is stored, pulled in so that it stays four pixels inside the
  /// screen. A window that is too large is cut down; below the least sizes (twips) it stays where
  /// it is. A value that is missing is the window's present one. A failure leaves 0 as last return
  /// code.
  void LoadFormPosition(platform::Form& frmThis, std::int32_t lMinWidth = 3000,
                        std::int32_t lMinHeight = 3000);

  /// `sString` as an integer, `lDefault` if it is none or too large.
  [[nodiscard]] static std::int32_t CLngDefault(std::u16string_view sString,
                                                std::int32_t lDefault = 0);

 private:
  void WritePosition(const platform::Form& form);
  void ReadPosition(platform::Form& form, std::int32_t minWidth, std::int32_t minHeight);
  void Write(std::u16string_view key, std::int32_t number);
  [[nodiscard]] std::int32_t Read(std::u16string_view key, std::int32_t otherwise);

  std::u16string path_;
  std::u16string key_;
  std::u16string section_;
  std::u16string default_;
  std::int32_t lastReturnCode_ = 0;
};

}  // namespace lexmill
