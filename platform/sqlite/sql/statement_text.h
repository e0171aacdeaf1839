// SPDX-License-Identifier: MIT
// platform/sqlite/sql: what is done to a statement's text before it is understood.
#pragma once

#include <string>
#include <string_view>

namespace lexmill::platform::sqlite {

/// The name under which libsqlite3 finds the master table of the file; its own has the usual one.
inline constexpr std::string_view kMasterAlias = "lexmill_master";

/// `text` from its first token to its last, without comments round it and without the semicolon.
[[nodiscard]] std::string_view StatementBody(std::string_view text);

/// `text` without NUL bytes, which end a statement for libsqlite3: a string ends at its first one,
/// anywhere else it becomes a blank.
[[nodiscard]] std::string WithoutNulBytes(std::string_view text);

/// `text` with `CROSS JOIN` in place of inner joins and of commas between tables, so that tables
/// are looped in the order in which they are named, and with kMasterAlias for `sqlite_master`.
[[nodiscard]] std::string WithFixedJoinOrder(std::string_view text);

/// `text`, one of the statements that write rows, in the spelling of plain statements: keywords in
/// capitals, names without quotes, one blank between words and none elsewhere, no comments, a
/// semicolon at the end.
[[nodiscard]] std::string WithPlainSpelling(std::string_view text);

}  // namespace lexmill::platform::sqlite
