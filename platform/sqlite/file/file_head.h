// SPDX-License-Identifier: MIT
// platform/sqlite/file: the header page of a database file.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/sqlite/file/page.h"
#include "platform/sqlite/file/pager.h"

namespace lexmill::platform::sqlite {

inline constexpr std::string_view kFileMagic = "** This file contains an SQLite 2.1 database **";

/// The format in which text columns compare as text; what is written is always of it.
inline constexpr std::uint32_t kPresentFormat = 4;

// Header page: kFileMagic and a NUL, then 32-bit integers.
inline constexpr std::size_t kMagicNumberAt = 48;
inline constexpr std::size_t kFirstTrunkAt = 52;
inline constexpr std::size_t kFreeCountAt = 56;
inline constexpr std::size_t kCookieAt = 60;
inline constexpr std::size_t kFormatAt = 64;

/// Finds the file's byte order and makes it the pager's. Nothing for a file without pages.
/// @throws DatabaseError kNotADatabase, kUnsupportedFormat
void CheckFileHead(Pager& pager);

/// Gives a file without pages its header and an empty master table, in this machine's byte order.
void CreateFileHead(Pager& pager);

/// The format number: 0 before the first table, kPresentFormat or older.
[[nodiscard]] std::uint32_t FileFormat(Pager& pager);

/// Notes a change of the master table: another cookie, and the present format.
void NoteSchemaChange(Pager& pager);

}  // namespace lexmill::platform::sqlite
