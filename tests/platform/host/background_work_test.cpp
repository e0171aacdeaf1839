// SPDX-License-Identifier: MIT
#include "platform/host/background_work.h"

#include <atomic>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace lexmill::platform {
namespace {

TEST(BackgroundWork, DoesOnePieceAfterTheOther) {
  std::string done;  // unguarded: pieces that met would be seen by a sanitizer, or in the order
  {
    BackgroundWork work;
    for (char piece = 'a'; piece <= 'z'; ++piece) {
      work.Start([&done, piece] { done += piece; });
    }
    work.Wait();
    EXPECT_EQ(done, "abcdefghijklmnopqrstuvwxyz");
    work.Start([&done] { done += '!'; });
  }
  EXPECT_EQ(done.back(), '!');
}

TEST(BackgroundWork, RunsBesideItsOwner) {
  std::atomic<bool> isOwnerOn = false;
  BackgroundWork work;
  work.Start([&isOwnerOn] { isOwnerOn.wait(false); });
  isOwnerOn = true;
  isOwnerOn.notify_all();
  work.Wait();
}

TEST(BackgroundWork, TellsAFailureOnceAndBeginsNothingBeforeThat) {
  BackgroundWork work;
  bool isBegun = false;
  const auto fail = [] { throw std::runtime_error("failed"); };
  work.Start(fail);
  EXPECT_THROW(work.Start([&isBegun] { isBegun = true; }), std::runtime_error);
  EXPECT_FALSE(isBegun);
  work.Start([&isBegun] { isBegun = true; });
  work.Wait();
  EXPECT_TRUE(isBegun);
  work.Start(fail);
  work.Drop();
  work.Wait();
  work.Start(fail);  // and goes with it untold
}

}  // namespace
}  // namespace lexmill::platform
