#include "shell/tab_scene.h"

namespace {

using ::testing::Each;
using ::testing::IsTrue;
using ::testing::UnorderedElementsAre;

/// The controls that a change of the tab shows and hides by itself.
class TabViews : public shell_tests::TabScene {
 protected:
  TabViews() {
    Add("Check5", main.Check5);
    Add("CWButton3", main.CWButton3);
    Add("CWButton4", main.CWButton4);
    Add("Command2", main.Command2);
    Add("Command4", main.Command4);
    Add("Command9", main.Command9);
    Add("Picture4", main.Picture4);
    Add("CWGraph1", main.CWGraph1);
    Add("CWGraph2", main.CWGraph2);
    Add("Frame1", main.Frame1);
    Add("Frame2", main.Frame2);
    Add("Label16", main.Label16);
    Add("Label17", main.Label17);
    AddArray("Option3", main.Option3);
    AddArray("Label5", main.Label5);
    AddArray("Picture1", main.Picture1);
  }

  /// What of them stands on the screen after the tab was selected, all of them having stood there
  /// before.
  std::vector<std::string> ShownOn(std::int16_t tab) {
    for (const Switched& each : switched_) each.Control->Visible = true;
    scene.Select(tab);
    std::vector<std::string> shown;
    for (const Switched& each : switched_) {
      if (each.Control->Visible) shown.push_back(each.Name);
    }
    return shown;
  }
  /// Writes down whether the recorder was busy, at every assignment of the property.
  template <typename T>
  void NoteBusy(platform::Property<T>& property) {
    property.Observe([this] { busy.push_back(scene.State.RecorderBusy); });
  }

  std::vector<bool> busy;

 private:
  struct Switched {
    std::string Name;
    platform::Control* Control;
  };

  void Add(const std::string& name, platform::Control& control) {
    switched_.push_back({name, &control});
  }
  template <typename Array>
  void AddArray(const std::string& name, Array& controls) {
    for (std::size_t i = 0; i < controls.size(); ++i) {
      Add(name + "(" + std::to_string(i) + ")", controls[i]);
    }
  }

  std::vector<Switched> switched_;
};

TEST_F(TabViews, OfTheInformationPage) {
  EXPECT_THAT(ShownOn(1), UnorderedElementsAre("Picture4"));
}

TEST_F(TabViews, OfTheValues) {
  EXPECT_THAT(ShownOn(2),
              UnorderedElementsAre("Label5(0)", "Label5(1)", "Label5(2)", "Label5(3)", "Label5(4)",
                                   "Label5(5)", "Label5(6)", "Label5(7)", "Picture1(4)", "Check5",
                                   "CWButton4", "Label16", "Option3(0)"));
}

TEST_F(TabViews, OfThePhasors) {
  EXPECT_THAT(ShownOn(3), UnorderedElementsAre("Frame2", "Picture1(5)", "Label17", "Option3(4)"));
}

TEST_F(TabViews, OfTheWaveforms) {
  EXPECT_THAT(ShownOn(4), UnorderedElementsAre("CWGraph1", "Frame1", "Picture1(0)", "Option3(2)"));
}

TEST_F(TabViews, OfTheRecorder) {
  EXPECT_THAT(ShownOn(5), UnorderedElementsAre("Picture1(1)", "CWButton3"));
}

TEST_F(TabViews, OfTheReport) {
  EXPECT_THAT(ShownOn(6),
              UnorderedElementsAre("Command2", "Command4", "Option3(6)", "Picture1(2)"));
}

TEST_F(TabViews, OfTheSetup) {
  EXPECT_THAT(ShownOn(7), UnorderedElementsAre("Picture1(3)"));
}

TEST_F(TabViews, BeginTheRecorderAnew) {
  main.CWButton3.Value = true;
  main.Label10[3].FontBold = true;
  main.Label10[3].ForeColor = platform::Rgb{255, 0, 0};
  main.Label10[4].Visible = true;
  for (auto& format : main.Option2) format.Enabled = false;

  scene.Select(forms::tab::Recorder);

  EXPECT_FALSE(main.CWButton3.Value);
  for (const auto& format : main.Option2) EXPECT_TRUE(format.Enabled);
  EXPECT_EQ(main.Label10[3].Caption, "0s / 0 samples");
  EXPECT_FALSE(main.Label10[3].FontBold);
  EXPECT_EQ(main.Label10[3].ForeColor, (platform::Rgb{0, 0, 0}));
  EXPECT_EQ(main.Label10[1].Caption,
            "c:\\StoredData\\SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')");
  EXPECT_EQ(main.Label10[4].Caption,
            "c:\\StoredData\\2_SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')");
  EXPECT_FALSE(main.Label10[4].Visible);
  EXPECT_EQ(scene.State.RecordFileName, "SV record 09.03.2024 14-05-07.txt");
}

TEST_F(TabViews, KeepTheNameOfARecordingButShowTheFixedText) {
  scene.State.RecordFileName = "SV record 21.11.2026 10-00-00.txt";

  scene.Select(forms::tab::Recorder);

  EXPECT_EQ(scene.State.RecordFileName, "SV record 21.11.2026 10-00-00.txt");
  EXPECT_EQ(main.Label10[1].Caption,
            "c:\\StoredData\\SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')");
}

TEST_F(TabViews, KeepTheRecorderBusyWhileItsControlsChange) {
  main.CWButton3.Value = true;
  NoteBusy(main.CWButton3.Value);
  for (auto& format : main.Option2) NoteBusy(format.Enabled);

  scene.Select(forms::tab::Recorder);

  EXPECT_EQ(busy.size(), 4U);
  EXPECT_THAT(busy, Each(IsTrue()));
  EXPECT_FALSE(scene.State.RecorderBusy);
}

TEST_F(TabViews, KeepTheRecorderBusyWhileThePhasorsComeUp) {
  main.CWButton2.Value = true;
  NoteBusy(main.CWButton2.Value);
  main.Frame2.Visible.Observe([this] {
    if (main.Frame2.Visible) busy.push_back(scene.State.RecorderBusy);
  });

  scene.Select(forms::tab::Phasor);

  EXPECT_EQ(busy.size(), 2U);
  EXPECT_THAT(busy, Each(IsTrue()));
  EXPECT_FALSE(scene.State.RecorderBusy);
}

TEST_F(TabViews, ShowTheSecondStationWhereItHasAContent) {
  main.Text1[14].Text = "MU02";

  scene.Select(forms::tab::Values);
  EXPECT_TRUE(main.Option3[1].Visible);
  scene.Select(forms::tab::Phasor);
  EXPECT_TRUE(main.Option3[5].Visible);
  EXPECT_FALSE(main.Option3[1].Visible);
  scene.Select(forms::tab::Waveforms);
  EXPECT_TRUE(main.Option3[3].Visible);
  scene.Select(forms::tab::Recorder);
  EXPECT_TRUE(main.Label10[4].Visible);
  scene.Select(forms::tab::Report);
  EXPECT_TRUE(main.Option3[7].Visible);
}

TEST_F(TabViews, CarryTheChosenStationFromViewToView) {
  main.Text1[14].Text = "MU02";
  scene.Select(forms::tab::Values);
  main.Option3[1].Value = true;

  scene.Select(forms::tab::Phasor);
  EXPECT_TRUE(main.Option3[5].Value);
  scene.Select(forms::tab::Waveforms);
  EXPECT_TRUE(main.Option3[3].Value);
  scene.Select(forms::tab::Report);
  EXPECT_TRUE(main.Option3[7].Value);
  EXPECT_EQ(scene.Settings.FilterContent[0], "MU02");

  scene.Select(forms::tab::Phasor);
  main.Option3[4].Value = true;

  scene.Select(forms::tab::Values);
  EXPECT_TRUE(main.Option3[0].Value);
  scene.Select(forms::tab::Waveforms);
  EXPECT_TRUE(main.Option3[2].Value);
  scene.Select(forms::tab::Report);
  EXPECT_TRUE(main.Option3[6].Value);
  EXPECT_EQ(scene.Settings.FilterContent[0], "MU01");
}

TEST_F(TabViews, SetTheRecordersGraphToPan) {
  main.CWGraph2.TrackMode = platform::CWGraph::ZoomMode;

  scene.Select(forms::tab::Waveforms);

  EXPECT_EQ(main.CWGraph2.TrackMode, platform::CWGraph::PanMode);
}

TEST_F(TabViews, KeepTheirNumbersWhenTheyAreLeft) {
  scene.Select(forms::tab::Values);
  scene.RunValues();
  scene.ReceiveBlock([](int i) { return support::SineFrame(i, 100, 10); });
  const std::string shown = main.Label5[0].Caption;

  scene.Select(forms::tab::Setup);
  scene.Select(forms::tab::Values);

  EXPECT_EQ(main.Label5[0].Caption, shown);
  EXPECT_EQ(shown, "100.0000");
}

TEST_F(TabViews, SelectTheFormatWhileTheRecorderIsBusyAndItsFormatsAreFree) {
  std::vector<bool> states;
  scene.Settings.FileFormat = "EXCEL";
  main.Option2[2].Enabled = false;
  main.Option2[1].Value.Observe([&] {
    states = {scene.State.RecorderBusy, main.Option2[2].Enabled, main.CWButton3.Visible};
  });

  scene.Select(forms::tab::Recorder);

  EXPECT_THAT(states, ::testing::ElementsAre(true, true, true));
  EXPECT_FALSE(scene.State.RecorderBusy);
}

TEST_F(TabViews, LayTheReportBehindItsButtonsAndBeforeItsLogo) {
  std::vector<bool> states;
  main.QuietLine[forms::quiet_line::Report].Caption.Observe([&] {
    states = {main.Command2.Visible, main.Option3[6].Visible, main.Picture1[2].Visible};
  });

  scene.Select(forms::tab::Report);

  EXPECT_THAT(states, ::testing::ElementsAre(true, true, false));
  EXPECT_TRUE(main.Picture1[2].Visible);
}

TEST_F(TabViews, ShowTheTabOnceThatIsChosenWhileAnotherViewComesUp) {
  scene.Main.Text1[forms::setup_field::Content1].Text = "MU01";
  scene.Select(forms::tab::Phasor);
  main.CWButton2.Value = true;
  for (int i = 0; i < 2; ++i) scene.Receive(support::SvFrame().Bytes());
  scene.Elapse(std::chrono::seconds(1));
  scene.Select(forms::tab::Values);
  ASSERT_TRUE(main.CWButton2.Value);
  int shown = 0;
  main.Picture1[forms::logo::Report].Visible.Observe([&] {
    if (main.Picture1[forms::logo::Report].Visible) ++shown;
  });
  main.CWButton2.Value.Observe([&] {
    scene.Events.AtPump(1, [&] {
      scene.Select(forms::tab::Report);
      main.Command2.Value = true;
    });
  });

  scene.Select(forms::tab::Phasor);

  EXPECT_EQ(shown, 1);
  EXPECT_TRUE(main.Command2.Value) << "the press of RUN was taken back";
  EXPECT_FALSE(main.Command2.Visible);
}

}  // namespace
