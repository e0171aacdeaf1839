// SPDX-License-Identifier: MIT
// glossary: the stages for glossaries, and what all stages share.
// The working scripts: every statement of the tables R, S and O, and how a value is quoted.
#pragma once

#include <string>
#include <string_view>

#include "glossary/decomposed_string.h"
#include "platform/files/file_system.h"

namespace lexmill {

/// A script that fills one table: the statements round its rows. All of it is one transaction.
struct TableScript {
  std::u16string_view createTable;
  std::u16string_view createIndex;
};

/// Table R, the purified reference: source and target stripped to their bare words.
inline constexpr TableScript kReferenceScript{u"CREATE TABLE R(r1 TEXT,r2 TEXT);",
                                              u"CREATE INDEX irm ON R(r1);"};
/// The statement of table R as a purified database holds it, without its semicolon.
inline constexpr std::u16string_view kCreateTableR =
    kReferenceScript.createTable.substr(0, kReferenceScript.createTable.size() - 1);
/// Table S, the untranslated strings taken apart.
inline constexpr TableScript kUntranslatedScript{
    u"CREATE TABLE S(so TEXT,sh TEXT,sm TEXT,sk TEXT,st TEXT);", u"CREATE INDEX ism ON S(sm);"};
/// Table O, all entries of an untranslated text in file order: head line, source, target.
inline constexpr TableScript kEntriesScript{u"CREATE TABLE O(o0 TEXT,o1 TEXT,o2 TEXT);",
                                            u"CREATE INDEX ioo ON O(o1);"};

/// Write what comes before and after the rows of a script. @throws as TextWriter::WriteLine
void WriteHeadLines(platform::TextWriter& output, const TableScript& script);
void WriteTailLines(platform::TextWriter& output, const TableScript& script);

/// Write the line before and the line after the statements of the update script, which changes
/// table O and makes no table of its own. @throws as TextWriter::WriteLine
void WriteUpdateHeadLine(platform::TextWriter& output);
void WriteUpdateTailLine(platform::TextWriter& output);

/// The statements for one row. Each sets `statement` to one line without its end; giving the same
/// string again and again saves an allocation for each row. A value is any text of one line; its
/// apostrophes are doubled, all else goes in as it is.
void SetRowOfR(std::u16string& statement, std::u16string_view r1, std::u16string_view r2);
void SetRowOfS(std::u16string& statement, const DecomposedString& row);
void SetRowOfO(std::u16string& statement, std::u16string_view o0, std::u16string_view o1,
               std::u16string_view o2);
/// The update that gives the target `value` to every entry with the source `key`.
void SetUpdateOfO(std::u16string& statement, std::u16string_view value, std::u16string_view key);

}  // namespace lexmill
