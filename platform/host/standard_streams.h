// SPDX-License-Identifier: MIT
// platform/host: what a program is started with.
#pragma once

#include <string>
#include <vector>

#include "platform/host/host_file.h"

namespace lexmill::platform {

/// The words of this program's command line, its own name first, from what `main` was given or,
/// where the host keeps more of it than that, from the host; never empty.
[[nodiscard]] std::vector<std::u16string> ProgramWords(int count, const char* const* words);

enum class StandardStream { Input, Output, Error };

/// One of the process's own streams. It is closed together with the result.
[[nodiscard]] HostFile TakeStandardStream(StandardStream stream);
/// True if somebody watches the stream on a terminal.
[[nodiscard]] bool IsTerminal(StandardStream stream);

/// From now on what is written to std::cout and std::cerr arrives byte for byte; on a terminal it
/// is shown as the UTF-8 text that it is.
void PrepareOutput();

}  // namespace lexmill::platform
