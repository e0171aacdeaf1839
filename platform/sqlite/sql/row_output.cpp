// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/row_output.h"

#include <algorithm>
#include <utility>

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kLeastNameWidth = 5;

}  // namespace

RowOutput::RowOutput(OutputBuffer& buffer, OutputForm form, std::string separator)
    : buffer_(buffer), form_(form), separator_(std::move(separator)) {}

void RowOutput::Print(std::span<const std::string> names, std::span<const Value> values) {
  if (form_ == OutputForm::Line) {
    PrintLines(names, values);
    return;
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) {
      buffer_.Append(separator_);
    }
    buffer_.Append(values[i].value_or(""));
  }
  buffer_.EndLine();
}

void RowOutput::PrintLines(std::span<const std::string> names, std::span<const Value> values) {
  if (!std::exchange(isFirstRow_, false)) {
    buffer_.EndLine();
  }
  std::size_t width = kLeastNameWidth;
  for (const std::string& name : names) {
    width = std::max(width, name.size());
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    buffer_.Append(std::string(width - names[i].size(), ' '));
    buffer_.Append(names[i]);
    buffer_.Append(" = ");
    buffer_.Append(values[i].value_or(""));
    buffer_.EndLine();
  }
}

}  // namespace lexmill::platform::sqlite
