// SPDX-License-Identifier: MIT
// platform/sqlite/tree: giving up the pages of a tree.
#pragma once

#include "platform/sqlite/file/page.h"
#include "platform/sqlite/file/pager.h"

namespace lexmill::platform::sqlite {

/// What happens to the overflow pages of a tree that goes.
enum class Overflow { Freed, Kept };

/// Frees all pages of the tree at `root` but the root itself, which stays as it is.
/// @throws DatabaseError kMalformed for a tree that is deeper, or has more pages, than a file can
void FreeTreeBelow(Pager& pager, PageNumber root, Overflow overflow);

}  // namespace lexmill::platform::sqlite
