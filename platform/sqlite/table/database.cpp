// SPDX-License-Identifier: MIT
#include "platform/sqlite/table/database.h"

#include "platform/sqlite/database_error.h"

namespace lexmill::platform::sqlite {

Database::Database(const std::string& path) : file_(path), catalog_(file_.Pages()) {}

Database::~Database() {
  if (!inTransaction_) {
    return;
  }
  try {
    Rollback();
  } catch (const DatabaseError&) {
    // Whoever opens the file next finds the journal and undoes the rest.
  }
}

}  // namespace lexmill::platform::sqlite
