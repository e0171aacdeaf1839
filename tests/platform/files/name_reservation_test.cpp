// SPDX-License-Identifier: MIT
#include "platform/files/name_reservation.h"

#include <gtest/gtest.h>

#include "platform/host/host_path.h"
#include "tests/support/files.h"
#include "tests/support/hard_surroundings.h"

namespace lexmill::platform {
namespace {

using test::TemporaryFolder;

TEST(NameReservation, KeepsANameFromOthersUntilItGoes) {
  const TemporaryFolder folder;
  {
    const auto taken = NameReservation::Take(folder.File("a.db"));
    ASSERT_TRUE(taken);
    EXPECT_FALSE(NameReservation::Take(folder.File("a.db")));
    EXPECT_TRUE(NameReservation::Take(folder.File("a.sql")));
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "a.db"));
    RemoveStaleReservations(folder.File(""));
    EXPECT_FALSE(NameReservation::Take(folder.File("a.db")));
  }
  EXPECT_TRUE(NameReservation::Take(folder.File("a.db")));
  EXPECT_EQ(folder.Listing(), "");
}

TEST(NameReservation, RefusesANameThatAFileHas) {
  const TemporaryFolder folder;
  test::WriteBytes(folder.File("a.db"), "left behind");
  EXPECT_FALSE(NameReservation::Take(folder.File("a.db")));
  EXPECT_EQ(folder.Listing(), "a.db");
}

TEST(NameReservation, IsFreeAgainWhenItsProcessIsKilled) {
  const TemporaryFolder folder;
  std::optional<NameReservation> taken;
  EXPECT_TRUE(test::PerformAndVanish([&] {
    taken = NameReservation::Take(folder.File("a.db"));
    return taken.has_value();
  }));
  EXPECT_EQ(folder.Listing(), ".a.db.lexmill-name");
  EXPECT_TRUE(NameReservation::Take(folder.File("a.db")));
  EXPECT_EQ(folder.Listing(), "");
}

TEST(NameReservation, RemovesWhatKilledProcessesLeft) {
  const TemporaryFolder folder;
  test::WriteBytes(folder.File(".rad00000.db.lexmill-name"), "");
  test::WriteBytes(folder.File("mine.lexmill-name"), "");
  RemoveStaleReservations(folder.File(""));
  EXPECT_EQ(folder.Listing(), "mine.lexmill-name");
}

TEST(NameReservation, HindersNobodyInAFolderThatCannotBeWritten) {
  EXPECT_TRUE(NameReservation::Take(u"/proc/a.db"));
}

}  // namespace
}  // namespace lexmill::platform
