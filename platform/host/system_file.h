// SPDX-License-Identifier: MIT
// platform/host: what the folder of each system defines for files. Called by this folder's sources
// alone, which ask HostFaults before and say in their headers what each call means.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/host/host_file.h"

namespace lexmill::platform::system {

[[nodiscard]] HostResult<HostHandle> Open(const HostPath& path, OpenMode mode);
[[nodiscard]] HostResult<HostHandle> OpenTemporary(const HostPath& neighbour);
/// A further handle to what `handle` is open on.
[[nodiscard]] HostResult<HostHandle> Duplicate(HostHandle handle);

/// One transfer, as long as the system makes it; begun again where a signal has interrupted it.
[[nodiscard]] HostResult<std::size_t> Read(HostHandle handle, std::span<char> buffer);
[[nodiscard]] HostResult<std::size_t> ReadAt(HostHandle handle, std::span<char> buffer,
                                             std::int64_t offset);
[[nodiscard]] HostResult<std::size_t> Write(HostHandle handle, std::string_view bytes);
[[nodiscard]] HostResult<std::size_t> WriteAt(HostHandle handle, std::string_view bytes,
                                              std::int64_t offset);

[[nodiscard]] HostOutcome Synchronise(HostHandle handle);
[[nodiscard]] HostOutcome Truncate(HostHandle handle, std::int64_t size);
[[nodiscard]] HostOutcome Lock(HostHandle handle, LockKind kind);
[[nodiscard]] HostOutcome Close(HostHandle handle);
[[nodiscard]] HostResult<FileStatus> Status(HostHandle handle);
void TakeOver(HostHandle handle, const HostPath& older);

[[nodiscard]] HostOutcome Rename(const HostPath& from, const HostPath& to);
[[nodiscard]] HostOutcome Remove(const HostPath& path);

/// Where the last name of `path` leads, the file itself existing or not.
/// @return NoFolder for links that go round
[[nodiscard]] HostResult<HostPath> FollowLinks(const HostPath& path);
/// False if rules of the folder would refuse to put another file in the place of the one at `path`,
/// though files can be created beside it.
[[nodiscard]] bool MayReplace(const HostPath& path);

}  // namespace lexmill::platform::system
