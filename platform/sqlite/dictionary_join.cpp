// SPDX-License-Identifier: MIT
#include "platform/sqlite/dictionary_join.h"

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ansi_text.h"
#include "platform/sqlite/database_error.h"
#include "platform/sqlite/hash_chains.h"
#include "platform/sqlite/plain_listing.h"
#include "platform/sqlite/table_cursor.h"
#include "platform/sqlite/untranslated_rows.h"
#include "platform/sqlite/upper.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kLongestRow = 1048562;

/// A table and the positions of its columns that the join reads.
template <std::size_t Count>
struct Side {
  const Table* table = nullptr;
  std::array<std::size_t, Count> columns{};
};

/// Finds a table with these columns, all of them text.
template <std::size_t Count>
std::optional<Side<Count>> FindSide(Database& database, std::string_view name,
                                    const std::array<std::string_view, Count>& columns) {
  Side<Count> result;
  result.table = database.FindTable(name);
  if (result.table == nullptr) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < Count; ++i) {
    const std::optional<std::size_t> column = FindColumn(*result.table, columns[i]);
    if (!column || !result.table->columns[*column].isText) {
      return std::nullopt;
    }
    result.columns[i] = *column;
  }
  return result;
}

std::uint32_t HashOfRow(const FiveValues& values) {
  constexpr std::uint32_t kFactor = 0x9E3779B1;
  std::uint32_t hash = 0;
  for (const Value& value : values) {
    hash = hash * kFactor + (value ? HashOf(*value) : 1);
  }
  return hash;
}

void CheckLength(const FiveValues& values) {
  std::size_t length = 0;
  for (const Value& value : values) {
    length += value ? value->size() : 0;
  }
  if (length > kLongestRow) {
    throw DatabaseError(kRowTooLong);
  }
}

/// The join at work. Its memory is bounded by a few bytes for each row of `S` and of the result;
/// texts of earlier rows are read again when they have to be compared.
class Lookup {
 public:
  Lookup(Database& database, const Side<2>& reference, const Side<5>& untranslated,
         RowOutput& output)
      : untranslated_(database, *untranslated.table, untranslated.columns),
        untranslatedCursor_(database, *untranslated.table),
        earlierUntranslated_(database, *untranslated.table),
        referenceCursor_(database, *reference.table),
        earlierReference_(database, *reference.table),
        keyColumn_(reference.columns[0]),
        translationColumn_(reference.columns[1]),
        output_(output) {}

  void Run(DictionaryJoin join) {
    std::string upper;
    while (referenceCursor_.Next()) {
      const Value key = referenceCursor_.Column(keyColumn_);
      if (key && join == DictionaryJoin::UpperCase) {
        upper.clear();
        AppendUpper(*key, AnsiCodePage(), upper);
        PrintMatches(upper);
      } else if (key) {
        PrintMatches(*key);
      }
    }
  }

 private:
  /// Where a row of the result came from.
  struct Origin {
    std::uint32_t untranslated;
    RowId reference;
  };

  /// Prints the rows that the current row of `R` gives under `key`.
  void PrintMatches(std::string_view key) {
    const HashChains& byKey = untranslated_.ByKey();
    for (std::uint32_t number = byKey.First(HashOf(key)); number != HashChains::kNone;
         number = byKey.Next(number)) {
      FiveValues values = untranslated_.Values(number, untranslatedCursor_);
      if (values[kMiddle] == key) {
        values[kMiddle] = referenceCursor_.Column(translationColumn_);
        PrintIfNew(values, {number, referenceCursor_.CurrentRowId()});
      }
    }
  }

  void PrintIfNew(const FiveValues& values, Origin origin) {
    CheckLength(values);
    const std::uint32_t hash = HashOfRow(values);
    for (std::uint32_t number = printed_.First(hash); number != HashChains::kNone;
         number = printed_.Next(number)) {
      if (EarlierRow(origins_[number]) == values) {
        return;
      }
    }
    printed_.Add(hash);
    origins_.push_back(origin);
    output_.Print(kNames, values);
  }

  /// A row that was printed before; good until the next call.
  FiveValues EarlierRow(Origin origin) {
    FiveValues values = untranslated_.Values(origin.untranslated, earlierUntranslated_);
    if (!earlierReference_.Seek(origin.reference)) {
      throw DatabaseError(kMalformed);
    }
    values[kMiddle] = earlierReference_.Column(translationColumn_);
    return values;
  }

  static inline const std::array<std::string, 5> kNames = {"S.so", "S.sh", "R.r2", "S.sk", "S.st"};

  UntranslatedRows untranslated_;
  TableCursor untranslatedCursor_;
  TableCursor earlierUntranslated_;
  TableCursor referenceCursor_;
  TableCursor earlierReference_;
  std::size_t keyColumn_;
  std::size_t translationColumn_;
  RowOutput& output_;
  HashChains printed_;
  std::deque<Origin> origins_;
};

}  // namespace

bool PrintDictionaryJoin(Database& database, DictionaryJoin join, RowOutput& rows) {
  const auto reference = FindSide<2>(database, "R", {"r1", "r2"});
  const auto untranslated = FindSide<5>(database, "S", {"so", "sh", "sm", "sk", "st"});
  if (!reference || !untranslated) {
    return false;
  }
  Lookup(database, *reference, *untranslated, rows).Run(join);
  return true;
}

}  // namespace lexmill::platform::sqlite
