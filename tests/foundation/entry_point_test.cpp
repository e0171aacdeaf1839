// SPDX-License-Identifier: MIT
#include "foundation/entry_point.h"

#include <new>

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/headless/headless.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using platform::Failure;
using platform::headless::Session;
using platform::headless::TheSession;
using test::Readable;

TEST(EntryPoint, ShowsAFailureInThreeLines) {
  TheSession() = Session();
  EXPECT_FALSE(ReportFailures(u"Class Module 'clsLexGLO1' -> 'DoItNow'", [] {
    throw Failure(platform::FailureNumber::InputPastEnd, platform::FailureOrigin::ScriptLibrary);
  }));
  EXPECT_FALSE(ReportFailures(u"Form 'frmMain' -> 'x'", [] { throw Failure(-5, u"own text"); }));
  ASSERT_EQ(TheSession().messages.size(), 2U);
  EXPECT_EQ(Readable(TheSession().messages[0].text),
            "错误:62\r\n输入超出了文件尾\r\n"
            "源代码位置: Class Module 'clsLexGLO1' -> 'DoItNow'");
  EXPECT_EQ(TheSession().messages[0].icon, platform::MessageIcon::Critical);
  EXPECT_EQ(TheSession().messages[0].buttons, platform::MessageButtons::Ok);
  EXPECT_EQ(Readable(TheSession().messages[1].text),
            "错误:-5\r\nown text\r\n源代码位置: Form 'frmMain' -> 'x'");
}

TEST(EntryPoint, ShowsNothingWhenAllWentWell) {
  TheSession() = Session();
  bool ran = false;
  EXPECT_TRUE(ReportFailures(u"place", [&ran] { ran = true; }));
  EXPECT_TRUE(ran);
  EXPECT_TRUE(TheSession().messages.empty());
}

TEST(EntryPoint, ReportsWhenMemoryRunsOut) {
  TheSession() = Session();
  EXPECT_FALSE(ReportFailures(u"place", [] { throw std::bad_alloc(); }));
  EXPECT_FALSE(ReportFailures(u"place", [] { std::string().resize(std::string::npos); }));
  ASSERT_EQ(TheSession().messages.size(), 2U);
  for (const auto& message : TheSession().messages) {
    EXPECT_EQ(Readable(message.text), "错误:7\r\n内存溢出\r\n源代码位置: place");
  }
}

TEST(EntryPoint, DropsAFailureThatIsToBeIgnored) {
  TheSession() = Session();
  EXPECT_FALSE(IgnoreFailures([] { throw Failure(53, u"x"); }));
  EXPECT_TRUE(IgnoreFailures([] {}));
  EXPECT_TRUE(TheSession().messages.empty());
}

}  // namespace
}  // namespace lexmill
