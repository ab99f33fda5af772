#include "report/report_print.h"

#include "report/print_scene.h"
#include "report/report_rows.h"

namespace {

using support::PrintedText;
using support::SvFrame;
namespace row = forms::report_row;

class ReportPage : public report_tests::PrintScene {
 protected:
  ReportPage() {
    scene.Select(forms::tab::Report);
    main.Command2.Value = true;
    for (int i = 0; i < 2; ++i) {
      scene.Receive(SvFrame("MU01").Count(7).Trailer(support::FrameBytes(200, 0x42)).Bytes());
    }
  }
  void Print() { main.Command4.Click(); }
};

TEST_F(ReportPage, IsAPortraitPageInColourThatIsEnded) {
  Print();
  EXPECT_EQ(scene.Surface.PageOrientation, platform::PageOrientation::Portrait);
  EXPECT_EQ(scene.Surface.ModeAtEnd, platform::ColourMode::Colour);
  EXPECT_TRUE(scene.Surface.Ended);
  EXPECT_EQ(scene.Surface.Mode, platform::ColourMode::Monochrome);
  EXPECT_EQ(scene.Surface.Name, "SV report");
}

TEST_F(ReportPage, BeginsWithTheProgramAndTheDay) {
  Print();
  EXPECT_EQ(Text(0).Text, scene.Main.Window.Caption.Get());
  EXPECT_EQ(Text(0).X, 15);
  EXPECT_EQ(Text(0).Y, 10);
  EXPECT_EQ(Text(0).Font, "Verdana");
  EXPECT_EQ(Text(0).Size, 10);
  EXPECT_FALSE(Text(0).Bold);
  EXPECT_EQ(Text(1).Text, "Report of received sample set; ");
  EXPECT_EQ(Text(1).X, 15);
  EXPECT_EQ(Text(1).Y, 18);
  EXPECT_TRUE(Text(1).Bold);
  EXPECT_EQ(Text(2).Text, " dated 09.Mrz.2024");
  EXPECT_EQ(Text(2).X, 15 + 31 * 3);
  EXPECT_EQ(Text(2).Y, 18);
}

TEST_F(ReportPage, HasTheFirstFifteenRowsAsTitleAndValue) {
  Print();
  for (std::size_t i = 0; i < 15; ++i) {
    const PrintedText& title = Text(3 + 2 * i);
    const PrintedText& value = Text(4 + 2 * i);
    EXPECT_EQ(title.Text, report_tests::Rows[i].Title);
    EXPECT_EQ(value.Text, main.Label8[i].Caption.Get());
    EXPECT_EQ(title.X, 15);
    EXPECT_EQ(value.X, 80);
    for (const PrintedText& text : {title, value}) {
      EXPECT_EQ(text.Y, 40 + 7 * static_cast<double>(i));
      EXPECT_EQ(text.Font, "Verdana");
      EXPECT_EQ(text.Size, 10);
      EXPECT_TRUE(text.Bold);
      EXPECT_FALSE(text.Underline);
      EXPECT_EQ(text.Colour, platform::Rgb());
    }
  }
}

TEST_F(ReportPage, HasSixFurtherRowsAsTheirValueAlone) {
  Print();
  for (std::size_t i = 15; i < 21; ++i) {
    const PrintedText& value = Text(3 + 2 * 15 + i - 15);
    EXPECT_EQ(value.Text, main.Label8[i].Caption.Get());
    EXPECT_EQ(value.X, 15);
    EXPECT_EQ(value.Y, 40 + 7 * static_cast<double>(i));
    EXPECT_EQ(value.Font, "Courier New");
    EXPECT_TRUE(value.Bold);
  }
}

TEST_F(ReportPage, HasTheFirstDumpLineAt80AndTheThirdAt15) {
  Print();
  EXPECT_EQ(Find(main.Label8[13].Caption).X, 80);
  EXPECT_EQ(Find(main.Label8[15].Caption).X, 15);
}

TEST_F(ReportPage, HasNoRoomForTheLastTwoDumpLines) {
  Print();
  EXPECT_EQ(main.Label8[21].Caption.Get().substr(0, 3), "80:");
  EXPECT_EQ(Find(main.Label8[21].Caption).X, -1000);
  EXPECT_EQ(Find(main.Label8[22].Caption).X, -1000);
  EXPECT_EQ(scene.Surface.Texts.size(), 3U + 30 + 6 + 1);
}

TEST_F(ReportPage, ShowsTheDashesOfRowTwelve) {
  Print();
  EXPECT_EQ(Text(3 + 2 * 12).Text, "Complete packet:");
  EXPECT_EQ(Text(4 + 2 * 12).Text, "- - - -");
}

TEST_F(ReportPage, EndsWithAFooterInTheFontOfTheDump) {
  Print();
  const PrintedText& footer = scene.Surface.Texts.back();
  EXPECT_EQ(footer.Text, "Vornik 2.3.5; Harlengard GmbH & Co. KG; dated 09-Mrz-2024");
  EXPECT_EQ(footer.X, 15);
  EXPECT_EQ(footer.Y, 250);
  EXPECT_EQ(footer.Font, "Courier New");
  EXPECT_FALSE(footer.Bold);
}

TEST_F(ReportPage, HasTheRowsAsTheyStandAlsoHiddenOnes) {
  main.Text1[forms::setup_field::Content2].Text = "MU02";
  main.Command2.Value = true;
  for (int i = 0; i < 2; ++i) scene.Receive(SvFrame("MU02").Count(9).Bytes());
  ASSERT_FALSE(main.Label8[0].Visible);
  Print();
  EXPECT_EQ(Text(4 + 2 * row::SampleCount).Text, "7");
  EXPECT_EQ(Text(4).Text, " / MU01 / MU02");
}

TEST_F(ReportPage, WritesADayOfOneDigitWithTwo) {
  scene.Calendar.Present.Day = 23;
  Print();
  EXPECT_EQ(Text(2).Text, " dated 23.Mrz.2024");
}

TEST_F(ReportPage, GoesToThePrinterOfTheList) {
  main.Combo2.ListIndex = 1;
  scene.Printers.Chosen = 0;
  Print();
  EXPECT_EQ(scene.Printers.Chosen, 1U);
}

TEST_F(ReportPage, ThatBecameAFileIsNamedInTheStatusBar) {
  const std::string before = PrinterPanel();
  Print();
  EXPECT_EQ(PrinterPanel(), before);
  scene.Surface.File = "/home/user/StoredData/report.pdf";
  Print();
  EXPECT_EQ(PrinterPanel(), "Printed to /home/user/StoredData/report.pdf");
}

TEST_F(ReportPage, ThatFailsAnywhereIsLeftSilently) {
  for (const char* step : {"orientation", "colours", "text", "end"}) {
    scene.Surface.FailAt = step;
    Print();
    EXPECT_TRUE(scene.Dialogs.Shown.empty()) << step;
    EXPECT_FALSE(scene.Surface.Ended) << step;
    EXPECT_EQ(Line(forms::quiet_line::Report), "The report could not be printed: out of paper.");
  }
  EXPECT_EQ(scene.Surface.Mode, platform::ColourMode::Colour);
}

TEST_F(ReportPage, ThatIsRefusedEndsAtOnce) {
  scene.Surface.FailAt = "text";
  scene.Surface.Calls.clear();
  Print();
  EXPECT_EQ(scene.Surface.Calls, support::Journal({"orientation", "colours", "text"}));
}

TEST_F(ReportPage, ThatComesOutTakesTheOlderFailureAway) {
  scene.Surface.FailAt = "end";
  Print();
  scene.Surface.FailAt.clear();
  Print();
  EXPECT_EQ(Line(forms::quiet_line::Report), "");
}

TEST_F(ReportPage, WithoutAPrinterEndsTheProgramAsAnyFailureWithoutATrap) {
  main.Combo2.Clear();
  try {
    Print();
    FAIL();
  } catch (const platform::Failure& failure) {
    EXPECT_EQ(failure.Number(), platform::failure::NoPrinter);
  }
}

}  // namespace
