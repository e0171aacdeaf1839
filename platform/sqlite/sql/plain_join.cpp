// SPDX-License-Identifier: MIT
// A hash join, with DISTINCT for nearly nothing.
//
// The inner table is read once and kept (KeyedRows): its rows by the hash of their key. Then the
// outer table is read once, and each of its rows looks its key up. So rows come in the order of the
// outer table, and for each of them in the order of the inner one, as if the inner table were
// searched through an index.
//
// DISTINCT needs no memory of the rows printed. KeyedRows keeps equal rows of the inner table once,
// and the join is done here only if rows that look alike have the same key. So a row of the result
// shows which row of the inner table made it, and with that its key; it can come up again only when
// the outer table has that key again with the same values. The pairs of a key and the outer
// table's values are therefore all that has to be remembered. A key is known by the number of the
// first row that has it.
#include "platform/sqlite/sql/plain_join.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/sql/hash_chains.h"
#include "platform/sqlite/sql/keyed_rows.h"
#include "platform/sqlite/sql/plain_listing.h"
#include "platform/sqlite/sql/row_store.h"
#include "platform/sqlite/table/table_cursor.h"
#include "platform/sqlite/upper.h"
#include "platform/text/ansi_text.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kPairMegabytes = 4;
constexpr std::size_t kLongestRow = 1048562;

/// What a join reads of one of its tables.
struct Side {
  const Table* table = nullptr;
  std::vector<std::size_t> columns;  ///< that are printed, by their positions in the table
  std::vector<std::size_t> places;   ///< of each of them in a row of the result
  std::size_t key = 0;               ///< position of the key in the table
};

std::optional<std::size_t> FindTextColumn(const Table& table, std::string_view name) {
  const std::optional<std::size_t> column = table.FindColumn(name);
  return column && table.columns[*column].isText ? column : std::nullopt;
}

std::optional<Side> FindSide(Database& database, const PlainJoin& join, std::string_view name,
                             std::string_view key) {
  Side side;
  side.table = database.FindTable(name);
  if (side.table == nullptr) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < join.columns.size(); ++i) {
    if (join.columns[i].table != name) {
      continue;
    }
    const auto column = FindTextColumn(*side.table, join.columns[i].column);
    if (!column) {
      return std::nullopt;
    }
    side.columns.push_back(*column);
    side.places.push_back(i);
  }
  const auto keyColumn = FindTextColumn(*side.table, key);
  if (!keyColumn || side.columns.empty()) {
    return std::nullopt;
  }
  side.key = *keyColumn;
  return side;
}

/// The join at work. Memory is bounded by a few bytes for each row of the inner table and for each
/// pair of a key and the outer table's values.
class Join {
 public:
  Join(Database& database, const PlainJoin& join, const Side& outer, const Side& inner,
       const KeyedRows& innerRows, RowOutput& output)
      : outer_(outer),
        inner_(inner),
        innerRows_(innerRows),
        outerCursor_(database, *outer.table),
        earlierOuter_(database, *outer.table),
        innerCursor_(database, *inner.table),
        output_(output),
        pairs_(outer.columns, kPairMegabytes),
        outerValues_(outer.columns.size()),
        earlierValues_(outer.columns.size()),
        innerValues_(inner.columns.size() + 1),
        row_(join.columns.size()) {
    for (const JoinColumn& column : join.columns) {
      names_.emplace_back(column.written);
    }
  }

  void Run(bool isUpper) {
    std::string upper;
    while (outerCursor_.Next()) {
      const Value key = outerCursor_.Column(outer_.key);
      if (key && isUpper) {
        upper.clear();
        AppendUpper(*key, AnsiCodePage(), upper);
        PrintMatches(upper);
      } else if (key) {
        PrintMatches(*key);
      }
    }
  }

 private:
  /// Prints the rows that the outer table's current row gives under `key`.
  void PrintMatches(std::string_view key) {
    const HashChains& byKey = innerRows_.ByKey();
    std::uint32_t number = byKey.First(HashOf(key));
    while (number != HashChains::kNone && !HasKey(number, key)) {
      number = byKey.Next(number);
    }
    if (number == HashChains::kNone) {
      return;
    }
    pairs_.ReadCurrent(outerCursor_, outerValues_);
    if (!AddPair(number)) {
      return;
    }
    Place(outer_, outerValues_);
    for (; number != HashChains::kNone; number = byKey.Next(number)) {
      if (HasKey(number, key)) {
        Place(inner_, innerValues_);
        PrintRow();
      }
    }
  }

  /// Reads a row of the inner table. @return whether it has that key, and not just its hash
  bool HasKey(std::uint32_t number, std::string_view key) {
    innerRows_.Read(number, innerCursor_, innerValues_);
    return innerValues_.back() == key;
  }

  /// Keeps the pair of a key, known by its first row, and the outer table's current values.
  /// @return false if it was there before
  bool AddPair(std::uint32_t firstRow) {
    const std::uint32_t hash = HashOf(outerValues_, firstRow);
    for (std::uint32_t pair = pairsByHash_.First(hash); pair != HashChains::kNone;
         pair = pairsByHash_.Next(pair)) {
      pairs_.Read(pair, earlierOuter_, earlierValues_);
      if (firstRows_[pair] == firstRow && earlierValues_ == outerValues_) {
        return false;
      }
    }
    pairsByHash_.Add(hash);
    firstRows_.push_back(firstRow);
    pairs_.Add(outerCursor_, outerValues_);
    return true;
  }

  /// Puts the values of one side into the row of the result.
  void Place(const Side& side, const std::vector<Value>& values) {
    for (std::size_t i = 0; i < side.places.size(); ++i) {
      row_[side.places[i]] = values[i];
    }
  }

  void PrintRow() {
    std::size_t length = 0;
    for (const Value& value : row_) {
      length += value ? value->size() : 0;
    }
    if (length > kLongestRow) {
      throw DatabaseError(kRowTooLong);
    }
    output_.Print(names_, row_);
  }

  const Side& outer_;
  const Side& inner_;
  const KeyedRows& innerRows_;
  TableCursor outerCursor_;
  TableCursor earlierOuter_;
  TableCursor innerCursor_;
  RowOutput& output_;
  HashChains pairsByHash_;
  std::deque<std::uint32_t> firstRows_;  ///< of the key of each pair
  RowStore pairs_;                       ///< the outer table's values of each pair
  std::vector<Value> outerValues_;
  std::vector<Value> earlierValues_;
  std::vector<Value> innerValues_;  ///< the key last
  std::vector<Value> row_;
  std::vector<std::string> names_;
};

}  // namespace

bool PrintJoin(Database& database, const PlainJoin& join, RowOutput& rows) {
  const auto outer = FindSide(database, join, join.outer.table, join.outer.column);
  const auto inner = FindSide(database, join, join.inner.table, join.inner.column);
  if (!outer || !inner || outer->table == inner->table) {
    return false;
  }
  std::vector<std::size_t> innerColumns = inner->columns;
  innerColumns.push_back(inner->key);
  const auto innerRows = KeyedRows::Read(database, *inner->table, innerColumns);
  if (!innerRows) {
    return false;
  }
  Join(database, join, *outer, *inner, *innerRows, rows).Run(join.isUpper);
  return true;
}

}  // namespace lexmill::platform::sqlite
