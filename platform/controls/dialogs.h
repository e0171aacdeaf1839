// SPDX-License-Identifier: MIT
// platform/controls: dialogs with the user. Declared here, implemented in qt/ (on the screen) and
// in headless/ (standard error and scripted answers); a program links the one or the other. Stands
// for: MsgBox, GetOpenFileNameA, GetSaveFileNameA.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lexmill::platform {

enum class MessageIcon { Critical, Question };
enum class MessageButtons { Ok, OkCancel };
enum class MessageAnswer { Ok, Cancel };

/// Shows a message under the application's title and waits for the answer.
/// @param text  lines joined by CR LF
MessageAnswer ShowMessageBox(std::u16string_view text, MessageIcon icon, MessageButtons buttons);

/// One line of a file dialog's list of filters.
struct FileFilter {
  std::u16string description;
  std::u16string patterns;  ///< one or more, joined by ";"
};

/// What a file dialog is to look like.
struct FileDialogRequest {
  std::u16string title;
  std::u16string fileName;
  std::u16string initialFolder;
  std::vector<FileFilter> filters;
  std::int32_t filterIndex = 1;  ///< from 1; 0 opens on the first
  std::u16string defaultExtension;
  bool overActiveWindow = true;  ///< blocks the program's active window while it is open
  bool fileMustExist = false;
  bool overwritePrompt = false;
  bool multipleSelection = false;
  bool readOnlyBox = false;  ///< offers a box "read-only"
  bool readOnly = false;     ///< and checks it at first
};

/// What the user has chosen in a file dialog.
struct FileDialogAnswer {
  /// The path chosen; of several files the folder and then each name, joined by NULs.
  std::u16string path;
  std::int32_t filterIndex = 1;  ///< from 1
  bool readOnly = false;         ///< the box was checked
};

/// Lets the user choose a file. @return none if the user cancels
[[nodiscard]] std::optional<FileDialogAnswer> ShowOpenDialog(const FileDialogRequest& request);
[[nodiscard]] std::optional<FileDialogAnswer> ShowSaveDialog(const FileDialogRequest& request);

}  // namespace lexmill::platform
