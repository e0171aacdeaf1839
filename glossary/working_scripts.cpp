// SPDX-License-Identifier: MIT
#include "glossary/working_scripts.h"

#include <initializer_list>

#include "platform/text/text.h"

namespace lexmill {
namespace {

constexpr std::u16string_view kBegin = u"BEGIN TRANSACTION;";
constexpr std::u16string_view kCommit = u"COMMIT;";
constexpr std::u16string_view kBetweenValues = u"','";
constexpr std::u16string_view kAfterValues = u"');";

void AppendQuoted(std::u16string& statement, std::u16string_view value) {
  constexpr char16_t kApostrophe = u'\'';
  for (std::size_t at = 0; (at = platform::Find(value, kApostrophe)) < value.size();) {
    statement.append(value.substr(0, at + 1)).push_back(kApostrophe);
    value.remove_prefix(at + 1);
  }
  statement += value;
}

void SetInsert(std::u16string& statement, std::u16string_view opening,
               std::initializer_list<std::u16string_view> values) {
  statement.clear();
  std::u16string_view before = opening;
  for (const auto value : values) {
    statement += before;
    AppendQuoted(statement, value);
    before = kBetweenValues;
  }
  statement += kAfterValues;
}

}  // namespace

void WriteHeadLines(platform::TextWriter& output, const TableScript& script) {
  output.WriteLine(kBegin);
  output.WriteLine(script.createTable);
}

void WriteTailLines(platform::TextWriter& output, const TableScript& script) {
  output.WriteLine(script.createIndex);
  output.WriteLine(kCommit);
}

void WriteUpdateHeadLine(platform::TextWriter& output) {
  output.WriteLine(kBegin);
}

void WriteUpdateTailLine(platform::TextWriter& output) {
  output.WriteLine(kCommit);
}

void SetRowOfR(std::u16string& statement, std::u16string_view r1, std::u16string_view r2) {
  SetInsert(statement, u"INSERT INTO R VALUES ('", {r1, r2});
}

void SetRowOfS(std::u16string& statement, const DecomposedString& row) {
  SetInsert(statement, u"INSERT INTO S VALUES ('", {row.so, row.sh, row.sm, row.sk, row.st});
}

void SetRowOfO(std::u16string& statement, std::u16string_view o0, std::u16string_view o1,
               std::u16string_view o2) {
  SetInsert(statement, u"INSERT INTO O VALUES ('", {o0, o1, o2});
}

void SetUpdateOfO(std::u16string& statement, std::u16string_view value, std::u16string_view key) {
  statement = u"UPDATE O SET o2='";
  AppendQuoted(statement, value);
  statement += u"' WHERE o1='";
  AppendQuoted(statement, key);
  statement += u"';";
}

}  // namespace lexmill
