// SPDX-License-Identifier: MIT
// run: turns one press of the start command into a finished run.
#pragma once

namespace lexmill::modMain {

/// The program's entry: fixes AppPath and the run's settings that no control shows, and makes and
/// shows the window, whose load event runs inside.
void Main();

}  // namespace lexmill::modMain
