// SPDX-License-Identifier: MIT
// platform/sqlite/tree: keys and data too long for a page.
#pragma once

#include <string>
#include <string_view>

#include "platform/sqlite/file/page.h"
#include "platform/sqlite/file/pager.h"

namespace lexmill::platform::sqlite {

/// Key and data of a cell in one piece: as they lie in the cell, or put together in `buffer`.
/// @throws DatabaseError kMalformed for a broken chain of pages
[[nodiscard]] std::string_view ReadPayload(Pager& pager, CellView cell, std::string& buffer);

/// Compares the key of a cell with `key` by unsigned bytes. @return below, at or above 0
[[nodiscard]] int CompareKey(Pager& pager, CellView cell, std::string_view key,
                             std::string& buffer);

/// Writes key and data of a cell of CellSize(key.size() + data.size()) bytes, its head included,
/// and what doesn't fit to new overflow pages.
void PutCell(Pager& pager, char* at, std::string_view key, std::string_view data);

/// Frees the overflow pages of a cell, if it has any.
void FreeOverflow(Pager& pager, CellView cell);

}  // namespace lexmill::platform::sqlite
