// SPDX-License-Identifier: MIT
// platform/host: what a program knows of its host.
// Stands for: GetVersion, OemToCharBuffA, the environment.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lexmill::platform {

/// The host's version. Bit 31 is set on hosts of the oldest family, whose processes can't be given
/// pipes as their streams, and clear on all others; this one is among the others.
[[nodiscard]] std::uint32_t GetVersion();
/// Takes `version` for the host's version from now on; for tests.
void SetVersion(std::uint32_t version);

/// The environment variable `name`; empty if it is not set.
[[nodiscard]] std::u16string EnvironmentVariable(std::u16string_view name);

/// Sets the environment variable `name` for this process and for the programs that it starts.
void SetEnvironmentVariable(std::u16string_view name, std::u16string_view value);

/// From now on a write beyond the host's limit for the size of a file fails with HostError::Full,
/// in this process and in the programs that it starts; otherwise it would end the process.
void SurviveFileSizeLimit();

/// Console output in the page of text files. The host has one page for both, so that every byte
/// stays as it is. The result shares the life of `bytes`.
[[nodiscard]] constexpr std::string_view OemToAnsi(std::string_view bytes) {
  return bytes;
}

}  // namespace lexmill::platform
