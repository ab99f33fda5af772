#include <gmock/gmock.h>

#include "support/failures.h"
#include "support/scene.h"

namespace {

using support::FailureOf;
using support::Scene;
using ::testing::ElementsAre;

TEST(StartUp, SetsTheNamesOfTheProgram) {
  Scene scene;

  scene.App.Load();

  EXPECT_EQ(
      scene.Main.Window.Caption,
      "Vornik: for Real-Time Communication on IEC 61850 Process Bus Based Distributed Sampled "
      "Measured Values Transmission; Version: 2.3.5");
  EXPECT_EQ(scene.Main.Label13.Caption, "Vornik 2.3.5");
}

TEST(StartUp, RefusesAScreenThatIsTooNarrow) {
  Scene scene;
  scene.Screen = {15345, 11520};

  EXPECT_THROW(scene.App.Load(), support::SceneEnded);

  EXPECT_EQ(scene.LastBox(), (platform::Message{"Attention",
                                                "Please change the resolution of the screen \r\n"
                                                "to minimum of 1024x768 pixels!\r\n"
                                                "Program will now terminate!",
                                                platform::Icon::Critical}));
  EXPECT_TRUE(scene.Store.Written.empty());
}

TEST(StartUp, RefusesAScreenThatIsTooLow) {
  Scene scene;
  scene.Screen = {15360, 11505};

  EXPECT_THROW(scene.App.Load(), support::SceneEnded);
}

TEST(StartUp, TakesAScreenOfExactly1024By768) {
  Scene scene;
  scene.Screen = {15360, 11520};

  scene.App.Load();

  EXPECT_TRUE(scene.Main.Window.Visible);
}

TEST(StartUp, OpensOnTheFirstTabOnAFirstStart) {
  Scene scene;

  scene.App.Load();

  EXPECT_EQ(scene.Main.TabStrip1.SelectedTab, forms::tab::Info);
  EXPECT_TRUE(scene.Main.Picture4.Visible);
}

TEST(StartUp, BringsTheLastTabBack) {
  Scene scene;
  scene.Store.Texts["MainActiveTab"] = "6";

  scene.App.Load();

  EXPECT_EQ(scene.Main.TabStrip1.SelectedTab, forms::tab::Report);
  EXPECT_EQ(scene.Settings.MainActiveTab, forms::tab::Report);
  EXPECT_EQ(scene.Store.Texts["MainActiveTab"], "6");
}

TEST(StartUp, AfterAnExitOpensOnTheFirstTab) {
  Scene scene;
  scene.Store.Texts["MainActiveTab"] = "8";

  scene.App.Load();

  EXPECT_EQ(scene.Main.TabStrip1.SelectedTab, forms::tab::Info);
  EXPECT_TRUE(scene.Main.Window.Loaded);
}

TEST(StartUp, WithATabThatDoesNotExistOpensOnTheFirst) {
  for (const char* tab : {"0", "-3", "9", "99"}) {
    Scene scene;
    scene.Store.Texts["MainActiveTab"] = tab;

    scene.App.Load();

    EXPECT_EQ(scene.Main.TabStrip1.SelectedTab, forms::tab::Info) << tab;
  }
}

TEST(StartUp, AlwaysBeginsWithBlocksOf400Frames) {
  Scene scene;
  scene.Store.Texts["Number of samples"] = "1000";

  scene.App.Load();

  EXPECT_EQ(scene.Present.BaseSamples, 400);
  EXPECT_EQ(scene.Main.Text1[2].Text, "400");
  EXPECT_EQ(scene.Block.SignalValues.Rows(), 400);
  EXPECT_EQ(scene.Store.Texts["Number of samples"], "3");
}

TEST(StartUp, StartsNoAcquisition) {
  Scene scene;
  scene.Store.Texts["MainActiveTab"] = "2";
  scene.Main.Timer3.Enabled = true;
  scene.Main.Timer3.Interval = 5;
  for (auto& indicator : scene.Main.Shape12) indicator.Visible = true;

  scene.App.Load();

  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_FALSE(scene.Main.Timer1.Enabled);
  EXPECT_FALSE(scene.Main.Timer3.Enabled);
  EXPECT_EQ(scene.Main.Timer3.Interval, 1000);
  for (const auto& indicator : scene.Main.Shape12) EXPECT_FALSE(indicator.Visible);
}

TEST(StartUp, HidesWhatNoViewShows) {
  Scene scene;
  scene.Main.Command4.Enabled = true;

  scene.App.Load();

  EXPECT_FALSE(scene.Main.Command8.Visible);
  EXPECT_FALSE(scene.Main.Command9.Visible);
  EXPECT_FALSE(scene.Main.Frame4.Visible);
  EXPECT_FALSE(scene.Main.Picture3.Visible);
  EXPECT_FALSE(scene.Main.Picture5.Visible);
  EXPECT_FALSE(scene.Main.Picture6.Visible);
  EXPECT_FALSE(scene.Main.Command4.Enabled);
}

TEST(StartUp, EmptiesTheReport) {
  Scene scene;
  for (auto& title : scene.Main.Label7) title.Caption = "old";
  for (auto& value : scene.Main.Label8) value.Caption = "old";

  scene.App.Load();

  for (const auto& title : scene.Main.Label7) EXPECT_EQ(title.Caption, "");
  EXPECT_EQ(scene.Main.Label8[0].Caption, "- - - -");
  for (std::size_t i = 1; i < scene.Main.Label8.size(); ++i) {
    EXPECT_EQ(scene.Main.Label8[i].Caption, "") << i;
  }
}

TEST(StartUp, FillsTheScaleListsAndLocksThem) {
  Scene scene;

  scene.App.Load();

  EXPECT_THAT(scene.Main.Combo5[0].List.Get(),
              ElementsAre("100", "200", "500", "1000", "2000", "5000", "10000"));
  EXPECT_EQ(scene.Main.Combo5[0].Text(), "1000");
  EXPECT_THAT(scene.Main.Combo5[1].List.Get(), ElementsAre("150", "200", "400", "500", "1000"));
  EXPECT_EQ(scene.Main.Combo5[1].Text(), "400");
  for (const auto& scale : scene.Main.Combo5) EXPECT_FALSE(scale.Enabled);
}

TEST(StartUp, SetsUpTheTableOfThePhasorView) {
  Scene scene;

  scene.App.Load();

  EXPECT_EQ(scene.Main.Grid1.Cell[0][1], "absolute");
  EXPECT_EQ(scene.Main.Grid1.Cell[0][2], "phase");
  EXPECT_EQ(scene.Main.Grid1.Cell[1][0], "Current Sensor A");
  EXPECT_EQ(scene.Main.Grid1.Cell[8][0], "Voltage Sensor N");
  EXPECT_EQ(scene.Main.Grid1.ColumnWidth[0], 2950);
  EXPECT_EQ(scene.Main.Grid1.ColumnWidth[1], 1300);
  EXPECT_EQ(scene.Main.Grid1.ColumnWidth[2], 1300);
}

TEST(StartUp, ReservesTheRingsAndTheLongerOnesOfTheTriggerTimes) {
  Scene scene;

  scene.App.Load();

  auto& rings = scene.App.Acquisition.Rings;
  EXPECT_EQ(rings.RecordCount.Count(), 4000);
  EXPECT_EQ(rings.RecordCount2.Count(), 4000);
  for (const std::size_t k : {0U, 1U, 2U, 4U, 5U, 6U}) {
    EXPECT_EQ(rings.RecordChannel[k].Count(), 28000) << k;
  }
  EXPECT_EQ(rings.RecordChannel[3].Count(), 4000);
  EXPECT_EQ(rings.RecordChannel[7].Count(), 4000);
  for (const auto& channel : rings.RecordChannel2) EXPECT_EQ(channel.Count(), 4000);
}

TEST(StartUp, ReservesASecondOfRingsForShorterTriggerTimes) {
  Scene scene;
  scene.Store.Texts["BeforeTriggerWaveTime"] = "0.1";
  scene.Store.Texts["AfterTriggerWaveTime"] = "0.2";

  scene.App.Load();

  for (const auto& channel : scene.App.Acquisition.Rings.RecordChannel)
    EXPECT_EQ(channel.Count(), 4000);
}

TEST(StartUp, WithTriggerTimesBeyondTheMemoryFails) {
  Scene scene;
  scene.Store.Texts["BeforeTriggerWaveTime"] = "2496";

  EXPECT_EQ(FailureOf([&] { scene.App.Load(); }), platform::failure::OutOfMemory);
}

TEST(StartUp, SetsTheColours) {
  using platform::Rgb;
  Scene scene;

  scene.App.Load();

  EXPECT_EQ(scene.Main.TabStrip1.ColorFrom, (Rgb{255, 255, 255}));
  EXPECT_EQ(scene.Main.TabStrip1.ColorTo, (Rgb{52, 153, 254}));
  EXPECT_EQ(scene.Main.Frame2.BackColor, (Rgb{248, 251, 254}));
  EXPECT_EQ(scene.Main.CWButton2.BackColor, (Rgb{248, 251, 254}));
  EXPECT_EQ(scene.Main.CWButton1.BackColor, scene.Main.Frame1.BackColor.Get());
  EXPECT_EQ(scene.Main.CWButton3.BackColor, (Rgb{237, 246, 240}));
  EXPECT_EQ(scene.Main.CWButton4.BackColor, (Rgb{204, 229, 254}));
  EXPECT_EQ(scene.Main.Command2.BackColor, (Rgb{237, 246, 254}));
}

TEST(StartUp, GivesThePlotsTheirColoursAndTheBoxesTheirs) {
  using platform::Rgb;
  Scene scene;
  scene.Store.Texts["Sensor C enabled"] = "0";

  scene.App.Load();

  const Rgb lines[] = {{0, 0, 0},   {255, 0, 0},   {0, 0, 255},   {96, 96, 96},
                       {0, 255, 0}, {255, 0, 255}, {0, 255, 255}, {128, 128, 128}};
  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_EQ(scene.Main.CWGraph1.Plots[i].LineColor, lines[i]) << i;
    EXPECT_EQ(scene.Main.Check2[i].ForeColor, lines[i]) << i;
    EXPECT_FALSE(scene.Main.CWGraph1.Plots[i].Visible) << i;
    EXPECT_EQ(scene.Main.Check2[i].Value, i == 2 ? 0 : 1) << i;
  }
  EXPECT_EQ(scene.Main.CWGraph1.Plots[3].PointColor, (Rgb{192, 192, 192}));
  EXPECT_EQ(scene.Main.CWGraph1.Plots[7].PointColor, (Rgb{128, 128, 128}));
  EXPECT_EQ(scene.Settings.SensorEnabled[2], 0);
}

TEST(StartUp, SelectsTheStoredTrigger) {
  const auto selected = [](const char* stored) {
    Scene scene;
    scene.Store.Texts["SingleTrigger"] = stored;
    scene.App.Load();
    for (int k = 0; k < 3; ++k) {
      if (scene.Main.Option1[static_cast<std::size_t>(k)].Value) return k;
    }
    return -1;
  };

  EXPECT_EQ(selected("1"), 1);
  EXPECT_EQ(selected("0"), 0);
  EXPECT_EQ(selected("-1"), 2);
  EXPECT_EQ(selected("5"), 2);
}

TEST(StartUp, ShowsTheStoredTriggerSettings) {
  Scene scene;
  scene.Store.Texts["BeforeTriggerWaveTime"] = "0.1";

  scene.App.Load();

  EXPECT_EQ(scene.Main.Text3[2].Text, "20");
  EXPECT_EQ(scene.Main.Text3[3].Text, "15");
  EXPECT_EQ(scene.Main.Text3[4].Text, "0.1");
  EXPECT_EQ(scene.Main.Text3[5].Text, "5");
  EXPECT_EQ(scene.Main.Text3[8].Text, "10");
}

TEST(StartUp, MarksTheSystemsPrinterAndSelectsIt) {
  Scene scene;
  scene.Printers.Chosen = 1;

  scene.App.Load();

  EXPECT_THAT(scene.Main.Combo2.List.Get(), ElementsAre("Office", "Control room*"));
  EXPECT_EQ(scene.Main.Combo2.ListIndex, 1);
  EXPECT_EQ(scene.Settings.PrinterChoice, 0);
}

TEST(StartUp, SelectsTheStoredPrinter) {
  Scene scene;
  scene.Store.Texts["Printerchoice"] = "1";

  scene.App.Load();

  EXPECT_EQ(scene.Main.Combo2.ListIndex, 1);
  EXPECT_EQ(scene.Printers.Chosen, 1U);
}

TEST(StartUp, LeavesTheSystemsPrinterWhereTheStoredOneIsOutsideTheList) {
  for (const char* stored : {"2", "7", "-1"}) {
    Scene scene;
    scene.Store.Texts["Printerchoice"] = stored;
    scene.Printers.Chosen = 1;

    scene.App.Load();

    EXPECT_EQ(scene.Main.Combo2.ListIndex, 1) << stored;
    EXPECT_EQ(scene.Printers.Chosen, 1U) << stored;
    EXPECT_EQ(scene.Store.Texts["Printerchoice"], stored);
    EXPECT_TRUE(scene.Dialogs.Shown.empty()) << stored;
  }
}

TEST(StartUp, WithoutAPrinterSaysSoAndDisablesPrinting) {
  Scene scene;
  scene.Printers.List.clear();

  scene.App.Load();

  EXPECT_EQ(scene.LastBox().Title, "Attention");
  EXPECT_EQ(scene.LastBox().Text,
            "There is no printer available\r\nTherefore printing is disabled.");
  EXPECT_FALSE(scene.Main.Command1.Enabled);
}

TEST(StartUp, BuildsMinimisedBehindAHiddenStripAndEndsMaximised) {
  Scene scene;
  std::vector<std::string> steps;
  auto& window = scene.Main.Window;
  window.Loaded.Observe([&] { steps.push_back("loaded"); });
  window.State.Observe([&] {
    steps.push_back(window.State.Get() == platform::WindowState::Minimized ? "minimised"
                                                                           : "maximised");
  });
  window.Visible.Observe([&] { steps.push_back("shown"); });
  scene.Main.Combo1.List.Observe([&] { steps.push_back("adapters"); });
  auto& strip = scene.Main.TabStrip1;
  strip.Visible.Observe([&] { steps.push_back(strip.Visible ? "strip shown" : "strip hidden"); });

  scene.App.Load();

  // The layout of the maximised window hides the strip once more.
  EXPECT_THAT(steps, ElementsAre("loaded", "minimised", "strip hidden", "shown", "adapters",
                                 "strip shown", "maximised", "strip hidden", "strip shown"));
}

TEST(StartUp, SelectsTheFirstTabBeforeTheStoredOne) {
  Scene scene;
  scene.Store.Texts["MainActiveTab"] = "4";
  auto& strip = scene.Main.TabStrip1;
  strip.SelectedTab.Store(6);
  std::vector<int> tabs;
  strip.SelectedTab.Observe([&] { tabs.push_back(strip.SelectedTab); });
  std::vector<int> tabsAtShow;
  scene.Main.Window.Visible.Observe([&] { tabsAtShow = tabs; });

  scene.App.Load();

  // Once with the form's set-up and once with the information page.
  EXPECT_THAT(tabsAtShow, ElementsAre(1, 1));
  EXPECT_THAT(tabs, ElementsAre(1, 1, 4, 1, 4)) << "the last two are those of the layout";
}

TEST(StartUp, WithASettingThatDoesNotConvertFails) {
  Scene scene;
  scene.Store.Texts["Internal Delay"] = "soon";
  EXPECT_EQ(FailureOf([&] { scene.App.Load(); }), platform::failure::TypeMismatch);

  scene.Store.Texts["Internal Delay"] = "40000";
  EXPECT_EQ(FailureOf([&] { scene.App.Load(); }), platform::failure::Overflow);
}

}  // namespace
