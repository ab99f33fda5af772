#include <gmock/gmock.h>

#include <algorithm>

#include "support/scene.h"

namespace {

using support::Scene;
using testing::ElementsAre;

constexpr const char* Placeholder = "not yet determinated";

/// The two content filters and the station choices of the running program.
class ContentFilters : public testing::Test {
 protected:
  ContentFilters() { scene.Start(); }

  platform::TextBox& First() { return scene.Main.Text1[12]; }
  platform::TextBox& Second() { return scene.Main.Text1[14]; }
  platform::OptionButton& Station(std::size_t index) { return scene.Main.Option3[index]; }
  std::vector<std::string> StationCaptions() const {
    std::vector<std::string> captions;
    for (const platform::OptionButton& station : scene.Main.Option3) {
      captions.push_back(station.Caption);
    }
    return captions;
  }

  Scene scene;
};

TEST_F(ContentFilters, TheFirstFieldNamesTheEvenStations) {
  First().Text = "A1";

  EXPECT_EQ(scene.Settings.FilterContent[0], "A1");
  EXPECT_EQ(scene.Store.Texts["FilterContentString"], "A1");
  EXPECT_THAT(StationCaptions(), ElementsAre("A1", Placeholder, "A1", Placeholder, "A1",
                                             Placeholder, "A1", Placeholder));
}

TEST_F(ContentFilters, TheSecondFieldNamesTheOddStations) {
  Second().Text = "B2";

  EXPECT_EQ(scene.Settings.FilterContent[1], "B2");
  EXPECT_EQ(scene.Store.Texts["FilterContentString2"], "B2");
  EXPECT_THAT(StationCaptions(),
              ElementsAre("MU01", "B2", "MU01", "B2", "MU01", "B2", "MU01", "B2"));
}

TEST_F(ContentFilters, TheStreamCountIsTheFilterThatLastGotARealValue) {
  Second().Text = "B2";
  EXPECT_EQ(scene.Present.StreamCount, 2);
  First().Text = "A1";
  EXPECT_EQ(scene.Present.StreamCount, 1);
}

TEST_F(ContentFilters, AnEmptiedFieldDoesNotCount) {
  Second().Text = "B2";

  First().Text = "";

  EXPECT_EQ(scene.Present.StreamCount, 2);
}

TEST_F(ContentFilters, ADoubleClickEmptiesTheFirstField) {
  First().DblClick();

  EXPECT_EQ(First().Text, "");
  EXPECT_EQ(scene.Settings.FilterContent[0], Placeholder);
  EXPECT_EQ(Station(0).Caption, Placeholder);
  EXPECT_EQ(Station(6).Caption, Placeholder);
}

TEST_F(ContentFilters, ADoubleClickEmptiesTheSecondField) {
  Second().Text = "B2";

  Second().DblClick();

  EXPECT_EQ(Second().Text, "");
  EXPECT_EQ(scene.Settings.FilterContent[1], Placeholder);
  EXPECT_EQ(Station(7).Caption, Placeholder);
}

TEST_F(ContentFilters, ADoubleClickElsewhereEmptiesNothing) {
  scene.Main.Text1[3].DblClick();

  EXPECT_EQ(scene.Main.Text1[3].Text, "c:\\StoredData");
}

TEST_F(ContentFilters, ThePlaceholderTypedEmptiesItsFieldAndRunsTheRuleTwice) {
  scene.Store.Written.clear();
  int named = 0;
  Station(0).Caption.Observe([&] { ++named; });

  First().Text = Placeholder;

  EXPECT_EQ(First().Text, "");
  EXPECT_EQ(scene.Settings.FilterContent[0], Placeholder);
  EXPECT_EQ(named, 2);
  EXPECT_EQ(std::count(scene.Store.Written.begin(), scene.Store.Written.end(), "FileFormat"), 2);
}

TEST_F(ContentFilters, ThePlaceholderTypedCountsAsARealValueOnItsFirstRun) {
  Second().Text = Placeholder;

  EXPECT_EQ(scene.Present.StreamCount, 2);
}

TEST_F(ContentFilters, ThePlaceholderLandsInTheStore) {
  First().Text = "";

  EXPECT_EQ(scene.Store.Texts["FilterContentString"], Placeholder);
}

TEST(ContentFilterStart, AStoredPlaceholderLeavesItsFieldEmpty) {
  Scene scene;
  scene.Store.Texts["FilterContentString"] = Placeholder;

  scene.App.Load();

  EXPECT_EQ(scene.Main.Text1[12].Text, "");
  EXPECT_EQ(scene.Main.Option3[0].Caption, Placeholder);
  // The choice of the first station takes the field as it stands by then.
  EXPECT_EQ(scene.Settings.FilterContent[0], "");
}

TEST(ContentFilterStart, TheFirstStationsAreChosen) {
  Scene scene;
  scene.Store.Texts["FilterContentString"] = "MU01";
  scene.Store.Texts["FilterContentString2"] = "MU02";

  scene.App.Load();

  for (const std::size_t even : {0U, 2U, 4U, 6U}) {
    EXPECT_TRUE(scene.Main.Option3[even].Value) << even;
    EXPECT_FALSE(scene.Main.Option3[even + 1].Value) << even + 1;
  }
  EXPECT_EQ(scene.Present.ActiveStream, 1);
  EXPECT_THAT(scene.Settings.FilterContent, ElementsAre("MU01", "MU02"));
}

class StationChoice : public ContentFilters, public testing::WithParamInterface<std::size_t> {
 protected:
  StationChoice() { Second().Text = "MU02"; }
};

TEST_P(StationChoice, AnOddStationBringsTheSecondFieldToTheFirstSlot) {
  Station(GetParam() + 1).Value = true;

  EXPECT_THAT(scene.Settings.FilterContent, ElementsAre("MU02", "MU01"));
  EXPECT_EQ(scene.Present.ActiveStream, 2);
}

TEST_P(StationChoice, AnEvenStationBringsTheFirstFieldBack) {
  Station(GetParam() + 1).Value = true;

  Station(GetParam()).Value = true;

  EXPECT_THAT(scene.Settings.FilterContent, ElementsAre("MU01", "MU02"));
  EXPECT_EQ(scene.Present.ActiveStream, 1);
}

INSTANTIATE_TEST_SUITE_P(OfTheLiveViews, StationChoice, testing::Values(0U, 2U, 4U));

TEST_F(ContentFilters, AChoiceTakesTheFieldsAsTheyStand) {
  Station(1).Value = true;

  EXPECT_THAT(scene.Settings.FilterContent, ElementsAre("", "MU01"));
}

TEST_F(ContentFilters, AChoiceSavesNothing) {
  Second().Text = "MU02";
  scene.Store.Written.clear();

  Station(1).Value = true;

  EXPECT_THAT(scene.Store.Written, ElementsAre());
}

TEST_F(ContentFilters, TheSwappedContentsGoToTheStoreAtTheNextSaveAndComeBackSwapped) {
  Second().Text = "MU02";
  Station(1).Value = true;
  ASSERT_EQ(scene.Store.Texts["FilterContentString"], "MU01");

  scene.Main.Text1[3].Text = "d:\\records";
  EXPECT_EQ(scene.Store.Texts["FilterContentString"], "MU02");
  EXPECT_EQ(scene.Store.Texts["FilterContentString2"], "MU01");

  Scene next;
  next.Store.Texts = scene.Store.Texts;
  next.App.Load();
  EXPECT_EQ(next.Main.Text1[12].Text, "MU02");
  EXPECT_EQ(next.Main.Text1[14].Text, "MU01");
  EXPECT_THAT(next.Settings.FilterContent, ElementsAre("MU02", "MU01"));
  EXPECT_TRUE(next.Main.Option3[0].Value);
  EXPECT_EQ(next.Main.Option3[0].Caption, "MU02");
}

TEST_F(ContentFilters, TheStationsOfTheReportChooseNothing) {
  Second().Text = "MU02";

  Station(7).Value = true;
  EXPECT_THAT(scene.Settings.FilterContent, ElementsAre("MU01", "MU02"));
  EXPECT_EQ(scene.Present.ActiveStream, 1);

  Station(1).Value = true;
  Station(6).Value = true;
  EXPECT_THAT(scene.Settings.FilterContent, ElementsAre("MU02", "MU01"));
  EXPECT_EQ(scene.Present.ActiveStream, 2);
}

TEST_F(ContentFilters, AFieldWritesItsOwnSlotWhateverIsChosen) {
  Second().Text = "MU02";
  Station(1).Value = true;

  First().Text = "MU03";

  EXPECT_THAT(scene.Settings.FilterContent, ElementsAre("MU03", "MU01"));
}

}  // namespace
