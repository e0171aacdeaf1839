// SPDX-License-Identifier: MIT
// Lines are collected in one buffer; nothing is copied out of it. At any time it holds
//
//   batch_ ........ line_ ......... lineEnd_ ........ filled_
//   lines of the    the line that   read, not yet
//   batch so far    is looked at    looked at
//
// When it is full, what comes before `batch_` is given up; when that is nothing, the batch is
// longer than the buffer, which then doubles. Each byte is moved a bounded number of times and
// scanned once, so a script of one endless batch takes no more than linear time.
#include "platform/sqlite/shell/script_reader.h"

#include <algorithm>
#include <span>

#include "platform/sqlite/sql/sql_token.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr auto kNone = std::string_view::npos;
constexpr std::size_t kCapacity = 128 * 1024;

bool IsTerminator(std::string_view line) {
  line = TrimBlanksAtEnd(line);
  return line == "/" || IsKeyword(line, "GO");
}

}  // namespace

ScriptReader::ScriptReader(const ReadFunction& read) : read_(read), buffer_(kCapacity, '\0') {}

std::optional<ScriptBatch> ScriptReader::Next() {
  batch_ = lineEnd_;
  while (FindLine()) {
    if (batch_ == line_ && Line().starts_with('.')) {
      return ScriptBatch{ScriptBatch::Kind::Command, Line()};
    }
    if (LineIsPlainInsert()) {
      return ScriptBatch{ScriptBatch::Kind::Statements, Line(), &insert_};
    }
    if (LineEndsBatch()) {
      return ScriptBatch{ScriptBatch::Kind::Statements, Text(batch_, lineEnd_)};
    }
    if (scanner_.IsBetweenStatements() && SkipBlanks(Text(batch_, lineEnd_)).empty()) {
      batch_ = lineEnd_;
    }
  }
  if (batch_ == filled_) {
    return std::nullopt;
  }
  return ScriptBatch{ScriptBatch::Kind::Incomplete, Text(batch_, filled_)};
}

/// Goes to the next line. A last line without an end counts. @return false if there is none
bool ScriptReader::FindLine() {
  line_ = lineEnd_;
  std::size_t searched = line_;
  for (;;) {
    const std::size_t end = Text(0, filled_).find('\n', searched);
    if (end != kNone) {
      lineEnd_ = end + 1;
      return true;
    }
    const std::size_t unread = filled_ - line_;
    if (!Fill()) {
      lineEnd_ = filled_;
      return unread > 0;
    }
    searched = line_ + unread;
  }
}

/// Reads on after what is filled, after making room. @return false at the end of the script
bool ScriptReader::Fill() {
  if (filled_ == buffer_.size() && batch_ > 0) {
    std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(batch_), buffer_.end(),
              buffer_.begin());
    line_ -= batch_;
    filled_ -= batch_;
    batch_ = 0;
  }
  if (filled_ == buffer_.size()) {
    buffer_.resize(2 * buffer_.size());
  }
  const std::optional<std::size_t> count = read_(std::span(buffer_).subspan(filled_));
  if (!count) {
    throw StreamFailure{"cannot read the script"};
  }
  filled_ += *count;
  return *count > 0;
}

/// Whether the line is a batch of its own with a plain INSERT and nothing else.
bool ScriptReader::LineIsPlainInsert() {
  if (batch_ != line_ || !scanner_.IsBetweenStatements()) {
    return false;
  }
  // Read as it is: neither the scanner nor anybody after it looks at these lines, most of a script.
  const std::size_t length = insert_.Read(Line());
  return length > 0 && TrimBlanksAtEnd(Line()).size() == length;
}

/// Reads the line for statements. @return true if what is collected ends with it
bool ScriptReader::LineEndsBatch() {
  if (!scanner_.IsInside() && IsTerminator(Line())) {
    ReplaceTerminator();
  }
  for (std::string_view rest = Line(); !rest.empty();) {
    const std::size_t length = scanner_.ReadStatement(rest);
    rest.remove_prefix(std::min(length, rest.size()));
  }
  return scanner_.IsBetweenStatements() && TrimBlanksAtEnd(Line()).ends_with(';');
}

/// Makes a line `go` or `/` the semicolon that it means; its length stays.
void ScriptReader::ReplaceTerminator() {
  const std::size_t length = TrimBlanksAtEnd(Line()).size();
  std::fill_n(buffer_.begin() + static_cast<std::ptrdiff_t>(line_), length, ' ');
  buffer_[line_] = ';';
}

}  // namespace lexmill::platform::sqlite
