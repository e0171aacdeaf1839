// SPDX-License-Identifier: MIT
#include "platform/sqlite/sql/dictionary_join.h"

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/sql/hash_chains.h"
#include "platform/sqlite/sql/plain_listing.h"
#include "platform/sqlite/sql/row_store.h"
#include "platform/sqlite/sql/untranslated_rows.h"
#include "platform/sqlite/table/table_cursor.h"
#include "platform/sqlite/upper.h"
#include "platform/text/ansi_text.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kMegabytes = 4;  // for translations
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

void CheckLength(const FiveValues& values) {
  std::size_t length = 0;
  for (const Value& value : values) {
    length += value ? value->size() : 0;
  }
  if (length > kLongestRow) {
    throw DatabaseError(kRowTooLong);
  }
}

/// The join at work. Since no two rows of `S` are equal but for their keys, a row of the result
/// comes up again only when `R` has a key with the same translation again. Memory is bounded by a
/// few bytes for each row of `S` and for each translation of its keys.
class Lookup {
 public:
  Lookup(const UntranslatedRows& untranslated, TableCursor untranslatedCursor, Database& database,
         const Side<2>& reference, RowOutput& output)
      : untranslated_(untranslated),
        untranslatedCursor_(std::move(untranslatedCursor)),
        referenceCursor_(database, *reference.table),
        earlierReference_(database, *reference.table),
        keyColumn_(reference.columns[0]),
        translationColumn_(reference.columns[1]),
        output_(output),
        translations_({&translationColumn_, 1}, kMegabytes) {}

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
  /// Prints the rows that the current row of `R` gives under `key`.
  void PrintMatches(std::string_view key) {
    const HashChains& byKey = untranslated_.ByKey();
    std::uint32_t number = byKey.First(HashOf(key));
    while (number != HashChains::kNone && KeyOf(number) != key) {
      number = byKey.Next(number);
    }
    if (number == HashChains::kNone) {
      return;
    }
    const Value translation = referenceCursor_.Column(translationColumn_);
    if (!AddPair(number, translation)) {
      return;
    }
    for (; number != HashChains::kNone; number = byKey.Next(number)) {
      FiveValues values = untranslated_.Values(number, untranslatedCursor_);
      if (values[kMiddle] == key) {
        values[kMiddle] = translation;
        CheckLength(values);
        output_.Print(kNames, values);
      }
    }
  }

  Value KeyOf(std::uint32_t number) {
    return untranslated_.Values(number, untranslatedCursor_)[kMiddle];
  }

  /// Keeps the pair of a key, told by its first row of `S`, and the current row's translation.
  /// @return false if it was there before
  bool AddPair(std::uint32_t firstRow, const Value& translation) {
    constexpr std::uint32_t kFactor = 0x9E3779B1;
    const std::uint32_t hash = firstRow * kFactor + (translation ? HashOf(*translation) : 1);
    for (std::uint32_t pair = pairsByHash_.First(hash); pair != HashChains::kNone;
         pair = pairsByHash_.Next(pair)) {
      if (firstRows_[pair] == firstRow && TranslationOf(pair) == translation) {
        return false;
      }
    }
    pairsByHash_.Add(hash);
    firstRows_.push_back(firstRow);
    translations_.Add(referenceCursor_, {&translation, 1});
    return true;
  }

  /// The translation of an earlier pair; good until the next call.
  Value TranslationOf(std::uint32_t pair) {
    Value translation;
    translations_.Read(pair, earlierReference_, {&translation, 1});
    return translation;
  }

  static inline const std::array<std::string, 5> kNames = {"S.so", "S.sh", "R.r2", "S.sk", "S.st"};

  const UntranslatedRows& untranslated_;
  TableCursor untranslatedCursor_;
  TableCursor referenceCursor_;
  TableCursor earlierReference_;
  std::size_t keyColumn_;
  std::size_t translationColumn_;
  RowOutput& output_;
  HashChains pairsByHash_;
  std::deque<std::uint32_t> firstRows_;  ///< of each pair
  RowStore translations_;                ///< of each pair
};

}  // namespace

bool PrintDictionaryJoin(Database& database, DictionaryJoin join, RowOutput& rows) {
  const auto reference = FindSide<2>(database, "R", {"r1", "r2"});
  const auto untranslated = FindSide<5>(database, "S", {"so", "sh", "sm", "sk", "st"});
  if (!reference || !untranslated) {
    return false;
  }
  const UntranslatedRows kept(database, *untranslated->table, untranslated->columns);
  if (kept.HasTwins()) {
    return false;
  }
  Lookup(kept, TableCursor(database, *untranslated->table), database, *reference, rows).Run(join);
  return true;
}

}  // namespace lexmill::platform::sqlite
