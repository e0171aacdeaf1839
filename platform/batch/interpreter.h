// SPDX-License-Identifier: MIT
// platform/batch: the interpreter of batch scripts.
// Runs lines one after another: `echo`, `copy`, `del`, programs, redirections.
// Stands for: the system's command interpreter, as far as the scripts of this system go.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/batch/batch_line.h"
#include "platform/host/replacement_file.h"

namespace lexmill::platform::batch {

/// Runs lines in this process's current directory. A line that fails prints why and the next one
/// runs. What a line sends to a file takes that file's place when the line has run; output that was
/// broken off, since a signal ended its program or the program says so, takes no file's place.
/// Nothing is expanded, and nothing but blanks, quotes, `<`, `>`, and `@` has a meaning.
class Interpreter {
 public:
  /// The three files are the streams of what runs; they have to outlive this object.
  Interpreter(HostFile& input, HostFile& output, HostFile& error);

  /// Runs the lines of a script, which is in the system's code page.
  /// @throws Failure FileNotFound, PathNotFound, PermissionDenied if it can't be opened;
  ///   DeviceError if it can't be read
  void RunScript(std::u16string_view path);

  /// Runs one line without showing it.
  void RunLine(std::u16string_view line);

  /// The exit code of the last program; 1 if a line that could not be run came after it.
  [[nodiscard]] int ExitCode() const { return exitCode_; }

 private:
  /// The files that a line's redirections have opened.
  struct Redirected {
    HostFile input;
    std::optional<ReplacementFile> output;
    std::u16string outputPath;
  };

  void Show(std::u16string_view line);
  void Run(const BatchLine& line);
  [[nodiscard]] bool Redirect(std::span<const Redirection> redirections, Redirected& files);
  [[nodiscard]] bool RedirectInput(const std::u16string& path, HostFile& input);
  [[nodiscard]] bool RedirectOutput(const std::u16string& path, Redirected& files);
  [[nodiscard]] bool CompleteOutput(Redirected& files);
  [[nodiscard]] bool RunCommand(const BatchLine& line, HostFile& input, HostFile& output);
  void Echo(std::u16string_view argument, HostFile& output);
  [[nodiscard]] bool RunOther(const BatchLine& line, const HostFile& input, const HostFile& output);

  HostFile& input_;
  HostFile& output_;
  HostFile& error_;
  bool isEchoOn_ = true;
  bool isBrokenOff_ = false;  ///< the output of the line's program may be a part of the whole
  int exitCode_ = 0;
};

/// The `batch` program: `batch SCRIPT` or `batch /c LINE`, where the words of a line that comes in
/// several arguments are joined by blanks.
/// @param arguments  without the program's own name
/// @return the program's exit code; 2 for wrong arguments
[[nodiscard]] int RunBatch(std::span<const std::u16string> arguments, Interpreter& interpreter,
                           HostFile& error);

}  // namespace lexmill::platform::batch
