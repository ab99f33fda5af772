#include "config/adapter_choice.h"

#include <gmock/gmock.h>

#include "support/scene.h"

namespace {

using support::Scene;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* Number = "Used Networkadapter";
constexpr const char* Name = "Name of used Networkadapter";

/// A start of the program of a user who chose "eth0" when that stood at the second place.
class ChosenAdapter : public ::testing::Test {
 protected:
  ChosenAdapter() {
    scene.Store.Texts[Number] = "2";
    scene.Store.Texts[Name] = "eth0";
    scene.Capture.AdviceText = "What the layer advises.";
  }
  std::string Advice() { return scene.Main.CaptureAdvice.Caption; }

  Scene scene;
};

TEST_F(ChosenAdapter, IsFoundByItsNameWhereTheListHasChanged) {
  scene.Capture.AddAdapter("rec.pcap");
  scene.Capture.AddAdapter("eth0");

  scene.App.Load();

  EXPECT_EQ(scene.Main.Combo1.Text(), "eth0");
  EXPECT_EQ(scene.Settings.AdapterIndex, 3);
  EXPECT_EQ(scene.Store.Texts[Number], "3");
  EXPECT_EQ(Advice(), "What the layer advises.");
}

TEST_F(ChosenAdapter, ThatIsMissingLeavesTheNumberAndIsTold) {
  scene.Capture.AddAdapter("rec.pcap");

  scene.App.Load();

  EXPECT_EQ(scene.Main.Combo1.Text(), "rec.pcap");
  EXPECT_EQ(Advice(),
            "The chosen network adapter is missing or cannot capture: eth0. Until it is back at a "
            "start of the program, or another one is chosen, the adapter in use is: rec.pcap.\n"
            "What the layer advises.");
}

TEST_F(ChosenAdapter, ThatCannotCaptureIsToldToo) {
  scene.Capture.AddAdapter("eth0", false);

  scene.App.Load();

  EXPECT_EQ(scene.Main.Combo1.Text(), "Bus");
  EXPECT_THAT(Advice(), HasSubstr("eth0"));
}

TEST_F(ChosenAdapter, KeepsItsNameThroughAStartWithoutIt) {
  scene.App.Load();
  EXPECT_EQ(scene.Store.Texts[Number], "1");
  scene.Main.Text1[13].Text = "250";

  EXPECT_EQ(scene.Store.Texts[Name], "eth0");
  Scene next;
  next.Store.Texts = scene.Store.Texts;
  next.Capture.AddAdapter("eth0");
  next.App.Load();
  EXPECT_EQ(next.Main.Combo1.Text(), "eth0");
  EXPECT_EQ(next.Settings.AdapterIndex, 2);
}

TEST_F(ChosenAdapter, ThatIsMissingGivesWayToAnotherChoice) {
  scene.Capture.AddAdapter("rec.pcap");
  scene.App.Load();

  scene.Main.Combo1.ListIndex = 0;

  EXPECT_EQ(scene.Store.Texts[Name], "Bus");
  EXPECT_EQ(Advice(), "What the layer advises.");
}

TEST_F(ChosenAdapter, ThatIsMissingGivesWayToTheOneInUseWhereThatIsChosen) {
  scene.App.Load();
  ASSERT_EQ(scene.Main.Combo1.ListIndex, 0);

  scene.Main.Combo1.ListIndex = 0;

  EXPECT_EQ(scene.Store.Texts[Name], "Bus");
  EXPECT_THAT(Advice(), Not(HasSubstr("eth0")));
}

TEST_F(ChosenAdapter, IsTheOneOfTheNumberWhereSeveralBearItsName) {
  scene.Store.Texts[Number] = "3";
  scene.Capture.AddAdapter("eth0");
  scene.Capture.AddAdapter("eth0");

  scene.App.Load();

  EXPECT_EQ(scene.Main.Combo1.ListIndex, 2);
}

TEST_F(ChosenAdapter, OfAStoreWithoutANameIsTheOneOfTheNumberAndGetsItsName) {
  scene.Store.Texts.erase(Name);
  scene.Capture.AddAdapter("rec.pcap");

  scene.App.Load();

  EXPECT_EQ(scene.Main.Combo1.Text(), "rec.pcap");
  EXPECT_EQ(scene.Store.Texts[Name], "rec.pcap");
  EXPECT_EQ(Advice(), "What the layer advises.");
}

}  // namespace
