// SPDX-License-Identifier: MIT
// platform/batch: the interpreter of batch scripts.
// The commands on files: `copy` and `del`.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/host/host_file.h"

namespace lexmill::platform::batch {

/// The streams of one command.
struct CommandStreams {
  HostFile& output;
  HostFile& error;
};

/// The path for a name in a script; `nul` in any case is the empty device.
[[nodiscard]] std::u16string FileNamed(std::u16string_view name);

/// `copy`: puts the content of one file under another name, or under its own in a folder. The new
/// file takes its place in one step, over an older one; a copy that fails leaves that as it was. A
/// database that its writer left empty or half changed is not copied.
/// @return false if nothing was copied; why is then on the error stream
[[nodiscard]] bool Copy(std::span<const std::u16string> names, CommandStreams streams);

/// `del`: removes files by their names, which are taken as they are. A folder and a file without
/// write permission stay.
/// @return false if one stays or is missing; why is then on the error stream
[[nodiscard]] bool Delete(std::span<const std::u16string> names, CommandStreams streams);

}  // namespace lexmill::platform::batch
