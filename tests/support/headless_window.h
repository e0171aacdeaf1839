// SPDX-License-Identifier: MIT
// tests/support: a small world for tests.
#pragma once

#include "platform/headless/headless.h"
#include "tests/support/files.h"
#include "window/frmMain.h"

namespace lexmill::test {

/// A fresh window, not loaded yet, whose program's folder is a fresh temporary one. Nothing is left
/// of earlier tests: no options, no run, no messages, no answers.
class HeadlessWindow {
 public:
  HeadlessWindow();
  HeadlessWindow(const HeadlessWindow&) = delete;
  HeadlessWindow& operator=(const HeadlessWindow&) = delete;

  frmMain& window;
  /// The program's folder.
  TemporaryFolder folder;
  /// What the window shows and is answered.
  platform::headless::Session& session;
};

}  // namespace lexmill::test
