// SPDX-License-Identifier: MIT

// Updates by a text, as a script gives them one by one, would each go down the index and down the
// table, pages apart. Here they are made with two sorts and two passes:
//
//   1. Add collects (text, sequence number, value) in a sorter. The text is in the form of an index
//      entry's beginning, so that updates and entries have the same order.
//   2. Updates meet the index entries, both from front to back, and give changes (row number,
//      excess, value), which go to a second sorter. Of the updates of one text only the last
//      counts; `excess` remembers how much longer the longest of the others was, as that may have
//      been too long a row.
//   3. Changes meet the rows, both in the order of their numbers, and a new table is written.
//
// Where there are few updates for the size of the file, step 2 looks each one up in the index, and
// step 3 changes the rows where they are: a pass over everything would cost more.
//
// All numbers in the sorters have the highest byte first, so that bytes sort as the numbers do.

#include "platform/sqlite/table/keyed_updates.h"

#include <algorithm>
#include <array>
#include <string>
#include <tuple>
#include <utility>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/table/index_filler.h"
#include "platform/sqlite/table/table_cursor.h"
#include "platform/sqlite/tree/payload.h"
#include "platform/sqlite/tree/tree_builder.h"
#include "platform/sqlite/tree/tree_editor.h"
#include "platform/sqlite/tree/tree_removal.h"

namespace lexmill::platform::sqlite {
namespace {

constexpr std::size_t kBuffer = std::size_t{8} * 1024 * 1024;
constexpr std::size_t kNumberSize = 4;

/// How many pages it is taken to cost to find a row and to change it where it is. Where that
/// makes more than all pages, a pass over the whole trees costs less.
constexpr std::size_t kPagesPerRow = 8;

std::string_view View(const std::array<char, kNumberSize>& number) {
  return {number.data(), number.size()};
}

/// The text in the form that index entries begin with.
std::string_view TextOf(std::string_view entryText) {
  return entryText.substr(1, entryText.size() - 2);
}

std::string_view RowKeyOf(CellView cell) {
  if (cell.KeyLength() != kNumberSize) {
    throw DatabaseError(kMalformed);
  }
  return {cell.Payload(), kNumberSize};
}

}  // namespace

KeyedUpdates::KeyedUpdates(Pager& pager, const Table& table, std::size_t keyColumn,
                           std::size_t valueColumn)
    : pager_(pager),
      table_(table),
      keyColumn_(keyColumn),
      valueColumn_(valueColumn),
      updates_(pager.Path(), kBuffer) {}

bool KeyedUpdates::IsFor(const Table& table, std::size_t keyColumn, std::size_t valueColumn) const {
  return &table == &table_ && keyColumn == keyColumn_ && valueColumn == valueColumn_;
}

void KeyedUpdates::Add(std::string_view key, std::string_view value) {
  // An update is its text as in an index, its number and its value, so that the updates of a text
  // come in the order in which they were given.
  std::string text;
  AppendIndexText(text, key);
  std::array<char, kNumberSize> number{};
  Put32(number.data(), sequence_++, ByteOrder::Big);
  updates_.Add({text, {number.data(), number.size()}, value});
}

bool KeyedUpdates::Apply() {
  updates_.Sort();
  KeySorter changes(pager_.Path(), kBuffer);
  isComing_ = updates_.Next(coming_);
  const Index* index = table_.IndexOn(keyColumn_);
  if (index == nullptr) {
    MatchWithRows(changes);
  } else if (AreFew(updates_.Count())) {
    Search(*index, changes);
  } else {
    MatchWithIndex(*index, changes);
  }
  changes.Sort();
  if (AreFew(changes.Count())) {
    ChangeRows(changes);
  } else {
    RewriteTable(changes);
  }
  return isAllDone_;
}

bool KeyedUpdates::AreFew(std::size_t count) const {
  return count < pager_.Count() / kPagesPerRow;
}

/// Looks each update up in the index.
void KeyedUpdates::Search(const Index& index, KeySorter& changes) {
  IndexCursor entries(pager_, index.rootPage);
  while (NextUpdate()) {
    entries.Seek(TextOf(text_));
    while (const auto rowId = entries.Next()) {
      changes.Add({View(ToRowKey(*rowId)), View(excess_), newValue_});
    }
  }
}

/// Goes through the whole index beside the updates.
void KeyedUpdates::MatchWithIndex(const Index& index, KeySorter& changes) {
  TreeCursor entries(pager_, index.rootPage);
  std::string buffer;
  bool isFirst = true;
  const NextEntry next = [&](std::string_view& entry) {
    const bool isThere = std::exchange(isFirst, false) ? entries.First() : entries.Next();
    entry = isThere ? entries.Payload(buffer) : std::string_view();
    return isThere;
  };
  MatchWith(next, changes);
}

/// Does the same for a column without an index: makes the entries that one would have.
void KeyedUpdates::MatchWithRows(KeySorter& changes) {
  Index index;
  index.columns = {keyColumn_};
  KeySorter entries(pager_.Path(), kBuffer);
  CollectEntries(pager_, table_, index, entries);
  entries.Sort();
  MatchWith([&entries](std::string_view& entry) { return entries.Next(entry); }, changes);
}

/// Joins index entries and updates, both in the order of their texts.
void KeyedUpdates::MatchWith(const NextEntry& nextEntry, KeySorter& changes) {
  std::string_view entry;
  bool hasEntry = nextEntry(entry);
  while (hasEntry && NextUpdate()) {
    while (hasEntry) {
      std::ignore = RowIdOfEntry(entry);  // throws for an entry too short to be one
      const std::size_t textSize = entry.size() - kNumberSize;
      const int order = entry.substr(0, textSize).compare(text_);
      if (order > 0) {
        break;
      }
      if (order == 0) {
        changes.Add({entry.substr(textSize), View(excess_), newValue_});
      }
      hasEntry = nextEntry(entry);
    }
  }
}

/// Goes to the last update of the next text.
bool KeyedUpdates::NextUpdate() {
  if (!isComing_) {
    return false;
  }
  std::size_t textSize = 0;
  std::size_t longest = 0;  // all updates of this text
  do {
    current_ = coming_;
    longest = std::max(longest, current_.size());
    textSize = current_.find('\0') + 1;
    isComing_ = updates_.Next(coming_);
  } while (isComing_ && coming_.starts_with(std::string_view(current_).substr(0, textSize)));
  Put32(excess_.data(), static_cast<std::uint32_t>(longest - current_.size()), ByteOrder::Big);
  text_ = std::string_view(current_).substr(0, textSize);
  newValue_ = std::string_view(current_).substr(textSize + kNumberSize);
  return true;
}

/// Changes each row where it is.
void KeyedUpdates::ChangeRows(KeySorter& changes) {
  TableCursor rows(pager_, table_.rootPage);
  TreeEditor editor(pager_, table_.rootPage);
  std::string record;
  for (std::string_view change; changes.Next(change);) {
    const RowId rowId = ToRowId(change.data());
    if (!rows.Seek(rowId)) {
      throw DatabaseError(kMalformed);
    }
    if (Renew(rows.Record(), change.substr(kNumberSize))) {
      const RecordShape shape = ShapeOf(values_);
      record.resize(shape.size);
      PutRecord(record.data(), shape, values_);
      editor.Put(View(ToRowKey(rowId)), record);
    }
  }
}

/// Builds a new tree beside the old one. Cells that stay are copied as they are, with
/// what they have in overflow pages; so those pages must not be freed with the old tree.
void KeyedUpdates::RewriteTable(KeySorter& changes) {
  TreeBuilder builder = TreeBuilder::Replacing(pager_, table_.rootPage);
  TreeCursor rows(pager_, table_.rootPage);
  std::string buffer;
  std::string_view change;
  bool isChanging = changes.Next(change);
  for (bool isThere = rows.First(); isThere; isThere = rows.Next()) {
    const CellView cell = rows.Cell();
    const std::string_view key = RowKeyOf(cell);
    const bool isMeant = isChanging && change.starts_with(key);
    if (isMeant &&
        Renew(RecordView(rows.Payload(buffer).substr(key.size())), change.substr(key.size()))) {
      builder.AppendRow(ToRowId(key.data()), values_);
      FreeOverflow(pager_, cell);
    } else {
      builder.AppendCell(cell);
    }
    if (isMeant) {
      isChanging = changes.Next(change);
    }
  }
  if (isChanging) {
    throw DatabaseError(kMalformed);  // an index entry without a row
  }
  FreeTreeBelow(pager_, table_.rootPage, Overflow::Kept);
  builder.Finish();
}

bool KeyedUpdates::Renew(const RecordView& record, std::string_view change) {
  const std::size_t excess = Get32(change.data(), ByteOrder::Big);
  const std::string_view value = change.substr(kNumberSize);
  if (excess == 0 && record.Column(valueColumn_) == value) {
    return false;
  }
  values_.clear();
  for (std::size_t i = 0; i < table_.columns.size(); ++i) {
    values_.push_back(i == valueColumn_ ? Value(value) : record.Column(i));
  }
  isAllDone_ = isAllDone_ && FitsRecord(values_, excess);
  return FitsRecord(values_);
}

}  // namespace lexmill::platform::sqlite
