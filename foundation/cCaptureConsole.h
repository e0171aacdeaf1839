// SPDX-License-Identifier: MIT
// foundation: services that every room builds on.
// Runs a command line with a hidden console and hands on its output piece by piece.
#pragma once

#include <string>
#include <string_view>

#include "platform/event.h"

namespace lexmill {

/// Runs console commands. Holds nothing between two calls.
class cCaptureConsole {
 public:
  /// Raised for each completed read, inside ShellConsole, with the text of that read alone: at most
  /// 1024 bytes, decoded by themselves, so that a character which a read cuts in two is taken byte
  /// by byte.
  platform::Event<std::u16string> OutputAvailable;

  /// Runs a command line and waits for the end of its output, which comes when the last process
  /// that can write to it ends. How the command fared can't be seen.
  /// @param sCommandLine       as platform::CommandLine reads it
  /// @param sCurrentDriectory  the child's current directory; empty: this process's own
  /// @param IsInternalCommand  runs the line through the command interpreter that the environment
  ///   variable COMSPEC names; nothing is quoted
  /// @param IsStdOut, IsStdErr the streams to capture, on one pipe; the other one is lost
  /// @param IsOEMConvert       the output is in the console's code page rather than that of files
  /// @return the whole output; empty if the command can't be started
  /// @throws Failure InvalidCall if neither stream is captured; whatever a listener throws
  [[nodiscard]] std::u16string ShellConsole(std::u16string_view sCommandLine,
                                            std::u16string_view sCurrentDriectory = {},
                                            bool IsInternalCommand = false, bool IsStdOut = true,
                                            bool IsStdErr = true, bool IsOEMConvert = true);

 private:
  [[nodiscard]] std::u16string CaptureProcessOutput(std::u16string_view sCommandLine, bool IsStdOut,
                                                    bool IsStdErr, bool IsOEMConvert,
                                                    std::u16string_view sCurrentDriectory);
  // Whether a child needs the helper RedirStub for its output to arrive. No host of today does; the
  // branch is part of the documented way in which a command line comes about.
  [[nodiscard]] static bool IsWindows9x();
  [[nodiscard]] static std::u16string GetAppFolder();
};

}  // namespace lexmill
