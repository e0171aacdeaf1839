// SPDX-License-Identifier: MIT
// The settings file while calls to the host fail as it is written.
#include <gtest/gtest.h>

#include "platform/files/profile_file.h"
#include "tests/faults/shared_faults.h"
#include "tests/support/files.h"

namespace lexmill::test {
namespace {

using platform::HostCall;

TEST(SettingsFaults, LeaveTheFileAsItWasOrWithTheNewValue) {
  constexpr const char* kBefore = "; mine\r\n[s]\r\na=old\r\nb=2\r\n";
  constexpr const char* kAfter = "; mine\r\n[s]\r\na=new\r\nb=2\r\n";
  const TemporaryFolder folder;
  const TemporaryFolder counting;
  FaultInjection faults(counting.Path() / "faults");
  for (const HostCall kind : {HostCall::Open, HostCall::Read, HostCall::Write, HostCall::Close,
                              HostCall::Rename, HostCall::Remove}) {
    bool hasFailed = true;
    for (int n = 1; hasFailed; ++n) {
      SCOPED_TRACE(testing::Message() << static_cast<int>(kind) << " " << n);
      WriteBytes(folder.File("s.ini"), kBefore);
      faults.Arm(kind, platform::HostError::Device, n);
      const int isWritten =
          platform::WritePrivateProfileString(u"s", u"a", u"new", folder.File("s.ini"));
      hasFailed = faults.Disarm();
      EXPECT_EQ(ReadBytes(folder.File("s.ini")), isWritten == 1 ? kAfter : kBefore);
      EXPECT_EQ(folder.Listing(), "s.ini");
    }
  }
}

}  // namespace
}  // namespace lexmill::test
