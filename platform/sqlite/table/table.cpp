// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/table.h"

#include <algorithm>

namespace lexmill::platform::sqlite {
namespace {

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

std::optional<std::size_t> Table::FindColumn(std::string_view column) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (SameName(columns[i].name, column) && rowIdColumn != i) {
      return i;
    }
  }
  return std::nullopt;
}

const Index* Table::IndexOn(std::size_t column) const {
  const auto found = std::ranges::find_if(indexes, [column](const Index& index) {
    return index.isSearchable && index.columns.size() == 1 && index.columns.front() == column;
  });
  return found == indexes.end() ? nullptr : &*found;
}

bool SameName(std::string_view left, std::string_view right) {
  return std::ranges::equal(left, right, {}, Lower, Lower);
}

}  // namespace lexmill::platform::sqlite
