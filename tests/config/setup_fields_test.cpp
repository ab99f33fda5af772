#include <gmock/gmock.h>

#include <algorithm>
#include <map>

#include "support/failures.h"
#include "support/scene.h"
#include "support/stored_defaults.h"

namespace {

using platform::failure::OutOfMemory;
using platform::failure::Overflow;
using platform::failure::TypeMismatch;
using support::FailureOf;
using support::Scene;
using support::SineFrame;
using testing::Each;
using testing::IsEmpty;
using std::chrono_literals::operator""s;

/// The Setup view of the running program.
class SetupFields : public testing::Test {
 protected:
  SetupFields() {
    scene.Start();
    scene.Store.Written.clear();
  }

  platform::Property<std::string>& Field(std::size_t index) { return scene.Main.Text1[index].Text; }
  std::int32_t FailureOfTyping(std::size_t index, const std::string& text) {
    return FailureOf([&] { Field(index) = text; });
  }
  std::string& Stored(const std::string& key) { return scene.Store.Texts[key]; }
  std::ptrdiff_t Saves() const {
    const auto& written = scene.Store.Written;
    return std::count(written.begin(), written.end(), "Number of samples");
  }
  /// Puts a mark into each block array, which a rebuild wipes out.
  void Mark() {
    scene.Block.SignalValues.Row(0)[0] = 1;
    scene.Block.SignalValues2.Row(0)[0] = 1;
    scene.Block.SampleCount(0) = 1;
    scene.Block.SampleCount2(0) = 1;
  }
  bool AllMarked() const {
    return scene.Block.SignalValues.Row(0)[0] == 1 && scene.Block.SignalValues2.Row(0)[0] == 1 &&
           scene.Block.SampleCount(0) == 1 && scene.Block.SampleCount2(0) == 1;
  }
  bool NoneMarked() const {
    return scene.Block.SignalValues.Row(0)[0] == 0 && scene.Block.SignalValues2.Row(0)[0] == 0 &&
           scene.Block.SampleCount(0) == 0 && scene.Block.SampleCount2(0) == 0;
  }

  Scene scene;
};

TEST_F(SetupFields, TheFilterConditionGoesToItsVariableAndToTheStore) {
  Field(0) = "and vlan 5";

  EXPECT_EQ(scene.Settings.FilterString, "and vlan 5");
  EXPECT_EQ(Stored("Filterstring"), "and vlan 5");
}

TEST_F(SetupFields, TheBaseFrequencyGoesToItsVariableAndToTheStore) {
  Field(1) = "16.7";

  EXPECT_EQ(scene.Settings.BaseFrequency, 16.7F);
  EXPECT_EQ(Stored("Frequency"), "16.7");
}

TEST_F(SetupFields, TheBaseFrequencyIsReadInTheLocale) {
  scene.Numbers = platform::NumberText({',', '.'});

  Field(1) = "16,7";

  EXPECT_EQ(scene.Settings.BaseFrequency, 16.7F);
  EXPECT_EQ(Stored("Frequency"), "16,7");
}

TEST_F(SetupFields, ABaseFrequencyThatIsNoNumberFails) {
  EXPECT_EQ(FailureOfTyping(1, ""), TypeMismatch);
  EXPECT_EQ(FailureOfTyping(1, "fifty"), TypeMismatch);
  EXPECT_EQ(scene.Settings.BaseFrequency, 50.0F);
  EXPECT_EQ(Saves(), 0);
}

TEST_F(SetupFields, TheSamplingsSizeTheBlockForThisRunOnly) {
  Field(2) = "800";

  EXPECT_EQ(scene.Present.BaseSamples, 800);
  EXPECT_EQ(scene.Block.SignalValues.Rows(), 800);
  EXPECT_EQ(scene.Block.SignalValues2.Rows(), 800);
  EXPECT_EQ(scene.Block.SampleCount.Count(), 800);
  EXPECT_EQ(scene.Block.SampleCount2.Count(), 800);
  EXPECT_EQ(Stored("Number of samples"), "3");
}

TEST_F(SetupFields, EmptiedSamplingsSaveNothingAndKeepTheArrays) {
  Mark();

  Field(2) = "";

  EXPECT_EQ(scene.Present.BaseSamples, 0);
  EXPECT_EQ(scene.Block.SignalValues.Rows(), 400);
  EXPECT_TRUE(AllMarked());
  EXPECT_EQ(Saves(), 0);
}

TEST_F(SetupFields, ADigitAfterEmptiedSamplingsSizesTheArraysAgain) {
  Field(2) = "";

  Field(2) = "8";

  EXPECT_EQ(scene.Present.BaseSamples, 8);
  EXPECT_EQ(scene.Block.SignalValues.Rows(), 8);
  EXPECT_EQ(Saves(), 1);
}

TEST_F(SetupFields, AnotherFieldAfterEmptiedSamplingsLeavesArraysWithoutRows) {
  Field(2) = "";

  Field(3) = "d:\\records";

  EXPECT_EQ(scene.Block.SignalValues.Rows(), 0);
  EXPECT_EQ(scene.Block.SignalValues2.Rows(), 0);
  EXPECT_EQ(scene.Block.SampleCount.Count(), 0);
  EXPECT_EQ(scene.Block.SampleCount2.Count(), 0);
  EXPECT_EQ(Saves(), 1);
}

TEST_F(SetupFields, SamplingsThatAreNoNumberFail) {
  EXPECT_EQ(FailureOfTyping(2, "4oo"), TypeMismatch);
  EXPECT_EQ(FailureOfTyping(2, "-5"), TypeMismatch);
  EXPECT_EQ(scene.Present.BaseSamples, 400);
}

TEST_F(SetupFields, SamplingsBeyondTheirTypeOverflow) {
  EXPECT_EQ(FailureOfTyping(2, "3000000000"), Overflow);
}

TEST_F(SetupFields, SamplingsBeyondTheMemoryFail) {
  EXPECT_EQ(FailureOfTyping(2, "800000"), 0);
  EXPECT_EQ(FailureOfTyping(2, "800001"), OutOfMemory);
  EXPECT_EQ(FailureOfTyping(2, "2147483647"), OutOfMemory);
}

TEST_F(SetupFields, TheStatusBarTellsTheSamplingsAfterEachSave) {
  EXPECT_EQ(scene.Main.StatusBar1.Panels[2].Text, "RMS base: 400 samples");

  Field(2) = "800";
  EXPECT_EQ(scene.Main.StatusBar1.Panels[2].Text, "RMS base: 800 samples");
  Field(2) = "";
  EXPECT_EQ(scene.Main.StatusBar1.Panels[2].Text, "RMS base: 800 samples");
  Field(0) = "and vlan 5";
  EXPECT_EQ(scene.Main.StatusBar1.Panels[2].Text, "RMS base: 0 samples");
}

TEST_F(SetupFields, TheStoragePathGoesToItsVariableAndToTheStore) {
  Field(3) = "d:\\records";

  EXPECT_EQ(scene.Settings.StoragePath, "d:\\records");
  EXPECT_EQ(Stored("Path of stored data"), "d:\\records");
}

TEST_F(SetupFields, EachNameGoesToItsChannelItsKeyAndItsCaption) {
  const std::string letters = "ABCDEFGH";
  for (std::size_t i = 0; i < 8; ++i) {
    const std::string name = "feeder " + std::to_string(i);

    Field(4 + i) = name;

    EXPECT_EQ(scene.Settings.ChannelName[i], name);
    EXPECT_EQ(Stored(std::string("DataName ") + letters[i]), name);
    EXPECT_EQ(scene.Main.Label6[i].Caption, name + (i < 4 ? " / [A]" : " / [kV]"));
  }
  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_EQ(scene.Settings.ChannelName[i], "feeder " + std::to_string(i));
  }
}

TEST_F(SetupFields, StopAUserAtTwentyOneCharactersOfAName) {
  for (std::size_t i = 4; i <= 11; ++i) EXPECT_EQ(scene.Main.Text1[i].MaxLength, 21) << i;
  for (const std::size_t i : {0U, 1U, 2U, 3U, 12U, 13U, 14U}) {
    EXPECT_EQ(scene.Main.Text1[i].MaxLength, 0) << i;
  }
}

TEST(SetupStart, ShowsALongerStoredNameWhole) {
  Scene scene;
  scene.Store.Texts["DataName A"] = "a name of more than twenty-one characters";

  scene.App.Load();

  EXPECT_EQ(scene.Main.Label6[0].Caption, "a name of more than twenty-one characters / [A]");
  EXPECT_EQ(scene.Settings.ChannelName[0], "a name of more than twenty-one characters");
}

TEST_F(SetupFields, TheIntervalIsTheNumberThatItsTextBeginsWith) {
  Field(13) = "250";
  EXPECT_EQ(scene.Settings.InternalDelay, 250);
  EXPECT_EQ(Stored("Internal Delay"), "250");
  Field(13) = "12ab";
  EXPECT_EQ(scene.Settings.InternalDelay, 12);
  Field(13) = "abc";
  EXPECT_EQ(scene.Settings.InternalDelay, 0);
  Field(13) = "";
  EXPECT_EQ(scene.Settings.InternalDelay, 0);
}

TEST_F(SetupFields, AnIntervalBeyondItsTypeFails) {
  EXPECT_EQ(FailureOfTyping(13, "40000"), Overflow);
  EXPECT_EQ(FailureOfTyping(13, "32768 ms"), Overflow);
  EXPECT_EQ(FailureOfTyping(13, "32767"), 0);
}

TEST_F(SetupFields, EveryKeystrokeIsSaved) {
  std::string typed;
  for (const char key : std::string("and vlan")) {
    typed += key;
    Field(0) = typed;
    EXPECT_EQ(Stored("Filterstring"), typed);
  }
  EXPECT_EQ(Saves(), 8);
}

class AnyField : public SetupFields, public testing::WithParamInterface<std::size_t> {};

TEST_P(AnyField, EmptiesTheBlockArraysAtAnEqualTextToo) {
  Mark();

  Field(GetParam()) = Field(GetParam()).Get();

  EXPECT_TRUE(NoneMarked());
  EXPECT_EQ(scene.Block.SignalValues.Rows(), 400);
}

TEST_P(AnyField, SavesBeforeItRebuildsTheArrays) {
  Mark();
  bool markedAtSave = false;
  platform::Property<std::string>& status = scene.Main.StatusBar1.Panels[2].Text;
  status.Observe([&] { markedAtSave = markedAtSave || AllMarked(); });

  Field(GetParam()) = Field(GetParam()).Get();

  EXPECT_TRUE(markedAtSave);
}

INSTANTIATE_TEST_SUITE_P(OfTheView, AnyField, testing::Range(std::size_t{0}, std::size_t{15}));

TEST_F(SetupFields, AChangeEmptiesTheBlockOfARunningCapture) {
  scene.RunValues();
  scene.Receive(10, [](int i) { return SineFrame(i, 1000, 10); });

  Field(3) = "d:\\records";

  EXPECT_TRUE(scene.Capture.Running);
  EXPECT_THAT(scene.Block.SignalValues.Cells(), Each(0.0));
  scene.Receive(390, [](int i) { return SineFrame(i + 10, 1000, 10); });
  EXPECT_EQ(scene.State.BlockCount, 1);
}

TEST_F(SetupFields, ABlockThatShrinksUnderARunningCaptureBringsNoMessage) {
  scene.RunValues();
  scene.Receive(10, [](int i) { return SineFrame(i, 1000, 10); });

  Field(2) = "5";
  scene.Receive(10, [](int i) { return SineFrame(i, 1000, 10); });

  EXPECT_THAT(scene.Dialogs.Shown, IsEmpty());
  EXPECT_TRUE(scene.Capture.Running);
  EXPECT_THAT(scene.Block.SignalValues.Cells(), Each(0.0));
}

TEST_F(SetupFields, TheAdapterIsTheListIndexPlusOne) {
  scene.Main.Combo1.AddItem("Second bus");

  scene.Main.Combo1.ListIndex = 1;

  EXPECT_EQ(scene.Settings.AdapterIndex, 2);
  EXPECT_EQ(Stored("Used Networkadapter"), "2");
}

TEST_F(SetupFields, ARunningCaptureKeepsItsAdapter) {
  scene.Capture.AddAdapter("Second bus");
  scene.Main.Combo1.AddItem("Second bus");
  scene.RunValues();
  scene.Journal.clear();

  scene.Main.Combo1.ListIndex = 1;

  EXPECT_THAT(scene.Journal, IsEmpty());
  EXPECT_TRUE(scene.Capture.Running);
}

TEST_F(SetupFields, TheNextRunTakesTheNewlyChosenAdapter) {
  scene.Capture.AddAdapter("Second bus");
  scene.Main.Combo1.AddItem("Second bus");
  scene.RunValues();
  scene.Receive(1, [](int i) { return SineFrame(i, 1000, 10); });
  scene.Main.Combo1.ListIndex = 1;
  ASSERT_EQ(scene.Capture.Chosen->Description(), "Bus");
  scene.Elapse(1s);
  scene.Main.CWButton4.Value = false;
  scene.Elapse(1s);

  scene.Main.CWButton4.Value = true;

  EXPECT_EQ(scene.Capture.Chosen->Description(), "Second bus");
  EXPECT_TRUE(scene.Capture.Running);
}

TEST(SetupStart, ShowsTheStoredSettingsInTheFields) {
  Scene scene;
  scene.Store.Texts = {{"Filterstring", "and vlan 5"},
                       {"Frequency", "16.7"},
                       {"Path of stored data", "d:\\data"},
                       {"FilterContentString", "MU01"},
                       {"Internal Delay", "250"},
                       {"FilterContentString2", "MU02"},
                       {"ACDC", "True"}};

  scene.App.Load();

  EXPECT_EQ(scene.Main.Text1[0].Text, "and vlan 5");
  EXPECT_EQ(scene.Main.Text1[1].Text, "16.7");
  EXPECT_EQ(scene.Main.Text1[2].Text, "400");
  EXPECT_EQ(scene.Main.Text1[3].Text, "d:\\data");
  EXPECT_EQ(scene.Main.Text1[4].Text, "Current Sensor A");
  EXPECT_EQ(scene.Main.Text1[11].Text, "Voltage Sensor N");
  EXPECT_EQ(scene.Main.Text1[12].Text, "MU01");
  EXPECT_EQ(scene.Main.Text1[13].Text, "250");
  EXPECT_EQ(scene.Main.Text1[14].Text, "MU02");
  EXPECT_EQ(scene.Main.Check4.Value, 1);
}

TEST(SetupStart, LeavesEverySettingWithItsDefaultInAnEmptyStore) {
  Scene scene;

  scene.App.Load();

  std::map<std::string, std::string> left = {{"Number of samples", "3"}};
  for (const support::StoredRow& row : support::StoredDefaults()) left[row.Key] = row.Default;
  // The only adapter is chosen, and the store keeps its name.
  left["Name of used Networkadapter"] = "Bus";
  // The choice that stands for the default stores what a click on it stores.
  left["SingleTrigger"] = "0";
  EXPECT_THAT(scene.Store.Texts, testing::ElementsAreArray(left));
}

}  // namespace
