// SPDX-License-Identifier: MIT
#include "run/shell_complaint.h"

#include <algorithm>

#include "platform/text/ansi_text.h"
#include "platform/text/text.h"

namespace lexmill {
namespace {

// A statement that failed is in the output in full, however long it is.
constexpr std::size_t kLongest = 500;

}  // namespace

void ShellComplaint::Feed(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = std::min(bytes.find('\n'), bytes.size());
    line_.append(bytes.substr(0, std::min(length, kLongest - line_.size())));
    if (length == bytes.size()) {
      return;
    }
    TakeLine();
    bytes.remove_prefix(length + 1);
  }
}

void ShellComplaint::TakeLine() {
  if (complaint_.empty() &&
      (line_.starts_with("SQL error: ") || line_.starts_with("Unable to open database "))) {
    complaint_ = line_.substr(0, line_.find('\r'));
  }
  line_.clear();
}

std::string ShellComplaint::Text() const {
  return platform::ToUtf8(platform::FromAnsi(complaint_));
}

}  // namespace lexmill
