// SPDX-License-Identifier: MIT
// platform/host: requests to end this program, for programs without a window.
#pragma once

namespace lexmill::platform {

/// From now on a request to end this process (a key on its terminal, the end of the session) waits
/// for EndAsRequested; a second one of its kind ends the process at once.
void HoldTerminationRequests();
/// True if a request is waiting.
[[nodiscard]] bool IsTerminationRequested();
/// Ends this process as the request would have; returns if none is waiting.
void EndAsRequested();

/// From now on whoever started this process by RunProgram can tell whether it has ended in order or
/// was ended, also where the host's exit codes don't say so.
void ShowOrderlyEnd();

/// From now on a write to a pipe that nobody reads any more fails instead of ending this process.
/// Programs that it starts are ended by such a write all the same.
void SurviveBrokenPipes();

}  // namespace lexmill::platform
