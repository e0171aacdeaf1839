// SPDX-License-Identifier: MIT

// Transactions and statements: what holds, and what is taken back.
//
// A transaction rests on the journal (file/pager.cpp): whatever it did can be undone, by Rollback
// or, should this process die, by whoever opens the file next. Outside a transaction a writing
// statement is one itself. Inside, it sets a mark of the pager and goes back to that if it fails,
// so that the statements before it stay.
//
// Appended rows and collected updates come without a statement, by the hundred thousand, and a mark
// for each would cost more than the row. They wait, and Settle brings them in. So there are two
// kinds of failure that a statement doesn't take back:
//
//   - One in the middle of Settle, such as a full disk, leaves rows without index entries. The
//     transaction is broken: `brokenBy_` says by what, all calls fail with that, and Commit rolls
//     back.
//   - A row that is found too long only when its update is made. Everything is in order, but nobody
//     has been told: `pendingFailure_` waits for the next statement.
//
// Locks: the shared lock is held in a statement and throughout a transaction; the write lock from
// Begin on, or in a writing statement that is a transaction itself.

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/table/database.h"
#include "platform/sqlite/table/format_upgrade.h"

namespace lexmill::platform::sqlite {

void Database::Begin() {
  if (inTransaction_) {
    throw DatabaseError("cannot start a transaction within a transaction");
  }
  file_.Enter();
  catalog_.Invalidate();
  if (file_.CanWrite()) {
    try {
      StartWriting();
    } catch (const DatabaseError&) {
      file_.Leave();
      throw;
    }
  }
  inTransaction_ = true;
}

void Database::StartWriting() {
  file_.BeginWriting();
  try {
    UpgradeFormat(file_.Pages(), catalog_);
  } catch (const DatabaseError&) {
    file_.Rollback();
    throw;
  }
}

void Database::Commit() {
  CheckInTransaction("cannot commit - no transaction is active");
  try {
    Settle();
    CheckNotBroken();
  } catch (const DatabaseError&) {
    Rollback();
    throw;
  }
  EndTransaction();
  if (file_.Pages().IsWriting()) {
    try {
      file_.Commit();
    } catch (const DatabaseError&) {
      file_.Leave();
      throw;
    }
  }
  file_.Leave();
  ThrowPendingFailure();
}

void Database::Rollback() {
  CheckInTransaction("cannot rollback - no transaction is active");
  EndTransaction();
  pendingFailure_.reset();
  if (file_.Pages().IsWriting()) {
    file_.Rollback();
  }
  file_.Leave();
}

void Database::EndTransaction() {
  DropWaiting();
  brokenBy_.reset();
  inTransaction_ = false;
  catalog_.Invalidate();
}

void Database::CheckCanWrite() const {
  if (!file_.CanWrite()) {
    throw DatabaseError(kReadOnly);
  }
}

void Database::CheckNotBroken() const {
  if (brokenBy_) {
    throw *brokenBy_;
  }
}

void Database::ThrowPendingFailure() {
  if (pendingFailure_) {
    throw *std::exchange(pendingFailure_, std::nullopt);
  }
}

void Database::CheckInTransaction(std::string_view failure) {
  if (!inTransaction_) {
    file_.Enter();  // fails while another process writes
    file_.Leave();
    throw DatabaseError(failure);
  }
}

Statement::Statement(Database& database, Access access) : database_(database) {
  database_.CheckNotBroken();
  if (!database_.inTransaction_) {
    database_.file_.Enter();
    database_.catalog_.Invalidate();
  }
  try {
    database_.Settle();
    database_.ThrowPendingFailure();
    if (access == Access::Write) {
      Begin();
    }
  } catch (const DatabaseError&) {
    Leave();
    throw;
  }
}

Statement::~Statement() {
  Leave();
}

/// Makes sure that what comes can be taken back.
void Statement::Begin() {
  database_.CheckCanWrite();
  isOwn_ = !database_.inTransaction_;
  if (isOwn_) {
    database_.StartWriting();
  } else {
    database_.file_.Pages().Mark();
  }
  isWriting_ = true;
}

void Statement::Complete() {
  if (!isWriting_) {
    return;
  }
  database_.Settle();
  database_.ThrowPendingFailure();
  isWriting_ = false;
  if (isOwn_) {
    database_.EndTransaction();
    database_.file_.Commit();
  } else {
    database_.file_.Pages().Unmark();
  }
}

void Statement::TakeBack() {
  database_.DropWaiting();
  database_.catalog_.Invalidate();
  if (isOwn_) {
    database_.file_.Rollback();
  } else {
    database_.file_.Pages().BackToMark();
  }
  database_.brokenBy_.reset();
}

/// Takes back what wasn't completed and lets the file go. If that fails, only a rollback is left.
void Statement::Leave() noexcept {
  try {
    if (std::exchange(isWriting_, false)) {
      TakeBack();
    }
    if (!database_.inTransaction_) {
      database_.file_.Leave();
    }
  } catch (const DatabaseError& error) {
    database_.brokenBy_ = error;
  }
}

}  // namespace lexmill::platform::sqlite
