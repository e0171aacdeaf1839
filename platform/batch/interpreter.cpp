// SPDX-License-Identifier: MIT
// As the system's interpreter does, a script goes on after a line that failed: the stage that reads
// the results decides what is missing. Output goes into a file aside, which takes its place once
// the command has ended, so a reader never meets half a result.
#include "platform/batch/interpreter.h"

#include <utility>

#include "platform/batch/file_commands.h"
#include "platform/batch/messages.h"
#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/host/command_line.h"
#include "platform/host/host_failure.h"
#include "platform/host/host_path.h"
#include "platform/host/program_start.h"
#include "platform/text/text.h"

namespace lexmill::platform::batch {
namespace {

/// @return IsFolder if `path` is one
HostResult<HostFile> OpenInput(const std::u16string& path) {
  auto file = HostFile::Open(HostPath(path), OpenMode::Read);
  if (file) {
    const auto status = file->Status();
    if (status && status->kind == FileKind::Folder) {
      return HostError::IsFolder;
    }
  }
  return file;
}

/// True if a program that ended with `exitCode` may have written only a part of its output.
bool IsBrokenOff(int exitCode) {
  return exitCode == kExitBrokenStream || exitCode >= kExitByForce;
}

}  // namespace

Interpreter::Interpreter(HostFile& input, HostFile& output, HostFile& error)
    : input_(input), output_(output), error_(error) {}

void Interpreter::RunScript(std::u16string_view path) {
  TextReader script = FileSystemObject().OpenTextFile(path);
  while (!script.AtEndOfStream()) {
    const std::u16string_view text = script.ReadLine();
    const BatchLine line = ReadBatchLine(text);
    if (isEchoOn_ && !line.isSilent && !Trim(text).empty()) {
      Show(text);
    }
    Run(line);
  }
}

void Interpreter::RunLine(std::u16string_view line) {
  Run(ReadBatchLine(line));
}

void Interpreter::Show(std::u16string_view line) {
  PrintLine(output_, u"\r\n" + CurrentFolder() + u">" + std::u16string(line));
}

void Interpreter::Run(const BatchLine& line) {
  if (!line.isComplete) {
    PrintLine(error_, kWrongSyntax);
    exitCode_ = 1;
    return;
  }
  Redirected files;
  isBrokenOff_ = false;
  bool isDone = Redirect(line.redirections, files);
  if (isDone) {
    isDone = RunCommand(line, files.input.IsOpen() ? files.input : input_,
                        files.output ? files.output->File() : output_);
    isDone = CompleteOutput(files) && isDone;
  }
  if (!isDone) {
    exitCode_ = 1;
  }
}

bool Interpreter::Redirect(std::span<const Redirection> redirections, Redirected& files) {
  for (const auto& redirection : redirections) {
    const std::u16string path = FileNamed(redirection.path);
    const bool isOpen =
        redirection.isInput ? RedirectInput(path, files.input) : RedirectOutput(path, files);
    if (!isOpen) {
      return false;
    }
  }
  return true;
}

bool Interpreter::RedirectInput(const std::u16string& path, HostFile& input) {
  auto file = OpenInput(path);
  if (!file) {
    PrintLine(error_, Describe(FileFailure(file.Error(), path)));
    return false;
  }
  input = *std::move(file);
  return true;
}

// Of several files for one output the last gets it, and the others are left empty.
bool Interpreter::RedirectOutput(const std::u16string& path, Redirected& files) {
  if (!CompleteOutput(files)) {
    return false;
  }
  auto output = ReplacementFile::Create(path);
  if (!output) {
    PrintLine(error_, Describe(FileFailure(output.Error(), path)));
    return false;
  }
  files.output = *std::move(output);
  files.outputPath = path;
  return true;
}

/// Puts the output in its place, or drops it if it was broken off.
bool Interpreter::CompleteOutput(Redirected& files) {
  if (!files.output || isBrokenOff_) {
    return true;
  }
  const auto placed = files.output->Commit(false);
  if (!placed) {
    PrintLine(error_, Describe(FileFailure(placed.Error(), files.outputPath)));
  }
  files.output.reset();
  return static_cast<bool>(placed);
}

bool Interpreter::RunCommand(const BatchLine& line, HostFile& input, HostFile& output) {
  const std::u16string name = LowerCase(line.name);
  if (name == u"echo") {
    Echo(line.argument, output);
    return true;
  }
  if (name == u"copy") {
    return Copy(SplitCommandLine(line.argument), {output, error_});
  }
  if (name == u"del") {
    return Delete(SplitCommandLine(line.argument), {output, error_});
  }
  return name.empty() || RunOther(line, input, output);
}

void Interpreter::Echo(std::u16string_view argument, HostFile& output) {
  const std::u16string word = LowerCase(Trim(argument));
  if (word == u"on" || word == u"off") {
    isEchoOn_ = word == u"on";
  } else if (word.empty()) {
    PrintLine(output, isEchoOn_ ? kEchoIsOn : kEchoIsOff);
  } else {
    // The blank or the point after the name belongs to the command.
    PrintLine(output, argument.substr(1));
  }
}

bool Interpreter::RunOther(const BatchLine& line, const HostFile& input, const HostFile& output) {
  const auto words = SplitCommandLine(line.name + line.argument);
  const auto exitCode = RunProgram({.words = words,
                                    .directory = {},
                                    .standardInput = &input,
                                    .standardOutput = &output,
                                    .standardError = &error_});
  if (!exitCode) {
    PrintLine(error_, UnknownCommand(words.front()));
    return false;
  }
  exitCode_ = *exitCode;
  isBrokenOff_ = IsBrokenOff(*exitCode);
  return true;
}

int RunBatch(std::span<const std::u16string> arguments, Interpreter& interpreter, HostFile& error) {
  if (arguments.size() > 1 && arguments[0] == kLineSwitch) {
    std::u16string line;
    for (const auto& argument : arguments.subspan(1)) {
      line += (line.empty() ? u"" : u" ") + argument;
    }
    interpreter.RunLine(line);
    return interpreter.ExitCode();
  }
  if (arguments.size() != 1) {
    PrintLine(error, kUsage);
    return 2;
  }
  try {
    interpreter.RunScript(arguments[0]);
    return interpreter.ExitCode();
  } catch (const Failure& failure) {
    PrintLine(error, arguments[0] + u": " + failure.Description());
    return 1;
  }
}

}  // namespace lexmill::platform::batch
