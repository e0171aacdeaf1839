// SPDX-License-Identifier: MIT
// platform/sqlite/table: files of older releases.
#pragma once

#include "platform/sqlite/file/pager.h"
#include "platform/sqlite/table/catalog.h"

namespace lexmill::platform::sqlite {

/// Brings a file of an older format to the present one: makes new indexes of text columns,
/// which held texts that look like numbers as numbers. Nothing for a file of the present format.
void UpgradeFormat(Pager& pager, Catalog& catalog);

}  // namespace lexmill::platform::sqlite
