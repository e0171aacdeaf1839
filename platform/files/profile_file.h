// SPDX-License-Identifier: MIT
// platform/files: values of INI files. Nothing is cached: each call reads or replaces the file.
// Stands for: GetPrivateProfileStringA and WritePrivateProfileStringA.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lexmill::platform {

/// A name or a value that a call may go without.
using OptionalText = std::optional<std::u16string_view>;

/// Reads a value, or a list of names: without `key` the keys of `section`, without `section` the
/// names of all sections, each name ended by a NUL.
/// @param size  bytes of the platform's buffer, counted in the code page: a value comes back with
///   at most one byte less, a list with at most two less
/// @return the value without the blanks and the one pair of quotes round it; `defaultText` without
///   trailing blanks if section, key or file is missing. Never fails.
[[nodiscard]] std::u16string GetPrivateProfileString(OptionalText section, OptionalText key,
                                                     std::u16string_view defaultText,
                                                     std::size_t size, std::u16string_view path);

/// Writes a value and creates section, key and file as needed; all other lines stay as they are.
/// Without `value` the key is deleted, without `key` the whole section. The file is replaced in one
/// step.
/// @return 0 on failure: no section, no folder, no permission
int WritePrivateProfileString(OptionalText section, OptionalText key, OptionalText value,
                              std::u16string_view path);

/// True if a value that WritePrivateProfileString writes comes back as it was, into a buffer of
/// `size` bytes.
[[nodiscard]] bool ComesBackWhole(std::u16string_view value, std::size_t size);

/// Flushes the files written since the last call to the disk.
void FlushProfileFiles();

/// Keeps all writes from now on in memory, where reads find them; no file is changed any more.
void KeepProfileWritesInMemory();

}  // namespace lexmill::platform
