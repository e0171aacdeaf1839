// SPDX-License-Identifier: MIT
// Calls to the host fail while a journal is played back, and while a change commits that has to cut
// the file. No run does either, so the walk over whole runs reaches neither.
#include "tests/faults/shared_faults.h"
#include "tests/sqlite/database_world.h"

namespace lexmill::test {
namespace {

using namespace std::string_literals;
using platform::HostCall;
using platform::sqlite::Database;

class StorageFaults : public DatabaseTest {
 protected:
  StorageFaults() {
    Change([](Database& database) { MakeR(database, false); });
    before_ = Bytes();
  }

  /// Does `work` after `prepare`, once for each of its calls of `kind`, which fails; the database
  /// is then opened once more.
  /// @param isRight  whether it may be as it is after that
  void Walk(HostCall kind, const std::function<void()>& prepare, const std::function<void()>& work,
            const std::function<bool()>& isRight) {
    bool hasFailed = true;
    int n = 0;
    while (hasFailed) {
      SCOPED_TRACE(testing::Message() << "call " << static_cast<int>(kind) << ", " << ++n);
      prepare();
      faults_.Arm(kind, platform::HostError::Device, n);
      std::ignore = ErrorOf(work);
      hasFailed = faults_.Disarm();
      { Database next(path_); }
      EXPECT_TRUE(isRight());
      EXPECT_EQ(folder_.Listing(), "t.db");
    }
    EXPECT_GT(n, 1) << "no call of this kind";
  }

  TemporaryFolder counting_;
  FaultInjection faults_{counting_.Path() / "faults"};
  std::string before_;
};

TEST_F(StorageFaults, PlayBackIsTakenUpAgain) {
  std::string torn = before_ + std::string(3000, 'z');
  torn.replace(2048, 1024, 1024, 'q');
  // The oldest form of a journal: how many pages there were, then page 3 as it was.
  const std::string journal =
      "\xD9\xD5\x05\xF9\x20\xA1\x63\xD4\3\0\0\0\3\0\0\0"s + before_.substr(2048, 1024);
  for (const HostCall kind :
       {HostCall::Read, HostCall::Write, HostCall::Truncate, HostCall::Remove}) {
    Walk(
        kind,
        [&] {
          PutBytes(torn);
          PutBytes(journal, "t.db-journal");
        },
        [this] { const Database database(path_); }, [this] { return Bytes() == before_; });
  }
}

TEST_F(StorageFaults, CommitOfACutFileIsWholeOrUndone) {
  const std::string longer = before_ + "bytes after the last page";
  Walk(
      HostCall::Truncate, [&] { PutBytes(longer); },
      [this] { Change([](Database& database) {
                 Append(database, "R", {"a", "b"});
               }); },
      [&] {
        const std::string now = Bytes();
        return now == longer ||
               (now.size() == before_.size() && CheckFile(now).tables["R"].size() == 1);
      });
}

}  // namespace
}  // namespace lexmill::test
