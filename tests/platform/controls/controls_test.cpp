// SPDX-License-Identifier: MIT
#include "platform/controls/controls.h"

#include <initializer_list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/controls/form.h"
#include "tests/support/failures.h"
#include "tests/support/readable_text.h"

namespace lexmill::platform {
namespace {

using test::Readable;

// Counts how often an event is raised, for as long as it lives.
class Counter {
 public:
  explicit Counter(Event<>& event) : connection_(event.Connect([this] { ++count_; })) {}
  [[nodiscard]] int Count() const { return count_; }

 private:
  int count_ = 0;
  Connection connection_;
};

std::string ListOf(const ComboBox& combo) {
  std::string list;
  for (std::size_t i = 0; i < combo.ListCount(); ++i) {
    list += Readable(combo.List(i)) + ";";
  }
  return list;
}

TEST(CheckBox, RaisesClickOnlyWhenItsValueChanges) {
  CheckBox box;
  const Counter clicks(box.Click);
  box.Value(0);
  EXPECT_EQ(clicks.Count(), 0);
  box.Value(1);
  box.Value(1);
  EXPECT_EQ(clicks.Count(), 1);
  box.Value(2);
  EXPECT_EQ(clicks.Count(), 2);
}

TEST(CheckBox, RefusesOtherValuesAndKeepsItsOwn) {
  CheckBox box;
  box.Value(2);
  const Counter clicks(box.Click);
  for (const auto value : std::initializer_list<std::int16_t>{-1, 3, 32767}) {
    EXPECT_EQ(test::FailureOf([&] { box.Value(value); }), 380) << value;
  }
  EXPECT_EQ(box.Value(), 2);
  EXPECT_EQ(clicks.Count(), 0);
}

TEST(CheckBox, IsUncheckedByAClickWhenCheckedOrGreyed) {
  CheckBox box;
  box.UserClicks();
  EXPECT_EQ(box.Value(), 1);
  box.UserClicks();
  EXPECT_EQ(box.Value(), 0);
  box.Value(2);
  box.UserClicks();
  EXPECT_EQ(box.Value(), 0);
}

TEST(OptionButton, RaisesClickWhenItGoesOnAndNotWhenItGoesOff) {
  OptionButton button;
  const Counter clicks(button.Click);
  button.UserClicks();
  button.Value(false);
  button.UserClicks();
  EXPECT_EQ(clicks.Count(), 2);
}

TEST(TextBox, CutsEveryTextToItsMaxLength) {
  TextBox box;
  box.MaxLength(3);
  const Counter changes(box.Change);
  box.Text(u"abcdef");
  EXPECT_EQ(Readable(box.Text()), "abc");
  box.Text(u"abcxyz");  // the same after the cut
  EXPECT_EQ(changes.Count(), 1);
  box.Text(u"ab");
  EXPECT_EQ(changes.Count(), 2);
}

TEST(ComboBox, DistinguishesTypedTextFromChosenText) {
  ComboBox combo;
  combo.AddItem(u"one", 0);
  const Counter changes(combo.Change);
  const Counter clicks(combo.Click);
  combo.Text(u"typed");
  EXPECT_EQ(changes.Count(), 1);
  EXPECT_EQ(clicks.Count(), 0);
  combo.UserChooses(0);
  EXPECT_EQ(Readable(combo.Text()), "one");
  EXPECT_EQ(changes.Count(), 1);
  EXPECT_EQ(clicks.Count(), 1);
  combo.UserChooses(1);
  EXPECT_EQ(clicks.Count(), 1);
}

TEST(ComboBox, KeepsItsListByPosition) {
  ComboBox combo;
  combo.List(0, u"b");
  combo.AddItem(u"a", 0);
  combo.List(2, u"d");
  combo.AddItem(u"c", 2);
  EXPECT_EQ(ListOf(combo), "a;b;c;d;");
  EXPECT_TRUE(combo.List(4).empty());
  combo.List(1, u"B");
  combo.RemoveItem(0);
  EXPECT_EQ(ListOf(combo), "B;c;d;");
  EXPECT_EQ(test::FailureOf([&] { combo.RemoveItem(3); }), 5);
  EXPECT_EQ(test::FailureOf([&] { combo.AddItem(u"x", 4); }), 5);
  EXPECT_EQ(test::FailureOf([&] { combo.List(4, u"x"); }), 5);
  EXPECT_EQ(ListOf(combo), "B;c;d;");
}

TEST(Control, ReportsToItsMirrorWhatChangedAndNothingElse) {
  Label label;
  std::vector<ControlProperty> changes;
  const Connection connection =
      label.Changed.Connect([&](ControlProperty what) { changes.push_back(what); });
  label.Caption(u"12%");
  label.Caption(u"12%");
  label.BackColor(kWhite);
  label.Visible(true);
  label.Visible(false);
  EXPECT_EQ(changes, (std::vector{ControlProperty::Caption, ControlProperty::Colors,
                                  ControlProperty::Visible}));
}

TEST(Control, IsUsableOnlyIfAllGroupsRoundItAre) {
  Frame outer;
  PictureBox inner;
  inner.Container(&outer);
  Button button;
  button.Container(&inner);
  const Counter clicks(button.Click);
  outer.Visible(false);
  EXPECT_FALSE(button.IsShown());
  button.UserClicks();
  outer.Visible(true);
  inner.Enabled(false);
  EXPECT_TRUE(button.IsShown());
  button.UserClicks();
  EXPECT_EQ(clicks.Count(), 0);
  inner.Enabled(true);
  button.UserClicks();
  EXPECT_EQ(clicks.Count(), 1);
}

TEST(Control, HintsAtItsToolTipAndItsKeys) {
  Button button;
  EXPECT_TRUE(button.Hint().empty());
  button.ShortcutKeys(u"Ctrl+O");
  EXPECT_EQ(button.Hint(), u"Ctrl+O");
  button.ToolTipText(u"open");
  EXPECT_EQ(button.Hint(), u"open (Ctrl+O)");
}

TEST(ControlArray, RefusesIndexesThatItDoesNotHave) {
  ControlArray<Label> labels(nullptr, u"lbl", 2);
  labels(1).Caption(u"second");
  EXPECT_EQ(labels(1).Index(), 1);
  EXPECT_TRUE(labels(0).Caption().empty());
  EXPECT_EQ(test::FailureOf([&] { labels(2).Caption(u""); }), 5);
  EXPECT_EQ(test::FailureOf([&] { labels(-1).Caption(u""); }), 5);
}

struct Window : testing::Test {
  Form form{u"frmTest"};
  Label first{{&form, u"first"}};
  Button ok{{&form, u"ok"}};
  Button cancel{{&form, u"cancel"}};
  Counter okClicks{ok.Click};
  Counter cancelClicks{cancel.Click};
  Counter unloads{form.QueryUnload};
};

TEST_F(Window, FindsControlsByNameAndIndexUntilTheyGo) {
  EXPECT_EQ(form.Find(u"ok"), &ok);
  {
    const ControlArray<Label> labels(&form, u"labels", 2);
    EXPECT_EQ(form.Find(u"labels", 1), &labels(1));
    EXPECT_EQ(form.Find(u"labels"), nullptr);
    EXPECT_EQ(form.Controls().size(), 5U);
  }
  EXPECT_EQ(form.Controls().size(), 3U);
  EXPECT_EQ(form.FrontToBack().size(), 3U);
}

TEST_F(Window, BringsAControlToTheFrontAndKeepsTheOrderOfTheRest) {
  cancel.ZOrderFront();
  EXPECT_EQ(std::vector(form.FrontToBack().begin(), form.FrontToBack().end()),
            (std::vector<Control*>{&cancel, &first, &ok}));
}

TEST_F(Window, EnterAndEscReachTheirButtonsOnlyWhileTheseAreUsable) {
  ok.Default(true);
  cancel.Cancel(true);
  form.UserPressesEnter();
  form.UserPressesEscape();
  EXPECT_EQ(okClicks.Count(), 1);
  EXPECT_EQ(cancelClicks.Count(), 1);
  ok.Visible(false);
  cancel.Enabled(false);
  form.UserPressesEnter();
  form.UserPressesEscape();
  EXPECT_EQ(okClicks.Count(), 1);
  EXPECT_EQ(cancelClicks.Count(), 1);
}

TEST_F(Window, EnterClicksTheButtonThatHasTheFocus) {
  ok.Default(true);
  cancel.SetFocus();
  form.UserPressesEnter();
  EXPECT_EQ(cancelClicks.Count(), 1);
  EXPECT_EQ(okClicks.Count(), 0);
  cancel.Visible(false);
  form.UserPressesEnter();
  EXPECT_EQ(okClicks.Count(), 1);
}

TEST_F(Window, WorksAControlByItsKeysWhileItIsUsable) {
  CheckBox box{{&form, u"box"}};
  form.UserPressesShortcut(ok);
  EXPECT_EQ(okClicks.Count(), 1);
  EXPECT_EQ(form.ActiveControl(), nullptr);
  form.UserPressesShortcut(box);
  EXPECT_EQ(box.Value(), 1);
  EXPECT_EQ(form.ActiveControl(), &box);
  box.Visible(false);
  form.UserPressesShortcut(box);
  EXPECT_EQ(box.Value(), 1);
}

TEST_F(Window, HelpsUnlessItIsBusy) {
  const Counter helps(form.HelpWanted);
  form.UserWantsHelp();
  form.Busy(true);
  form.UserWantsHelp();
  EXPECT_EQ(helps.Count(), 1);
}

TEST_F(Window, GivesTheFocusOnceAndOnlyToUsableControls) {
  const Counter focuses(ok.GotFocus);
  ok.SetFocus();
  ok.SetFocus();
  EXPECT_EQ(focuses.Count(), 1);
  cancel.Enabled(false);
  EXPECT_EQ(test::FailureOf([&] { cancel.SetFocus(); }), 5);
  EXPECT_EQ(form.ActiveControl(), &ok);
}

TEST_F(Window, LoadsOnceAndUnloadsOnce) {
  const Counter loads(form.Load);
  form.Close();
  EXPECT_EQ(unloads.Count(), 0) << "not loaded yet";
  form.Show();
  form.Show();
  EXPECT_EQ(loads.Count(), 1);
  form.Close();
  form.Close();
  EXPECT_EQ(unloads.Count(), 1);
  EXPECT_FALSE(form.Visible());
}

TEST_F(Window, ClosesOnceIfAskedAgainWhileItCloses) {
  int asked = 0;
  const Connection connection = form.QueryUnload.Connect([&] {
    ++asked;
    form.Close();
  });
  form.Show();
  form.Close();
  EXPECT_EQ(asked, 1);
}

TEST_F(Window, KeepsACloseRequestWhileItIsBusy) {
  const Counter insisted(form.CloseInsisted);
  form.Show();
  form.Busy(true);
  form.Close();
  EXPECT_EQ(unloads.Count(), 0);
  EXPECT_EQ(insisted.Count(), 0);
  form.Close();
  EXPECT_EQ(insisted.Count(), 1);
  EXPECT_TRUE(form.Visible());
  form.Busy(false);
  EXPECT_EQ(unloads.Count(), 1);
  EXPECT_FALSE(form.Visible());
  form.Show();
  form.Busy(true);
  form.Busy(false);
  EXPECT_TRUE(form.Visible()) << "an old request counts no longer";
}

}  // namespace
}  // namespace lexmill::platform
