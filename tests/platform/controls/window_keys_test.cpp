// SPDX-License-Identifier: MIT
#include "platform/controls/window_keys.h"

#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

#include "platform/controls/controls.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

// A label, a field, a button in a group and a box, in this order of the tab key but made in
// another.
struct SmallForm {
  SmallForm() {
    label.Caption(u"&Name");
    box.Caption(u"A&&B (&g)");
    button.Caption(u"打开(&1)...");
    button.ShortcutKeys(u"Ctrl+O");
    button.Container(&group);
    int position = 0;
    for (Control* control :
         std::initializer_list<Control*>{&label, &field, &group, &button, &box}) {
      control->TabIndex(position++);
    }
  }

  Form form{u"form"};
  CheckBox box{{&form, u"box"}};
  Button button{{&form, u"button"}};
  PictureBox group{{&form, u"group"}};
  TextBox field{{&form, u"field"}};
  Label label{{&form, u"label"}};
};

std::string NameOf(const Control* control) {
  return control == nullptr ? "none" : test::Readable(control->Name());
}

TEST(WindowKeys, GoRoundByTheTabKeyWhereAUserCanWork) {
  SmallForm small;
  const auto next = [&](const Control* from, bool backwards = false) {
    return NameOf(NextInTabOrder(small.form, from, backwards));
  };
  EXPECT_EQ(next(nullptr) + next(&small.field) + next(&small.button) + next(&small.box),
            "fieldbuttonboxfield");
  EXPECT_EQ(next(nullptr, true) + next(&small.field, true), "boxbox");
  small.group.Enabled(false);
  EXPECT_EQ(next(&small.field), "box");
  small.field.Visible(false);
  small.box.Enabled(false);
  EXPECT_EQ(next(&small.box), "none");
}

TEST(WindowKeys, AreThoseThatCaptionsMark) {
  SmallForm small;
  EXPECT_EQ(NameOf(WithHotKey(small.form, u'G')), "box");
  EXPECT_EQ(NameOf(WithHotKey(small.form, u'1')), "button");
  EXPECT_EQ(NameOf(WithHotKey(small.form, u'B')), "none");  // "&&" is an ampersand
  EXPECT_EQ(NameOf(WithShortcut(small.form, u"Ctrl+O")), "button");
  small.group.Visible(false);
  EXPECT_EQ(NameOf(WithHotKey(small.form, u'1')), "none");
}

}  // namespace
}  // namespace lexmill::platform
