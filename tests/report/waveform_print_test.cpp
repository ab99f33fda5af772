#include "report/waveform_print.h"

#include "report/print_scene.h"

namespace {

using support::PrintedText;

class WaveformPage : public report_tests::PrintScene {
 protected:
  WaveformPage() {
    scene.Select(forms::tab::Waveforms);
    main.CWGraph1.Width = 9000;
    main.CWGraph1.Height = 6000;
    main.CWGraph1.XAxis.Minimum = 10.4;
    main.CWGraph1.XAxis.Maximum = 409.6;
    main.CWGraph1.Draw = [this] {
      return platform::Picture{1, 1, {main.CWGraph1.ScreenLook ? 0xFFC8B08AU : 0xFFFFFFFFU}};
    };
    main.Picture3.Image = platform::Picture{1, 1, {7}};
    Check({1, 1, 1, 1, 1, 1, 1, 1});
  }
  void Check(std::initializer_list<int> values) {
    std::size_t i = 0;
    for (const int value : values) main.Check2[i++].Value = static_cast<std::int16_t>(value);
  }
  void Print() { main.Command1.Click(); }
  /// The dashes of the legend, from above.
  std::vector<PrintedText> Dashes() const {
    std::vector<PrintedText> dashes;
    for (const PrintedText& text : scene.Surface.Texts) {
      if (text.Text == "------------") dashes.push_back(text);
    }
    return dashes;
  }
};

TEST_F(WaveformPage, IsALandscapePageInColourThatIsEnded) {
  Print();
  EXPECT_EQ(scene.Surface.PageOrientation, platform::PageOrientation::Landscape);
  EXPECT_EQ(scene.Surface.ModeAtEnd, platform::ColourMode::Colour);
  EXPECT_TRUE(scene.Surface.Ended);
  EXPECT_EQ(scene.Surface.Mode, platform::ColourMode::Monochrome);
  EXPECT_EQ(scene.Surface.Name, "SV waveforms");
}

TEST_F(WaveformPage, BeginsWithTheFilterAndTheDay) {
  scene.Settings.FilterString = "and vlan 7";
  scene.Settings.FilterContent = {"MU01", "MU02"};
  Print();
  EXPECT_EQ(Text(0).Text, "Print-out of sampled values");
  EXPECT_EQ(Text(0).X, 15);
  EXPECT_EQ(Text(0).Y, 10);
  EXPECT_EQ(Text(0).Font, "Verdana");
  EXPECT_EQ(Text(0).Size, 10);
  EXPECT_TRUE(Text(0).Bold);
  EXPECT_EQ(Text(1).Text, "Filter:\"and vlan 7/MU01\"");
  EXPECT_EQ(Text(1).X, 15);
  EXPECT_EQ(Text(1).Y, 10 + support::FakeSurface::LineHeight);
  EXPECT_EQ(Text(2).Text, " dated 09.Mrz.2024");
  EXPECT_EQ(Text(2).X, 15 + 24 * 3);
  EXPECT_EQ(Text(2).Y, Text(1).Y);
}

TEST_F(WaveformPage, HasTheGraphOnPlainGroundAndALittleStretched) {
  Print();
  const support::PrintedPicture& graph = scene.Surface.Pictures.at(0);
  EXPECT_EQ(graph.X, 15);
  EXPECT_EQ(graph.Y, 20);
  EXPECT_EQ(graph.Width, 180);
  EXPECT_DOUBLE_EQ(graph.Height, 130);
  EXPECT_EQ(graph.Picture.Pixels.at(0), 0xFFFFFFFFU);
  EXPECT_TRUE(main.CWGraph1.ScreenLook);
}

TEST_F(WaveformPage, TellsTheSpanOfTheTimeAxis) {
  Print();
  const PrintedText span = Find("shown samples: 399");
  EXPECT_EQ(span.X, 205);
  EXPECT_EQ(span.Y, 30);
  EXPECT_TRUE(span.Bold);
}

TEST_F(WaveformPage, HeadsTheLegendUnderlinedAndBold) {
  Print();
  const PrintedText heading = Find("Legend:");
  EXPECT_EQ(heading.X, 205);
  EXPECT_EQ(heading.Y, 38);
  EXPECT_TRUE(heading.Bold);
  EXPECT_TRUE(heading.Underline);
}

TEST_F(WaveformPage, NamesEachCheckedChannelWithDashesInItsColour) {
  for (std::size_t i = 0; i < 8; ++i) main.Check2[i].Caption = "channel " + std::to_string(i);
  Check({1, 0, 1, 1, 0, 1, 0, 1});
  Print();
  const std::vector<PrintedText> dashes = Dashes();
  const std::size_t channels[] = {0, 2, 3, 5, 7};
  ASSERT_EQ(dashes.size(), 5U);
  for (std::size_t n = 0; n < 5; ++n) {
    const PrintedText name = Find("channel " + std::to_string(channels[n]));
    EXPECT_EQ(name.X, 205);
    EXPECT_EQ(name.Y, 46 + 8 * static_cast<double>(n));
    EXPECT_EQ(name.Colour, platform::Rgb());
    EXPECT_FALSE(name.Bold);
    EXPECT_FALSE(name.Underline);
    EXPECT_EQ(dashes[n].X, 205 + 9 * 2 + 5);
    EXPECT_EQ(dashes[n].Y, name.Y);
    EXPECT_EQ(dashes[n].Colour, main.CWGraph1.Plots[channels[n]].LineColor.Get());
  }
  EXPECT_EQ(dashes[4].Y, 78);
}

TEST_F(WaveformPage, HasRoomForEightChannels) {
  Print();
  ASSERT_EQ(Dashes().size(), 8U);
  EXPECT_EQ(Dashes()[7].Y, 102);
}

TEST_F(WaveformPage, MovesAllDashesByTheLongestNameAlsoOfAChannelThatIsOff) {
  for (platform::CheckBox& channel : main.Check2) channel.Caption = "I";
  main.Check2[6].Caption = "a very long name of a channel";
  Check({1, 1, 0, 0, 0, 0, 0, 0});
  Print();
  for (const PrintedText& dashes : Dashes()) EXPECT_EQ(dashes.X, 205 + 29 * 2 + 5);
}

TEST_F(WaveformPage, EndsWithTheProgramAndTheLogo) {
  Print();
  const PrintedText footer = Find("Vornik 2.3.5");
  EXPECT_EQ(footer.X, 205);
  EXPECT_EQ(footer.Y, 180);
  EXPECT_EQ(footer.Size, 12);
  EXPECT_TRUE(footer.Bold);
  EXPECT_EQ(footer.Colour, platform::Rgb());
  const support::PrintedPicture& logo = scene.Surface.Pictures.at(1);
  EXPECT_EQ(logo.X, 250);
  EXPECT_EQ(logo.Y, 180);
  EXPECT_EQ(logo.Width, 30);
  EXPECT_DOUBLE_EQ(logo.Height, 5.71875);
  EXPECT_EQ(logo.Picture.Pixels.at(0), 7U);
}

TEST_F(WaveformPage, ComesOutWithNoPlotVisible) {
  for (platform::Plot& plot : main.CWGraph1.Plots) plot.Visible = false;
  Print();
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
  EXPECT_TRUE(scene.Surface.Ended);
  EXPECT_EQ(scene.Surface.Pictures.size(), 2U);
  EXPECT_EQ(Dashes().size(), 8U);
}

TEST_F(WaveformPage, ComesOutWithNoChannelChecked) {
  Check({0, 0, 0, 0, 0, 0, 0, 0});
  Print();
  EXPECT_TRUE(scene.Surface.Ended);
  EXPECT_TRUE(Dashes().empty());
}

TEST_F(WaveformPage, GoesToThePrinterOfTheListThatStaysTheCurrentOne) {
  main.Combo2.ListIndex = 1;
  scene.Printers.Chosen = 0;
  Print();
  EXPECT_EQ(scene.Printers.Chosen, 1U);
}

TEST_F(WaveformPage, ThatFailsAnywhereGivesTheGraphItsScreenLook) {
  for (const char* step : {"orientation", "colours", "text", "picture", "end"}) {
    scene.Surface.FailAt = step;
    Print();
    EXPECT_TRUE(main.CWGraph1.ScreenLook) << step;
    EXPECT_TRUE(scene.Dialogs.Shown.empty()) << step;
    EXPECT_FALSE(scene.Surface.Ended) << step;
    EXPECT_EQ(Line(forms::quiet_line::Waveforms),
              "The waveforms could not be printed: out of paper.");
  }
  EXPECT_EQ(scene.Surface.Mode, platform::ColourMode::Colour);
}

TEST_F(WaveformPage, ThatIsCancelledDoesNotStartOver) {
  scene.Surface.FailAt = "picture";
  scene.Surface.Calls.clear();
  Print();
  EXPECT_EQ(scene.Surface.Calls,
            support::Journal({"orientation", "colours", "text", "text", "text", "picture"}));
}

TEST_F(WaveformPage, OfAGraphWithoutASizeFails) {
  main.CWGraph1.Width = 0;
  Print();
  EXPECT_FALSE(scene.Surface.Ended);
  EXPECT_EQ(Line(forms::quiet_line::Waveforms),
            "The waveforms could not be printed: Division by zero.");
}

TEST_F(WaveformPage, ARunTakesTheWordsAboutAFailedPageAway) {
  scene.Surface.FailAt = "end";
  Print();
  main.CWButton1.Value = true;
  EXPECT_EQ(Line(forms::quiet_line::Waveforms), "");
}

TEST_F(WaveformPage, LeavesTheWordsOfOthersOnTheLine) {
  main.QuietLine[forms::quiet_line::Waveforms].Say("waiting");
  Print();
  EXPECT_EQ(Line(forms::quiet_line::Waveforms), "waiting");
}

TEST_F(WaveformPage, ThatFailsLeavesTheWordsOfOthersBehindItsOwn) {
  main.QuietLine[forms::quiet_line::Waveforms].Say("waiting");
  scene.Surface.FailAt = "end";
  Print();
  Print();
  EXPECT_EQ(Line(forms::quiet_line::Waveforms),
            "The waveforms could not be printed: out of paper. waiting");
  scene.Surface.FailAt.clear();
  Print();
  EXPECT_EQ(Line(forms::quiet_line::Waveforms), "waiting");
}

TEST_F(WaveformPage, WritesTheControlCharactersOfItsFilterOut) {
  scene.Settings.FilterContent = {std::string("MU01\0", 5), "MU02"};
  Print();
  EXPECT_EQ(Text(1).Text, "Filter:\"/MU01\\0\"");
}

TEST_F(WaveformPage, TakesBackWhatTheStatusBarSaysOfAnOlderReport) {
  main.Command4.Enabled = true;
  scene.Surface.File = "/home/user/SV report.pdf";
  main.Command4.Click();
  ASSERT_EQ(PrinterPanel(), "Printed to SV report.pdf");
  scene.Surface.FailAt = "end";
  Print();
  EXPECT_EQ(PrinterPanel(), "Standard printer: Office ");
}

TEST_F(WaveformPage, RefusedLateLeavesTheLineToTheRunThatHasBegun) {
  scene.Surface.QueueAnswersLater = true;
  main.Command1.Click();
  main.CWButton1.Value = true;
  platform::QuietLine& line = main.QuietLine[forms::quiet_line::Waveforms];
  for (const char* waiting : {"", "Waiting."}) {
    line.Say(waiting);
    scene.Surface.Queued.at(0)({{}, "out of toner"});
    EXPECT_EQ(line.Caption, waiting);
    EXPECT_TRUE(PrinterPanel().starts_with("Refused by "));
  }
  line.Say({});
  main.CWButton1.Value = false;
  EXPECT_EQ(line.Caption, "") << "nothing of the run comes back";
}

class WaveformCopy : public WaveformPage {};

TEST_F(WaveformCopy, OfThePressOfTheRightButtonIsTheGraphAsItStands) {
  platform::Picture staged;
  scene.Dialogs.WhileOpen = [&] { staged = main.Picture5.Image; };
  scene.Journal.clear();
  main.Command1.MouseDown(platform::mouse_button::Right);
  EXPECT_EQ(scene.Clipboard.Picture.Pixels, std::vector<std::uint32_t>{0xFFC8B08AU});
  EXPECT_EQ(staged, scene.Clipboard.Picture);
  EXPECT_TRUE(main.Picture5.Image.Get().Empty());
  EXPECT_EQ(scene.Journal, support::Journal({"clear clipboard", "set clipboard", "box Success"}));
  EXPECT_EQ(scene.LastBox(),
            (platform::Message{"Success", "Actual graph is now copied to the clipboard.",
                               platform::Icon::Information}));
}

TEST_F(WaveformCopy, IsForTheRightButtonAlone) {
  for (const std::int16_t button : {platform::mouse_button::Left, platform::mouse_button::Middle}) {
    main.Command1.MouseDown(button);
  }
  EXPECT_TRUE(scene.Clipboard.Picture.Empty());
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
}

TEST_F(WaveformCopy, ComesAlsoWithNoPlotVisible) {
  for (platform::Plot& plot : main.CWGraph1.Plots) plot.Visible = false;
  main.Command1.MouseDown(platform::mouse_button::Right);
  EXPECT_FALSE(scene.Clipboard.Picture.Empty());
}

class PrinterListAtTheStart : public report_tests::PrintScene {};

TEST_F(PrinterListAtTheStart, MarksTheCurrentPrinterInTheListAlone) {
  EXPECT_EQ(main.Combo2.List.Get(), std::vector<std::string>({"Office*", "Control room"}));
  EXPECT_EQ(scene.Printers.Current(), "Office");
  // The mark is no part of the name: the printer is found by its place.
  main.Combo2.ListIndex = 1;
  ASSERT_EQ(scene.Printers.Chosen, 1U);
  main.Combo2.ListIndex = 0;
  EXPECT_EQ(scene.Printers.Chosen, 0U);
}

TEST_F(PrinterListAtTheStart, WithoutAPrinterDisablesThePrintOfTheWaveformsAlone) {
  support::Scene bare;
  bare.Printers.List.clear();
  bare.App.Load();
  bare.Main.Command4.Enabled = true;
  ASSERT_EQ(bare.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(bare.Dialogs.Shown[0].Title, "Attention");
  EXPECT_EQ(bare.Dialogs.Shown[0].Text,
            "There is no printer available\r\nTherefore printing is disabled.");
  EXPECT_FALSE(bare.Main.Command1.Enabled);
  EXPECT_TRUE(bare.Main.Command4.Enabled);
  EXPECT_EQ(bare.Main.Combo2.ListIndex.Get(), -1);
}

}  // namespace
