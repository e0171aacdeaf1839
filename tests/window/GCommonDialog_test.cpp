// SPDX-License-Identifier: MIT
#include "window/GCommonDialog.h"

#include <string>

#include <gtest/gtest.h>

#include "platform/headless/headless.h"
#include "tests/support/readable_text.h"

namespace lexmill {
namespace {

using platform::FileDialogAnswer;
using std::string_literals::operator""s;
using test::Readable;

struct CommonDialog : testing::Test {
  platform::headless::Session& session = platform::headless::TheSession();
  std::u16string fileName;
  std::u16string fileTitle;
  std::u16string filter = u"A (*.a)|*.a\0B (*.b;*.c)|*.b;*.c"s;
  std::int32_t filterIndex = 2;
  std::int32_t flags = 0;
  bool readOnly = false;

  CommonDialog() { session = {}; }

  bool Open(bool multiSelect = false, bool hideReadOnly = true) {
    return GCommonDialog::ShowOpenFileDialog(fileName, fileTitle, true, multiSelect, readOnly,
                                             hideReadOnly, filter, filterIndex, u"/start", u"Title",
                                             u"a", GCommonDialog::kNoOwner, flags);
  }
  bool Save() {
    return GCommonDialog::ShowSaveFileDialog(fileName, fileTitle, true, filter, filterIndex, {},
                                             u"Title", u"a", 0, flags);
  }
};

TEST_F(CommonDialog, HandsTheDialogWhatItWasGiven) {
  flags = 0x60 | 0x8;  // hook and template are taken out
  EXPECT_FALSE(Open());
  ASSERT_EQ(session.openDialogs.size(), 1U);
  const auto& request = session.openDialogs[0];
  ASSERT_EQ(request.filters.size(), 2U);
  EXPECT_EQ(Readable(request.filters[1].description), "B (*.b;*.c)");
  EXPECT_EQ(Readable(request.filters[1].patterns), "*.b;*.c");
  EXPECT_EQ(request.filterIndex, 2);
  EXPECT_EQ(Readable(request.initialFolder), "/start");
  EXPECT_FALSE(request.overActiveWindow);
  EXPECT_TRUE(request.fileMustExist);
  EXPECT_FALSE(request.multipleSelection);
  EXPECT_FALSE(request.readOnlyBox);
}

TEST_F(CommonDialog, HandsBackTheChoice) {
  session.fileAnswers.push_back(FileDialogAnswer{u"/folder/文件.a\0rest"s, 1});
  flags = 0x60 | 0x8;
  EXPECT_TRUE(Open());
  EXPECT_EQ(Readable(fileName), "/folder/文件.a");
  EXPECT_EQ(Readable(fileTitle), "文件.a");
  EXPECT_EQ(filterIndex, 1);
  EXPECT_EQ(filter, u"A (*.a)\0*.a"s);
  EXPECT_EQ(flags, 0x1000 | 0x8 | 0x4);
  EXPECT_FALSE(readOnly);
}

TEST_F(CommonDialog, ReportsThatTheUserCheckedReadOnly) {
  session.fileAnswers.push_back(FileDialogAnswer{u"/a", 1, true});
  EXPECT_TRUE(Open(false, false));
  EXPECT_TRUE(session.openDialogs[0].readOnlyBox);
  EXPECT_TRUE(readOnly);
  EXPECT_EQ(flags, 0x1001);
}

TEST_F(CommonDialog, HandsBackTheWholeBufferOfSeveralFiles) {
  fileTitle = u"title";
  session.fileAnswers.push_back(FileDialogAnswer{u"/folder\0a\0b"s, 1});
  EXPECT_TRUE(Open(true));
  EXPECT_EQ(fileName.size(), 8192U);
  EXPECT_EQ(fileName.substr(0, 13), u"/folder\0a\0b\0\0"s);
  EXPECT_EQ(Readable(fileTitle), "title");
}

TEST_F(CommonDialog, ForgetsEverythingWhenCancelled) {
  for (const bool open : {true, false}) {
    SCOPED_TRACE(open);
    fileName = fileTitle = filter = std::u16string(1, u'x');
    flags = 0x8;
    EXPECT_FALSE(open ? Open() : Save());
    EXPECT_EQ(Readable(fileName + fileTitle + filter), "");
    EXPECT_EQ(flags, 0);
    EXPECT_EQ(filterIndex, open ? -1 : 0);
  }
}

TEST_F(CommonDialog, CutsFilterListsIntoPairs) {
  struct Case {
    std::u16string filters;
    std::int32_t index;
    std::u16string pair;
  };
  const Case cases[] = {
      {u"", 1, u""},
      {u"no end", 1, u""},
      {u"d\0p\0e\0q\0\0"s, 1, u"d\0p"s},
      {u"d\0p\0e\0q\0\0"s, 2, u"e\0q"s},
      {u"d\0p\0e\0q\0\0"s, 4, u""},
      {u"d\0p\0e\0q"s, 2, u"e\0q"s},
      {u"d\0p\0e\0q"s, 3, u""},
      {u"d\0p"s, 0, u""},
      {u"d\0p"s, -1, u""},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(GCommonDialog::FilterPairAt(row.filters, row.index), row.pair)
        << Readable(row.filters) << " at " << row.index;
  }
}

}  // namespace
}  // namespace lexmill
