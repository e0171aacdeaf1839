// SPDX-License-Identifier: MIT
// tests/sqlite: objects in a database that this program doesn't make.
#pragma once

#include <string>

#include "platform/sqlite/table/table.h"

namespace lexmill::test {

/// Adds a row to the master table, whatever it says.
void AddForeign(const std::string& path, const platform::sqlite::CatalogObject& object);

}  // namespace lexmill::test
