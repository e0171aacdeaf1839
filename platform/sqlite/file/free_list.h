// SPDX-License-Identifier: MIT
// platform/sqlite/file: pages that nobody uses.
#pragma once

#include "platform/sqlite/file/page.h"
#include "platform/sqlite/file/pager.h"

namespace lexmill::platform::sqlite {

/// Takes a page out of the free list, or adds one to the file. Its content is undefined.
/// @throws DatabaseError kMalformed for a damaged list
[[nodiscard]] PageNumber AllocatePage(Pager& pager);

/// Puts a page into the free list. @throws DatabaseError kMalformed for a page that can't be free
void FreePage(Pager& pager, PageNumber page);

}  // namespace lexmill::platform::sqlite
