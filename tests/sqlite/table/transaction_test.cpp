// SPDX-License-Identifier: MIT
#include <array>

#include <gtest/gtest.h>

#include "platform/sqlite/table/database.h"
#include "tests/sqlite/database_world.h"
#include "tests/support/files.h"
#include "tests/support/hard_surroundings.h"

namespace lexmill::test {
namespace {

using namespace std::string_literals;
using platform::sqlite::Database;
using platform::sqlite::Statement;
using platform::sqlite::Table;

constexpr std::string_view kMagic = "\xD9\xD5\x05\xF9\x20\xA1\x63";

std::string BigEndian(std::uint32_t number) {
  std::string bytes;
  for (const unsigned shift : {24U, 16U, 8U, 0U}) {
    bytes += static_cast<char>(number >> shift);
  }
  return bytes;
}

class Transactions : public DatabaseTest {
 protected:
  /// Enough rows that pages go to the file before the end of the transaction.
  static void AppendMany(Database& database) {
    for (int i = 0; i < 20000; ++i) {
      Append(database, "R", {"key " + std::to_string(i), std::string(200, 'x')});
    }
  }

  /// Changes rows all over the table.
  static void ChangeMany(Database& database) {
    Write(database, [&] {
      const Table& table = *database.FindTable("R");
      for (int i = 0; i < 20000; i += 3) {
        database.UpdateWhere(table, 0, 1, "key " + std::to_string(i), std::string(300, 'y'));
      }
    });
  }

  void MakeLarge() {
    Change([](Database& database) {
      MakeR(database, true);
      AppendMany(database);
    });
  }
};

TEST_F(Transactions, EndWithoutCommitLeavesTheFileByteForByte) {
  MakeLarge();
  // Bytes after the last page belong to nobody and stay all the same.
  PutBytes(Bytes() + "tail");
  const std::string before = Bytes();
  {
    Database database(path_);
    database.Begin();
    AppendMany(database);
    ChangeMany(database);
    EXPECT_NE(Bytes(), before);
  }
  EXPECT_EQ(Bytes(), before);
  EXPECT_EQ(folder_.Listing(), "t.db");
}

TEST_F(Transactions, NewFileFallsBackToNothing) {
  {
    Database database(path_);
    database.Begin();
    MakeR(database, false);
    AppendMany(database);
    database.Rollback();
    EXPECT_EQ(Bytes(), "");
    EXPECT_EQ(ErrorOf([&] { database.Rollback(); }), "cannot rollback - no transaction is active");
  }
  EXPECT_EQ(folder_.Listing(), "t.db");
}

TEST_F(Transactions, FailedStatementUndoesItselfOnly) {
  Change([](Database& database) {
    MakeR(database, true);
    AppendMany(database);
    const auto rows = Rows(database, "R");
    const std::string error = ErrorOf([&] {
      Write(database, [&] {
        AppendMany(database);
        database.CreateIndex("i2", "R", "CREATE INDEX i2 ON R(r2)");
        database.CreateTable("R", "CREATE TABLE R(a)");
      });
    });
    EXPECT_EQ(error, "table R already exists");
    EXPECT_EQ(Rows(database, "R"), rows);
    Append(database, "R", {"last", ""});
  });
  EXPECT_EQ(Findings(), "");
  EXPECT_EQ(CheckFile(Bytes()).tables.at("R").size(), 20001U);
}

TEST_F(Transactions, BrokenInTheMiddleCanOnlyBeRolledBack) {
  constexpr const char* kFull = "database or disk is full";
  Change([](Database& database) { MakeR(database, true); });
  const std::string before = Bytes();
  Database database(path_);
  database.Begin();
  {
    const test::FileSizeLimit limit(64 * 1024);
    EXPECT_EQ(ErrorOf([&] { AppendMany(database); }), kFull);
  }
  EXPECT_EQ(ErrorOf([&] { Append(database, "R", {"there is", "room again"}); }), kFull);
  EXPECT_EQ(ErrorOf([&] { database.Commit(); }), kFull);
  EXPECT_EQ(Bytes(), before);
}

TEST_F(Transactions, WriterLocksOthersOut) {
  MakeLarge();
  Database writer(path_);
  Database other(path_);
  writer.Begin();
  const auto read = [&other] { const Statement frame(other, Statement::Access::Read); };
  EXPECT_EQ(ErrorOf(read), "database is locked");
  EXPECT_EQ(ErrorOf([&] { other.Begin(); }), "database is locked");
  EXPECT_EQ(ErrorOf([&] { other.Commit(); }), "database is locked");
  EXPECT_EQ(ErrorOf([&] { other.Rollback(); }), "database is locked");
  EXPECT_EQ(ErrorOf([&] { Database late(path_); }), "");
  ChangeMany(writer);
  writer.Commit();
  EXPECT_EQ(Rows(other, "R").at(0), "key 0\t" + std::string(300, 'y'));
}

TEST_F(Transactions, ReadersLockWritersOut) {
  MakeLarge();
  Database reader(path_);
  Database writer(path_);
  {
    const Statement frame(reader, Statement::Access::Read);
    EXPECT_EQ(ErrorOf([&] { writer.Begin(); }), "database is locked");
    EXPECT_EQ(ErrorOf([&] { Write(writer, [] {}); }), "database is locked");
    EXPECT_EQ(Rows(writer, "R").size(), 20000U);
  }
  writer.Begin();
  EXPECT_EQ(folder_.Listing(), "t.db t.db-journal");
}

/// Both files as a kill in the middle of a transaction leaves them.
TEST_F(Transactions, JournalOfADeadWriterIsPlayedBack) {
  MakeLarge();
  const std::string before = Bytes();
  std::string torn;
  std::string journal;
  {
    Database database(path_);
    database.Begin();
    ChangeMany(database);
    AppendMany(database);
    torn = Bytes();
    journal = Bytes("t.db-journal");
  }
  ASSERT_NE(torn, before);
  const std::array<std::string, 3> journals = {
      journal,
      journal + "\0\0\0\1 and the beginning of one more image"s,
      // As long as nothing is counted the size of the file counts; here it is counted.
      journal.substr(0, 8) + BigEndian(static_cast<std::uint32_t>((journal.size() - 20) / 1032)) +
          journal.substr(12),
  };
  for (const std::string& left : journals) {
    PutBytes(torn);
    PutBytes(left, "t.db-journal");
    { Database database(path_); }
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(folder_.Listing(), "t.db");
  }
}

TEST_F(Transactions, JournalsOfOlderReleasesArePlayedBack) {
  Change([](Database& database) { MakeR(database, true); });
  const std::string before = Bytes();
  std::string torn = before + std::string(3000, 'z');
  torn.replace(2048, 1024, 1024, 'q');
  const std::string page3 = before.substr(2048, 1024);
  const std::array<std::string, 2> journals = {
      std::string(kMagic) + "\xD5" + BigEndian(4) + BigEndian(3) + page3,
      std::string(kMagic) + "\xD4" + "\4\0\0\0\3\0\0\0"s + page3,
  };
  for (const std::string& journal : journals) {
    PutBytes(torn);
    PutBytes(journal, "t.db-journal");
    { Database database(path_); }
    EXPECT_EQ(Bytes(), before);
  }
}

struct LeftJournal {
  const char* name;
  std::string bytes;
  std::string error;
};

class LeftJournals : public DatabaseTest, public testing::WithParamInterface<LeftJournal> {};

TEST_P(LeftJournals, NeverHarmTheDatabase) {
  Change([](Database& database) { MakeR(database, true); });
  const std::string before = Bytes();
  PutBytes(GetParam().bytes, "t.db-journal");
  EXPECT_EQ(ErrorOf([&] { Database database(path_); }), GetParam().error);
  EXPECT_EQ(Bytes(), before);
  EXPECT_EQ(folder_.Listing(), GetParam().error.empty() ? "t.db" : "t.db t.db-journal");
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, LeftJournals,
    testing::Values(
        LeftJournal{"Empty", "", ""}, LeftJournal{"Short", "some byte", ""},
        LeftJournal{"ShortOfVersion3", std::string(kMagic) + "\xD6" + "12345678", ""},
        LeftJournal{"Foreign", "A letter that somebody wrote.", "database disk image is malformed"},
        LeftJournal{"WrongChecksum",
                    std::string(kMagic) + "\xD6" + BigEndian(1) + BigEndian(77) + BigEndian(4) +
                        BigEndian(3) + std::string(1024, 'x') + BigEndian(81),
                    ""},
        LeftJournal{"PageZero",
                    std::string(kMagic) + "\xD6" + BigEndian(1) + BigEndian(0) + BigEndian(4) +
                        BigEndian(0) + std::string(1024, 'x') + BigEndian(0),
                    ""},
        LeftJournal{"PagesOfALargerFile",
                    std::string(kMagic) + "\xD6" + BigEndian(1) + BigEndian(0) +
                        BigEndian(0xFFFFFF) + BigEndian(0xFFFFFE) + std::string(1024, 'x') +
                        BigEndian(0xFFFFFE),
                    ""}),
    [](const auto& parameter) { return parameter.param.name; });

struct FirstBytes {
  const char* name;
  std::string bytes;
  std::string error;
};

class FirstBytesOfAFile : public DatabaseTest, public testing::WithParamInterface<FirstBytes> {};

TEST_P(FirstBytesOfAFile, DecideWhatItIs) {
  PutBytes(GetParam().bytes);
  EXPECT_EQ(ErrorOf([&] {
              Database database(path_);
              const Statement frame(database, Statement::Access::Read);
              EXPECT_TRUE(database.Objects().empty());
            }),
            GetParam().error);
  EXPECT_EQ(Bytes(), GetParam().bytes);
  if (GetParam().error.empty()) {
    Change([](Database& database) { MakeR(database, true); });
    EXPECT_EQ(Findings(), "");
  }
}

std::string Head(std::string_view number, std::string_view format) {
  std::string head = "** This file contains an SQLite 2.1 database **"s;
  head.resize(48);
  head += number;
  head.resize(64);
  head += format;
  head.resize(2048);
  return head;
}

const std::string kLittle = "\x28\x75\xE3\xDA";

INSTANTIATE_TEST_SUITE_P(
    Files, FirstBytesOfAFile,
    testing::Values(FirstBytes{"Empty", "", ""}, FirstBytes{"Few", std::string(1023, 'x'), ""},
                    FirstBytes{"WithoutTables", Head(kLittle, std::string(4, '\0')), ""},
                    FirstBytes{"BigEndian", Head("\xDA\xE3\x75\x28", std::string(4, '\0')), ""},
                    FirstBytes{"Foreign", std::string(1024, 'x'),
                               "file is encrypted or is not a database"},
                    FirstBytes{"OtherNumber", Head("abcd", "\4\0\0\0"s),
                               "file is encrypted or is not a database"},
                    FirstBytes{"TooNew", Head(kLittle, "\5\0\0\0"s), "unsupported file format"}),
    [](const auto& parameter) { return parameter.param.name; });

/// Nothing is protected from the superuser, so it isn't the superuser whose folder this is.
class ProtectedFiles : OrdinaryUser, public DatabaseTest {
 protected:
  static void SetRights(const std::filesystem::path& path, unsigned rights) {
    std::filesystem::permissions(path, std::filesystem::perms(rights));
  }
};

TEST_F(ProtectedFiles, AreReadOnlyAndSoIsAProtectedFolder) {
  Change([](Database& database) { MakeR(database, true); });
  const std::string before = Bytes();
  SetRights(path_, 0444);
  {
    Database database(path_);
    database.Begin();
    EXPECT_EQ(ErrorOf([&] {
                Append(database, "R", {"a", "b"});
              }),
              "attempt to write a readonly database");
    EXPECT_EQ(ErrorOf([&] { Write(database, [] {}); }), "attempt to write a readonly database");
    EXPECT_TRUE(Rows(database, "R").empty());
    database.Commit();
  }
  SetRights(path_, 0644);
  SetRights(folder_.Path(), 0555);
  {
    Database database(path_);
    EXPECT_TRUE(Rows(database, "R").empty());
    EXPECT_EQ(ErrorOf([&] { database.Begin(); }), "unable to open database file");
    EXPECT_EQ(ErrorOf([&] { Write(database, [] {}); }), "unable to open database file");
  }
  SetRights(folder_.Path(), 0755);
  // A journal that undoes nothing keeps nobody from reading, though it can't be removed.
  for (const std::string& journal :
       {""s, std::string(kMagic) + "\xD6" + BigEndian(0) + BigEndian(77) + BigEndian(4)}) {
    PutBytes(journal, "t.db-journal");
    for (const unsigned rights : {0644U, 0444U}) {
      SetRights(path_, rights);
      SetRights(folder_.Path(), 0555);
      Database database(path_);
      EXPECT_TRUE(Rows(database, "R").empty());
      EXPECT_EQ(
          ErrorOf([&] { Write(database, [] {}); }),
          rights == 0644 ? "unable to open database file" : "attempt to write a readonly database");
      SetRights(folder_.Path(), 0755);
    }
    EXPECT_EQ(Bytes("t.db-journal"), journal);
  }
  SetRights(path_, 0644);
  EXPECT_EQ(ErrorOf([&] {
              Database database(path_);
              Write(database, [] {});
            }),
            "");
  EXPECT_EQ(folder_.Listing(), "t.db");
  EXPECT_EQ(Bytes(), before);
}

}  // namespace
}  // namespace lexmill::test
