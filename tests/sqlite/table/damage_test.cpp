// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstring>
#include <random>

#include <gtest/gtest.h>

#include "platform/sqlite/database_error.h"
#include "platform/sqlite/table/database.h"
#include "tests/sqlite/database_world.h"
#include "tests/sqlite/foreign_object.h"
#include "tests/support/files.h"

namespace lexmill::test {
namespace {

using platform::sqlite::Database;
using platform::sqlite::DatabaseError;
using platform::sqlite::Statement;
using platform::sqlite::Table;

using namespace std::string_literals;

constexpr std::size_t kPage = 1024;
constexpr std::size_t kPageHead = 8;
/// Where these pages begin: the third and the fourth of the file.
constexpr std::size_t kRootOfR = 2 * kPage;
constexpr std::size_t kRootOfIndex = 3 * kPage;

std::uint32_t PageOf(const std::string& bytes, std::size_t at) {
  std::uint32_t page = 0;
  std::memcpy(&page, &bytes[at], sizeof page);
  return page;
}

void PutLink(std::string& bytes, std::size_t at, std::uint32_t page) {
  std::memcpy(&bytes[at], &page, sizeof page);
}

/// Where the page at `page` keeps the numbers of its children, the last one first.
std::vector<std::size_t> ChildLinks(const std::string& bytes, std::size_t page) {
  const auto next = [&](std::size_t at) {
    std::uint16_t cell = 0;
    std::memcpy(&cell, &bytes[at], sizeof cell);
    return cell;
  };
  std::vector<std::size_t> links = {page};
  for (std::size_t cell = next(page + 4); cell != 0; cell = next(page + cell + 6)) {
    links.push_back(page + cell);
  }
  return links;
}

class Damage : public DatabaseTest {
 protected:
  /// A file with trees of two levels, overflow pages in rows and keys, and a free list.
  void MakeGood() {
    Change([](Database& database) {
      MakeR(database, true);
      for (int i = 0; i < 300; ++i) {
        const std::string key = "key " + std::to_string(i * 37 % 300);
        Append(database, "R",
               {i % 40 == 0 ? key + std::string(1500, 'k') : key,
                std::string(i % 30 == 0 ? 2500 : 10, 'v')});
      }
      FreeSomePages(database);
    });
    good_ = Bytes();
    ASSERT_EQ(Findings(), "");
  }

  static void FreeSomePages(Database& database) {
    Write(database, [&] { database.CreateTable("T", "CREATE TABLE T(a TEXT,b TEXT)"); });
    Append(database, "T", {"key", std::string(9000, 't')});
    database.UpdateWhere(TableOf(database, "T"), 0, 1, "key", "short");
  }

  static void UpdateAll(Database& database, const std::string& value) {
    for (int i = 0; i < 300; ++i) {
      database.UpdateWhere(Found(database), 0, 1, "key " + std::to_string(i), value);
    }
  }

  /// All that can be done with a file, each by itself: it may fail, but only as a failure.
  void DoAll() {
    const std::array<Work, 4> works = {
        [](Database& database) { std::ignore = Rows(database, "R"); },
        [](Database& database) {
          const Statement frame(database, Statement::Access::Read);
          std::ignore = Search(database, Found(database), "key 17");
        },
        [](Database& database) {
          Write(database, [&] {
            for (int i = 1; i < 9; ++i) {
              database.UpdateWhere(Found(database), 0, 1, "key " + std::to_string(i * 30), "few");
            }
          });
        },
        [](Database& database) {
          database.Begin();
          UpdateAll(database, "new");
          for (int i = 0; i < 300; ++i) {
            Append(database, "R", {"more", "rows"});
          }
          database.Commit();
        },
    };
    for (const Work& work : works) {
      std::ignore = ErrorOf([&] {
        Database database(path_);
        work(database);
      });
    }
  }

  static const Table& Found(Database& database) {
    const Table& table = TableOf(database, "R");
    if (table.IndexOn(0) == nullptr) {
      throw DatabaseError("no such index");
    }
    return table;
  }

  void ExpectMalformedRows(const std::string& bytes) const {
    PutBytes(bytes);
    Database database(path_);
    EXPECT_EQ(ErrorOf([&] { std::ignore = Rows(database, "R"); }),
              "database disk image is malformed");
  }

  std::string good_;
};

TEST_F(Damage, CutFilesAreMalformed) {
  MakeGood();
  for (std::size_t pages = 1; pages < good_.size() / kPage; ++pages) {
    SCOPED_TRACE(pages);
    PutBytes(good_.substr(0, pages * kPage));
    const std::string error = ErrorOf([&] {
      Database database(path_);
      std::ignore = Rows(database, "R");
      Write(database, [&] { UpdateAll(database, "new"); });
    });
    EXPECT_TRUE(error == "database disk image is malformed" || error.empty()) << error;
    // The first root is on page 3, and the tree below it needs every page up to its last.
    EXPECT_TRUE(pages > 20 || !error.empty());
  }
}

TEST_F(Damage, AnyByteMayBeWrong) {
  MakeGood();
  std::mt19937 random(1);
  for (int i = 0; i < 300; ++i) {
    SCOPED_TRACE(i);
    std::string bytes = good_;
    for (auto changes = random() % 3; changes < 3; ++changes) {
      // Mostly heads of pages and cells, where the links are.
      const std::size_t page = random() % (bytes.size() / kPage);
      const std::size_t offset = random() % (random() % 2 == 0 ? 40 : kPage);
      const std::size_t at = page * kPage + offset;
      bytes[at] = static_cast<char>(random() % 3 == 0 ? random() : random() % 40);
    }
    PutBytes(bytes);

    DoAll();
  }
}

TEST_F(Damage, LoopsAreMalformed) {
  MakeGood();
  // The root of R is page 3: its right child and the left child of its first cell.
  for (const std::uint32_t target : {3U, 1U, 0xFFFFFFFFU}) {
    for (const std::size_t at : {kRootOfR, kRootOfR + kPageHead}) {
      SCOPED_TRACE(std::to_string(target) + " at " + std::to_string(at));
      std::string bytes = good_;
      PutLink(bytes, at, target);
      ExpectMalformedRows(bytes);
    }
  }
}

TEST_F(Damage, RowsOutOfOrderAndTextsWithoutEndAreMalformed) {
  MakeGood();
  std::string exchanged = good_;
  const auto children = ChildLinks(good_, kRootOfR);
  std::swap_ranges(&exchanged[children[0]], &exchanged[children[0] + 4], &exchanged[children[1]]);
  ExpectMalformedRows(exchanged);
  std::string unended = good_;
  const std::string row = "key 299\0vvvvvvvvvv\0"s;
  unended.at(unended.find(row) + row.size() - 1) = 'v';
  ExpectMalformedRows(unended);
}

TEST_F(Damage, PagesThatShareChildrenAreMalformed) {
  Change([](Database& database) {
    MakeR(database, true);
    for (int i = 0; i < 200; ++i) {
      Append(database, "R", {"same", ""});
    }
    FreeSomePages(database);
  });
  // The first child of the index's root becomes a copy of it; all links of both are to one child.
  std::string bytes = Bytes();
  const std::string root = bytes.substr(kRootOfIndex, kPage);
  const auto rootLinks = ChildLinks(bytes, kRootOfIndex);
  std::size_t at = kRootOfIndex;
  for (std::size_t i = 0; i < 2; ++i) {
    const std::uint32_t child = PageOf(root, rootLinks[i] - kRootOfIndex);
    for (const std::size_t link : ChildLinks(bytes, at)) {
      PutLink(bytes, link, child);
    }
    at = (child - 1) * kPage;
    bytes.replace(at, kPage, i < 1 ? root : bytes.substr(at, kPage));
  }
  PutBytes(bytes);
  EXPECT_EQ(ErrorOf([&] {
              Database database(path_);
              const Statement frame(database, Statement::Access::Read);
              std::ignore = Search(database, Found(database), "same");
            }),
            "database disk image is malformed");
  bytes[64] = 3;  // a format whose indexes the first change gives up
  PutBytes(bytes);
  EXPECT_EQ(ErrorOf([&] { Change([](Database&) {}); }), "database disk image is malformed");
  EXPECT_TRUE(Bytes() == bytes);
}

TEST_F(Damage, StatementsOfAFileAreNotExecuted) {
  Change([](Database& database) { MakeR(database, true); });
  AddForeign(path_, {"table", "X", "X", 0,
                     "CREATE TABLE X AS WITH RECURSIVE c(n) AS "
                     "(SELECT 1 UNION ALL SELECT n+1 FROM c) SELECT n FROM c"});
  AddForeign(path_, {"index", "e", "R", 0, "ATTACH '" + path_ + ".other' AS e"});
  AddForeign(path_, {"index", "f", "R", 0, "VACUUM INTO '" + path_ + ".other'"});
  Database database(path_);
  EXPECT_TRUE(Rows(database, "R").empty());
  EXPECT_NE(ErrorOf([&] { std::ignore = database.FindTable("X"); }), "");
  EXPECT_EQ(folder_.Listing(), "t.db");
}

TEST_F(Damage, OlderFormatIsBroughtUpToDateByTheFirstChange) {
  MakeGood();
  std::string bytes = good_;
  bytes[64] = 3;
  // An index of that age holds numbers in a form of its own: an entry that present readers would
  // not find.
  bytes.at(bytes.find("ckey 299")) = 'b';
  PutBytes(bytes);
  const auto rows = [this] {
    Database database(path_);
    const Statement frame(database, Statement::Access::Read);
    EXPECT_EQ(database.FindTable("R")->IndexOn(0) != nullptr, Bytes()[64] == 4);
    return CheckFile(Bytes()).tables.at("R");
  };
  const auto before = rows();
  Change([](Database&) {});
  EXPECT_EQ(Findings(), "");
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(Bytes()[64], 4);
}

}  // namespace
}  // namespace lexmill::test
