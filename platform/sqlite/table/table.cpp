// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/table.h"

#include <algorithm>

namespace lexmill::platform::sqlite {
namespace {

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

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
