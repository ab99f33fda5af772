#include "shell/tab_scene.h"

namespace {

using support::SineFrame;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using std::chrono_literals::operator""s;
namespace tab = forms::tab;

/// A user who drags files from elsewhere to the window.
class DroppedFiles : public shell_tests::TabScene {
 protected:
  void Drop(const std::vector<std::string>& paths) { scene.App.Dropped.Take(paths); }
  std::string Line(std::size_t page) const { return main.QuietLine[page].Caption; }
  /// The adapter that a run takes.
  std::string Heard() {
    scene.Select(tab::Values);
    // A button that is left while it runs is free again after a second.
    scene.Elapse(2s);
    scene.RunValues();
    return scene.Capture.Chosen == nullptr ? "" : scene.Capture.Chosen->Description();
  }
  void Run(platform::CWButton& button) {
    button.Value = true;
    scene.Receive(2, [](int i) { return SineFrame(i, 1, 1); });
  }
};

TEST_F(DroppedFiles, AreChosenOnSetupAndHeardByTheNextRun) {
  Drop({"/home/anna/bay.pcap"});
  EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Setup);
  EXPECT_THAT(main.Combo1.List.Get(), ElementsAre("Bus", "/home/anna/bay.pcap (for this run)"));
  EXPECT_EQ(main.Combo1.ListIndex, 1);
  EXPECT_EQ(main.StatusBar1.Panels[forms::status_panel::Adapter].Text.Get(),
            "/home/anna/bay.pcap (for this run)");
  EXPECT_EQ(Heard(), "/home/anna/bay.pcap (for this run)");
}

TEST_F(DroppedFiles, AreNeverStored) {
  scene.Store.Written.clear();
  Drop({"/bay.pcap"});
  // Any later change writes all settings.
  main.Text1[forms::setup_field::Interval].Text = "700";
  EXPECT_EQ(scene.Store.Texts["Internal Delay"], "700");
  EXPECT_EQ(scene.Store.Texts["Used Networkadapter"], "1");
  EXPECT_EQ(scene.Store.Texts["Name of used Networkadapter"], "Bus");
  EXPECT_EQ(Heard(), "/bay.pcap (for this run)");
}

TEST_F(DroppedFiles, GiveWayToTheNextChoiceAndAreChosenAgainFromTheList) {
  Drop({"/bay.pcap"});
  main.Combo1.ListIndex = 0;
  EXPECT_EQ(Heard(), "Bus");
  scene.Select(tab::Setup);
  main.Combo1.ListIndex = 1;
  EXPECT_EQ(scene.Store.Texts["Used Networkadapter"], "1");
  EXPECT_EQ(Heard(), "/bay.pcap (for this run)");
}

TEST_F(DroppedFiles, EndALiveRunAsAChangeOfTheTabDoes) {
  scene.Select(tab::Values);
  Run(main.CWButton4);
  Drop({"/bay.pcap"});
  EXPECT_FALSE(main.CWButton4.Value);
  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Setup);
}

TEST_F(DroppedFiles, AskBeforeTheyEndARecording) {
  scene.Select(tab::Recorder);
  Run(main.CWButton3);
  Drop({"/bay.pcap"});
  forms::EndQuestion& question = scene.App.Windows.EndQuestion;
  ASSERT_TRUE(question.Window.Visible);
  EXPECT_TRUE(scene.Capture.Running);
  EXPECT_EQ(main.Combo1.ListIndex, 0);
  question.End.Click();
  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Setup);
  EXPECT_EQ(main.Combo1.ListIndex, 1);
}

TEST_F(DroppedFiles, ThatCannotBePlayedDisturbNoRun) {
  scene.Select(tab::Values);
  Run(main.CWButton4);
  scene.Store.Written.clear();
  Drop({"/damaged.pcap"});
  EXPECT_EQ(Line(forms::quiet_line::Values), "/damaged.pcap cannot be played.");
  EXPECT_TRUE(scene.Capture.Running);
  EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Values);
  EXPECT_EQ(main.Combo1.ListCount(), 1);
  EXPECT_THAT(scene.Store.Written, IsEmpty());
  scene.Elapse(16s);
  EXPECT_NE(Line(forms::quiet_line::Values), "/damaged.pcap cannot be played.");
}

TEST_F(DroppedFiles, TakeOnlyOneAtATime) {
  scene.Select(tab::Recorder);
  Drop({"/a.pcap", "/b.pcap"});
  EXPECT_THAT(Line(forms::quiet_line::Recorder), HasSubstr("one capture file at a time"));
  EXPECT_EQ(main.Combo1.ListCount(), 1);
  // The next one that is right takes the word away.
  Drop({"/a.pcap"});
  EXPECT_EQ(Line(forms::quiet_line::Recorder), "");
  EXPECT_EQ(main.Combo1.ListIndex, 1);
}

TEST_F(DroppedFiles, AreToldOfOnSetupWhereThePageHasNoLine) {
  Drop({"/damaged.pcap"});
  EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Setup);
  EXPECT_EQ(Line(forms::quiet_line::Setup), "/damaged.pcap cannot be played.");
}

TEST_F(DroppedFiles, GiveALineBackToWhatItTold) {
  scene.Select(tab::Setup);
  main.QuietLine[forms::quiet_line::Setup].Say("Some senders were left out.");
  Drop({"/damaged.pcap"});
  scene.Elapse(16s);
  EXPECT_EQ(Line(forms::quiet_line::Setup), "Some senders were left out.");
}

}  // namespace
