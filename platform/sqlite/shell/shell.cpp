// SPDX-License-Identifier: MIT
// A statement of the command line and a script differ in all that has to do with failures: where
// they are printed, whether the next statement runs, and the exit code. Both run in batches. What a
// script collects up to a semicolon at the end of a line is one batch, and a failure ends it: the
// next batch runs all the same. The database is opened by the first statement and not before, since
// that makes the file.
#include "platform/sqlite/shell/shell.h"

#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "platform/host/program_start.h"
#include "platform/sqlite/database_error.h"
#include "platform/sqlite/shell/arguments.h"
#include "platform/sqlite/shell/script_reader.h"
#include "platform/sqlite/sql/row_output.h"
#include "platform/sqlite/sql/session.h"
#include "platform/sqlite/sql/sql_token.h"
#include "platform/sqlite/table/database.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;

void PrintError(std::string_view text, const ShellStreams& streams) {
  try {
    OutputBuffer error(streams.error);
    error.AppendLines(text);
    error.Flush();
  } catch (const StreamFailure&) {
    // Nobody is left who could read it.
  }
}

/// Thrown when nothing can run: the database can't be opened.
struct OpenFailure {
  std::string text;
};

/// One run on one database.
class Shell {
 public:
  Shell(const ShellArguments& arguments, const ShellStreams& streams)
      : arguments_(arguments),
        streams_(streams),
        output_(streams.output),
        rows_(output_, arguments.form, arguments.separator) {}

  int Run() {
    const int code = arguments_.statement ? RunArgument(*arguments_.statement) : RunScript();
    output_.Flush();
    return code;
  }

 private:
  int RunArgument(std::string_view statement) {
    if (SkipBlanks(statement).empty()) {
      return kSuccess;
    }
    try {
      OpenSession().Run(statement);
      return kSuccess;
    } catch (const DatabaseError& failure) {
      output_.Flush();
      PrintError("SQL error: " + failure.Text(), streams_);
      return failure.IsOfTheFile() ? kExitBrokenStream : kFailure;
    }
  }

  int RunScript() {
    ScriptReader reader(streams_.input);
    while (const std::optional<ScriptBatch> batch = isBroken_ ? std::nullopt : reader.Next()) {
      RunBatch(*batch);
    }
    return isBroken_ ? kExitBrokenStream : kSuccess;
  }

  void RunBatch(const ScriptBatch& batch) {
    switch (batch.kind) {
      case ScriptBatch::Kind::Statements:
        RunStatements(batch);
        break;
      case ScriptBatch::Kind::Command:
        output_.Flush();
        PrintError("unknown command: " + std::string(batch.text), streams_);
        break;
      case ScriptBatch::Kind::Incomplete:
        output_.Append("Incomplete SQL: ");
        output_.AppendLines(batch.text);
        break;
    }
  }

  void RunStatements(const ScriptBatch& batch) {
    if (SkipBlanks(batch.text).empty()) {
      return;
    }
    Session& session = OpenSession();
    ReportFailure(batch.text, [&] {
      if (batch.insert == nullptr && session.Collect(batch.text)) {
        return;
      }
      // What was collected fails for itself: this batch is still to run.
      ReportFailure({}, [&] { session.Settle(); });
      if (!isBroken_ && (batch.insert == nullptr || !session.Insert(*batch.insert))) {
        rows_.BeginBatch();
        session.Run(batch.text);
      }
    });
  }

  /// Runs `body`; if it fails, prints `text` and what is wrong.
  template <typename Body>
  void ReportFailure(std::string_view text, Body body) {
    try {
      body();
    } catch (const DatabaseError& failure) {
      output_.AppendLines(text);
      output_.Append("SQL error: " + failure.Text());
      output_.EndLine();
      isBroken_ = failure.Kind() == ErrorKind::Full || failure.Kind() == ErrorKind::InputOutput;
    }
  }

  Session& OpenSession() {
    if (!session_) {
      try {
        database_.emplace(arguments_.database);
      } catch (const DatabaseError& failure) {
        throw OpenFailure{failure.Text()};
      }
      session_.emplace(*database_, rows_);
    }
    return *session_;
  }

  const ShellArguments& arguments_;
  const ShellStreams& streams_;
  OutputBuffer output_;
  RowOutput rows_;
  bool isBroken_ = false;  ///< the disk failed: nothing that follows could do better
  std::optional<Database> database_;
  std::optional<Session> session_;
};

}  // namespace

int RunShell(std::span<const std::string> words, const ShellStreams& streams) {
  const ParsedArguments parsed = ParseArguments(words);
  if (!parsed.arguments) {
    PrintError(parsed.complaint, streams);
    return kFailure;
  }
  try {
    return Shell(*parsed.arguments, streams).Run();
  } catch (const OpenFailure& failure) {
    PrintError("Unable to open database \"" + parsed.arguments->database + "\": " + failure.text,
               streams);
  } catch (const StreamFailure& failure) {
    PrintError(failure.text, streams);
    return kExitBrokenStream;
  } catch (const std::bad_alloc&) {
    PrintError("out of memory", streams);
    return kExitBrokenStream;
  }
  return kFailure;
}

}  // namespace lexmill::platform::sqlite
