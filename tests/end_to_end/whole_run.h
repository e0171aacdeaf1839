// SPDX-License-Identifier: MIT
// tests/end_to_end: whole runs through the real batch and sqlite programs.
#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/files.h"
#include "tests/support/headless_window.h"

namespace lexmill::test {

/// A loaded window with the full preset, in a program's folder that holds the real programs, and a
/// folder for dictionaries beside it.
class WholeRun : public testing::Test {
 protected:
  WholeRun();
  ~WholeRun() override;

  /// Types the names of three dictionaries in the dictionaries' folder and presses start.
  void Press(std::string_view toDo, std::string_view refer, std::string_view result);

  /// Writes both dictionaries (UTF-8 with LF, stored in code page 936 with CR LF), presses start
  /// and gives the result in the same form.
  std::string ResultOf(std::string_view toDo, std::string_view refer);

  /// Expects that nothing lies in the program's folder but what belongs there.
  void ExpectNoTemporaryFiles() const;

  [[nodiscard]] std::u16string Dictionary(std::string_view name) const {
    return dictionaries_.File(name);
  }

  HeadlessWindow world_;
  TemporaryFolder dictionaries_;
};

}  // namespace lexmill::test
