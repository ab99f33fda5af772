#include <gmock/gmock.h>

#include <iterator>

#include "support/scene.h"

namespace {

using support::Scene;

/// The forms as they are made, before a program fills them.
class NewForms : public testing::Test {
 protected:
  support::ManualClock clock;
  platform::TimerQueue timers{clock};
  forms::Main main{timers};
  forms::EndQuestion question{timers};
};

TEST(StaticTexts, OfTheTabsAreTheirCaptionsAndTips) {
  const platform::Tab tabs[] = {
      {"&Info", "please read carefully these informations", "Information"},
      {"&Values", "measured values", "Gives after each aqusition the measured values"},
      {"&Phasor", "Phasor diagram", "Shows all values in a circle diagram"},
      {"&Waveforms", "Scope", "You get the waveform like a scope"},
      {"&Recorder", "Long time recording", "This card starts a long time recording session"},
      {"R&eport", "Report", "Gives information about the packet queue"},
      {"&Setup", "Configuration", "This gives the setting of the program"},
      {"E&xit", "Quit", "Immeadiately stopping the program"}};
  Scene scene;

  scene.Start();

  ASSERT_EQ(scene.Main.TabStrip1.Tabs.size(), std::size(tabs));
  for (std::size_t i = 0; i < std::size(tabs); ++i) {
    const platform::Tab& shown = scene.Main.TabStrip1.Tabs[i];
    EXPECT_EQ(shown.Caption, tabs[i].Caption);
    EXPECT_EQ(shown.TipHeading, tabs[i].TipHeading);
    EXPECT_EQ(shown.TipText, tabs[i].TipText);
  }
}

TEST_F(NewForms, HaveTheTextsOfTheRecorder) {
  EXPECT_EQ(main.Option2[0].Caption, "CSV - text format (&max. 4GBbyte)");
  EXPECT_EQ(main.Option2[1].Caption,
            "file format Microsoft E&xcel™ compatible (limitation to 32767 lines)");
  EXPECT_EQ(main.Option2[2].Caption, "COMTRA&DE format (max. 4GByte)");
  EXPECT_EQ(main.Option1[0].Caption, "single trig&ger");
  EXPECT_EQ(main.Option1[1].Caption, "co&nt trigger");
  EXPECT_EQ(main.Option1[2].Caption, "immedi&ate");
  EXPECT_EQ(main.Label10[0].Caption, "Real-time recording to hard disk");
  EXPECT_EQ(main.Label10[2].Caption, "Duration of recording / sample counter:");
  EXPECT_EQ(main.Label10[3].Caption, "0 s / 0 samples");
  EXPECT_EQ(main.Command9.Caption, "Open &log file");
  EXPECT_EQ(main.Command9.ToolTipText, "opens the log 'txt' file in your standard text editor");
  EXPECT_EQ(main.CWButton3.OffText, "RUN");
  EXPECT_EQ(main.CWButton3.OnText, "STOP");
  EXPECT_EQ(main.CWButton3.ToolTipText,
            "'RUN' starts recording samples acc. to time base; 'STOP' stops it");
  EXPECT_EQ(main.Label3[5].Caption, "voltage:");
  EXPECT_EQ(main.Label3[6].Caption, "current:");
  EXPECT_EQ(main.Label3[9].Caption, "sample diff for channel A/B/C");
  EXPECT_EQ(main.Label3[22].Caption, "overflo&w value:");
  EXPECT_EQ(main.Label3[23].Caption, "seconds");
  EXPECT_EQ(main.Label3[24].Caption, "ti&me before/after");
  EXPECT_EQ(main.Label3[28].Caption, "seconds pause after trigger event");
}

TEST_F(NewForms, HaveTheTextsOfTheRecordersFolder) {
  EXPECT_EQ(main.OpenFolder.Caption, "Open &folder");
  EXPECT_EQ(main.OpenFolder.ToolTipText, "opens the folder of the recordings in your file manager");
}

TEST_F(NewForms, HaveTheTextsOfTheReport) {
  EXPECT_EQ(main.Command2.OnText, "WAIT");
  EXPECT_EQ(main.Command4.Caption, "&Print report!");
  EXPECT_EQ(main.Structure.ToolTipText,
            "what the frame holds by its structure; Ctrl+C copies what is selected");
  EXPECT_EQ(main.StructureDump.ToolTipText,
            "all bytes of the frame; Ctrl+C copies what is selected");
  EXPECT_EQ(main.Command8.Caption, "&End");
}

TEST_F(NewForms, HaveTheTextsOfTheQuestionBeforeARecordingEnds) {
  EXPECT_EQ(question.Window.Caption, "Recording");
  EXPECT_EQ(question.Keep.Caption, "&Keep recording");
  EXPECT_EQ(question.Keep.ToolTipText, "The recording goes on, and this page stays");
  EXPECT_EQ(question.End.Caption, "&End recording");
  EXPECT_EQ(question.End.ToolTipText, "Ends the recording without a log, and does what was chosen");
}

TEST(StaticTexts, OfTheTriggerFieldsAreTheStoredNumbers) {
  Scene scene;
  scene.Store.Texts["CurrentTriggerWave"] = "21";
  scene.Store.Texts["VoltageTriggerWave"] = "16";
  scene.Store.Texts["BeforeTriggerWaveTime"] = "3";
  scene.Store.Texts["AfterTriggerWaveTime"] = "6";
  scene.Store.Texts["TriggerPause"] = "11";

  scene.Start();

  EXPECT_EQ(scene.Main.Text3[2].Text, "21");
  EXPECT_EQ(scene.Main.Text3[3].Text, "16");
  EXPECT_EQ(scene.Main.Text3[4].Text, "3");
  EXPECT_EQ(scene.Main.Text3[5].Text, "6");
  EXPECT_EQ(scene.Main.Text3[8].Text, "11");
  for (const std::size_t field : {2U, 3U, 4U, 5U, 8U}) scene.Main.Text3[field].Text = "99";
  EXPECT_EQ(scene.Settings.CurrentTriggerWave, 21);
  EXPECT_EQ(scene.Settings.VoltageTriggerWave, 16);
  EXPECT_EQ(scene.Settings.BeforeTriggerWaveTime, 3);
  EXPECT_EQ(scene.Settings.AfterTriggerWaveTime, 6);
  EXPECT_EQ(scene.Settings.TriggerPause, 11);
}

TEST(StaticTexts, OfTheStatusBarAreItsKeysAndTips) {
  struct Panel {
    const char* Key;
    const char* Tip;
  };
  const Panel panels[] = {{"network adapter", "shows actual choosen network adapter"},
                          {"standard printer", "shows actual choosen standard printer"},
                          {"Samples for RMS", "shows actual state of sampling"},
                          {"Error count", "shows errors of ramp count"}};
  Scene scene;

  scene.Start();

  for (std::size_t i = 0; i < std::size(panels); ++i) {
    EXPECT_EQ(scene.Main.StatusBar1.Panels[i].Key, panels[i].Key);
    EXPECT_EQ(scene.Main.StatusBar1.Panels[i].ToolTipText, panels[i].Tip);
  }
}

}  // namespace
