// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/keyed_rows.h"

#include <algorithm>
#include <vector>

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kMegabytes = 12;

std::span<const Value> WithoutKey(std::span<const Value> values) {
  return values.first(values.size() - 1);
}

}  // namespace

KeyedRows::KeyedRows(std::span<const std::size_t> columns) : rows_(columns, kMegabytes) {}

std::optional<KeyedRows> KeyedRows::Read(Database& database, const Table& table,
                                         std::span<const std::size_t> columns) {
  KeyedRows result(columns);
  HashChains byOthers;  // finds rows by the values beside the key
  std::vector<Value> values(columns.size());
  std::vector<Value> earlierValues(columns.size());
  TableCursor earlier(database, table);
  for (TableCursor cursor(database, table); cursor.Next();) {
    result.rows_.ReadCurrent(cursor, values);
    if (!values.back()) {
      continue;  // NULL equals no key
    }
    const std::uint32_t hash = HashOf(WithoutKey(values));
    std::uint32_t number = byOthers.First(hash);
    for (; number != HashChains::kNone; number = byOthers.Next(number)) {
      result.Read(number, earlier, earlierValues);
      if (std::ranges::equal(WithoutKey(earlierValues), WithoutKey(values))) {
        break;
      }
    }
    if (number == HashChains::kNone) {
      byOthers.Add(hash);
      result.byKey_.Add(HashOf(*values.back()));
      result.rows_.Add(cursor, values);
    } else if (earlierValues.back() != values.back()) {
      return std::nullopt;
    }
  }
  return result;
}

}  // namespace lexmill::platform::sqlite
