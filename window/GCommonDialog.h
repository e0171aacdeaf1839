// SPDX-License-Identifier: MIT
// window: the program's one window outside a run.
// The two file dialogs with plain arguments.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lexmill::GCommonDialog {

/// `Owner` of a dialog that belongs to no window; any other number means the active window.
inline constexpr std::int32_t kNoOwner = -1;

/// Lets the user choose files that are to be read.
/// @param FileName     [in,out] initial name; the chosen path, or with `MultiSelect` a buffer that
///   holds the path, or the folder and each name, each ended by a NUL
/// @param FileTitle    [in,out] initial title; the chosen name without folder, left alone with
///   `MultiSelect`
/// @param ReadOnly     [in,out] the box "read-only" checked at first; whether the user left it so
/// @param Filter       [in,out] descriptions and patterns, each ended by ":", "|" or NUL;
///   description, NUL and pattern of the one chosen
/// @param FilterIndex  [in,out] the filter to open on, from 1; the chosen one; -1 if cancelled
/// @param Flags        [in,out] further flags of the platform; those that were in force
/// @return true if the user confirmed; otherwise the strings that are handed back are empty and the
///   flags 0
[[nodiscard]] bool ShowOpenFileDialog(std::u16string& FileName, std::u16string& FileTitle,
                                      bool FileMustExist, bool MultiSelect, bool& ReadOnly,
                                      bool HideReadOnly, std::u16string& Filter,
                                      std::int32_t& FilterIndex, std::u16string_view InitDir,
                                      std::u16string_view DlgTitle, std::u16string_view DefaultExt,
                                      std::int32_t Owner, std::int32_t& Flags);

/// Lets the user choose a file that is to be written. As ShowOpenFileDialog, but FilterIndex is 0
/// if the user cancelled.
[[nodiscard]] bool ShowSaveFileDialog(std::u16string& FileName, std::u16string& FileTitle,
                                      bool OverWritePrompt, std::u16string& Filter,
                                      std::int32_t& FilterIndex, std::u16string_view InitDir,
                                      std::u16string_view DlgTitle, std::u16string_view DefaultExt,
                                      std::int32_t Owner, std::int32_t& Flags);

/// The text of a buffer up to its first NUL.
[[nodiscard]] std::u16string_view TrimAtNul(std::u16string_view buffer);

/// Description, NUL and pattern of filter `index`, from 1, of a list whose texts are ended by NULs;
/// empty if there is no such filter.
[[nodiscard]] std::u16string_view FilterPairAt(std::u16string_view filters, std::int32_t index);

}  // namespace lexmill::GCommonDialog
