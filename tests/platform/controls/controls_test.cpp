#include <gmock/gmock.h>

#include "platform/controls/buttons.h"
#include "platform/controls/check_box.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/option_button.h"
#include "platform/controls/tab_strip.h"
#include "platform/controls/text_box.h"
#include "support/failures.h"

namespace {

using platform::failure::InvalidPropertyValue;
using support::FailureOf;
using testing::ElementsAre;

TEST(TextBox, ChangesAtEveryAssignmentEqualOrNot) {
  platform::TextBox box;
  std::vector<std::string> seen;
  box.Change = [&] { seen.push_back(box.Text); };

  box.Text = "MU01";
  box.Text = "MU01";
  box.Text = "";

  EXPECT_THAT(seen, ElementsAre("MU01", "MU01", ""));
}

TEST(TextBox, DoesNotCutAnAssignmentAtItsMaxLength) {
  platform::TextBox box;
  box.MaxLength = 3;

  box.Text = "longer than three";

  EXPECT_EQ(box.Text, "longer than three");
}

TEST(CheckBox, ClicksOnlyWhereItsValueReallyChanges) {
  platform::CheckBox box;
  std::vector<std::int16_t> seen;
  box.Click = [&] { seen.push_back(box.Value); };

  box.Value = 0;
  box.Value = 1;
  box.Value = 1;
  box.Value = 0;

  EXPECT_THAT(seen, ElementsAre(1, 0));
}

TEST(Property, TellsAllItsObserversInTheOrderOfTheirComing) {
  platform::Property<int> property;
  std::vector<std::string> told;
  property.Observe([&] { told.emplace_back("first"); });
  property.Observe([&] { told.emplace_back("second"); });

  property = 1;

  EXPECT_THAT(told, ElementsAre("first", "second"));
}

TEST(Property, AnObserverMayBringOthersAlong) {
  platform::Property<int> property;
  int told = 0;
  std::string first;
  // A long name, so that an observer that is moved meanwhile would lose it.
  property.Observe([&, name = std::string(100, 'x')] {
    if (property != 1) return;
    for (int i = 0; i < 100; ++i) property.Observe([&told] { ++told; });
    first = name;
  });

  property = 1;
  property = 2;

  EXPECT_EQ(first, std::string(100, 'x'));
  EXPECT_GE(told, 100);
}

class OptionGroup : public testing::Test {
 protected:
  OptionGroup() {
    platform::OptionButton::Group({&first, &second, &third});
    first.Click = [this] { clicks.emplace_back("first"); };
    second.Click = [this] { clicks.emplace_back("second"); };
    third.Click = [this] { clicks.emplace_back("third"); };
  }

  platform::OptionButton first;
  platform::OptionButton second;
  platform::OptionButton third;
  std::vector<std::string> clicks;
};

TEST_F(OptionGroup, ClicksWhereAnOptionGetsSelected) {
  first.Value = true;
  second.Value = true;

  EXPECT_THAT(clicks, ElementsAre("first", "second"));
}

TEST_F(OptionGroup, SelectingTheSelectedOptionDoesNotClick) {
  first.Value = true;
  first.Value = true;

  EXPECT_THAT(clicks, ElementsAre("first"));
}

TEST_F(OptionGroup, NeighboursHaveFallenSilentlyBeforeTheClick) {
  first.Value = true;
  bool firstAtClick = true;
  second.Click = [&] { firstAtClick = first.Value; };

  second.Value = true;

  EXPECT_FALSE(firstAtClick);
  EXPECT_THAT(clicks, ElementsAre("first"));
}

TEST_F(OptionGroup, TheWindowSeesANeighbourFall) {
  first.Value = true;
  int told = 0;
  first.Value.Observe([&] { ++told; });

  third.Value = true;

  EXPECT_EQ(told, 1);
}

TEST_F(OptionGroup, DeselectingDoesNotClick) {
  first.Value = true;

  first.Value = false;

  EXPECT_FALSE(first.Value);
  EXPECT_THAT(clicks, ElementsAre("first"));
}

class ThreeUnits : public testing::Test {
 protected:
  ThreeUnits() {
    for (const char* unit : {"kV", "V", "mV"}) list.AddItem(unit);
    list.Click = [this] { chosen.push_back(list.Text()); };
  }

  platform::ComboBox list;
  std::vector<std::string> chosen;
};

TEST_F(ThreeUnits, HaveNoTextBeforeTheFirstChoice) {
  EXPECT_EQ(list.ListIndex, -1);
  EXPECT_EQ(list.Text(), "");
  EXPECT_THAT(chosen, ElementsAre());
}

TEST_F(ThreeUnits, ClickWheneverTheIndexIsAssigned) {
  list.ListIndex = 2;
  list.ListIndex = 2;
  list.ListIndex = 0;

  EXPECT_THAT(chosen, ElementsAre("mV", "mV", "kV"));
}

TEST_F(ThreeUnits, AnIndexOutsideTheListFailsAndChangesNothing) {
  list.ListIndex = 1;

  for (const int outside : {3, -1, -2, 32767}) {
    EXPECT_EQ(FailureOf([&] { list.ListIndex = outside; }), InvalidPropertyValue) << outside;
  }

  EXPECT_EQ(list.ListIndex, 1);
  EXPECT_THAT(chosen, ElementsAre("V"));
}

TEST(ComboBox, HasNoValidIndexWhileItIsEmpty) {
  platform::ComboBox list;

  EXPECT_EQ(FailureOf([&] { list.ListIndex = 0; }), InvalidPropertyValue);
}

TEST(CWButton, TellsOnlyARealChangeOfItsValue) {
  platform::CWButton button;
  std::vector<bool> seen;
  button.ValueChanged = [&] { seen.push_back(button.Value); };

  button.Value = false;
  button.Value = true;
  button.Value = true;
  button.Value = false;

  EXPECT_THAT(seen, ElementsAre(true, false));
}

TEST(CWButton, ADisabledButtonStillTellsAChangeFromCode) {
  platform::CWButton button;
  int told = 0;
  button.ValueChanged = [&] { ++told; };
  button.Enabled = false;

  button.Value = true;

  EXPECT_EQ(told, 1);
}

TEST(TabStrip, ChangesAtEverySelectionAlsoOfTheSelectedTab) {
  platform::TabStrip tabs;
  std::vector<std::int16_t> seen;
  tabs.Changed = [&] { seen.push_back(tabs.SelectedTab); };

  tabs.SelectedTab = 2;
  tabs.SelectedTab = 2;
  tabs.SelectedTab = 7;

  EXPECT_THAT(seen, ElementsAre(2, 2, 7));
}

}  // namespace
