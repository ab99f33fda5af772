#include "report/report_print.h"

#include <algorithm>

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
  scene.Dialogs.Answers = {platform::Answer::Yes};
  Print();
  EXPECT_EQ(Text(4 + 2 * row::SampleCount).Text, "7");
  EXPECT_EQ(Text(4).Text, " / MU01 / MU02");
}

/// The rows of two senders: the head is of a frame that was refused.
class MixedReportPage : public ReportPage {
 protected:
  MixedReportPage() {
    main.Text1[forms::setup_field::Content2].Text = "MU02";
    Run("MU02");
    scene.Dialogs.Shown.clear();
    scene.Surface.Calls.clear();
  }
  void Run(const std::string& id) {
    main.Command2.Value = true;
    for (int i = 0; i < 2; ++i) scene.Receive(SvFrame(id).Bytes());
  }
};

TEST_F(MixedReportPage, IsPrintedAfterAQuestionAlone) {
  scene.Dialogs.Answers = {platform::Answer::No, platform::Answer::Yes};
  Print();
  ASSERT_EQ(scene.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(scene.LastBox(),
            (platform::Message{
                "Attention",
                "The frame that came was sent by \"MU02\" and not by \"MU01\". RUN asks "
                "again.\r\n\r\nOn the page "
                "its addresses and lengths would stand above the ID, the counter and the bytes of "
                "an earlier frame.\r\n\r\nPrint the page all the same?",
                platform::Icon::Exclamation, platform::Buttons::YesNo}));
  EXPECT_TRUE(scene.Surface.Calls.empty());
  Print();
  EXPECT_TRUE(scene.Surface.Ended);
}

TEST_F(MixedReportPage, IsAskedForOnThePrinterOfTheList) {
  main.Combo2.ListIndex = 1;
  scene.Printers.Chosen = 0;
  scene.Dialogs.Answers = {platform::Answer::No};
  Print();
  EXPECT_EQ(scene.Printers.Chosen, 1U);
}

TEST_F(MixedReportPage, IsWholeAgainWithAFrameOfTheChosenStation) {
  Run("MU01");
  Print();
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
  EXPECT_TRUE(scene.Surface.Ended);
}

TEST_F(MixedReportPage, NamesASenderWhoseIdHasNoReadableEnd) {
  Run(std::string("MU02\0\n", 6));
  scene.Dialogs.Answers = {platform::Answer::No};
  Print();
  EXPECT_EQ(scene.LastBox().Text.substr(0, 50),
            "The frame that came was sent by \"MU02\\0\\n\" and not");
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

class PrintedReport : public ReportPage {
 protected:
  static constexpr const char* Tip = "shows actual choosen standard printer";
  static constexpr const char* Path = "/home/user/StoredData/SV report.pdf";
};

TEST_F(PrintedReport, ThatBecameAFileIsNamedInTheStatusBarAndItsPathInTheTip) {
  scene.Surface.File = Path;
  Print();
  EXPECT_EQ(PrinterPanel(), "Printed to SV report.pdf");
  EXPECT_EQ(PrinterTip(), std::string(Tip) + "\n" + Path);
  scene.Surface.File = "c:\\StoredData\\SV report (2).pdf";
  Print();
  EXPECT_EQ(PrinterPanel(), "Printed to SV report (2).pdf");
}

TEST_F(PrintedReport, ThatAPrinterTookIsConfirmed) {
  Print();
  EXPECT_EQ(PrinterPanel(), "Sent to Office");
  EXPECT_EQ(PrinterTip(), std::string(Tip) + "\nThe report went to Office.");
}

TEST_F(PrintedReport, MakesRoomForThePrinterWhenASettingIsSaved) {
  scene.Surface.File = Path;
  Print();
  main.Combo2.ListIndex = 1;
  EXPECT_EQ(PrinterPanel(), "Standard printer: Control room ");
  EXPECT_EQ(PrinterTip(), Tip);
}

TEST_F(PrintedReport, IsNotToldOfBehindAPrintThatFailed) {
  const std::string before = PrinterPanel();
  scene.Surface.File = Path;
  Print();
  Print();
  scene.Surface.FailAt = "end";
  Print();
  EXPECT_EQ(PrinterPanel(), before);
  EXPECT_EQ(PrinterTip(), Tip);
}

TEST_F(PrintedReport, IsToldOfWhenTheQueueHasAnswered) {
  const std::string before = PrinterPanel();
  scene.Surface.QueueAnswersLater = true;
  Print();
  EXPECT_EQ(PrinterPanel(), before);
  EXPECT_EQ(scene.Surface.Mode, platform::ColourMode::Monochrome);
  // The printer is the one that was chosen for the page.
  main.Combo2.ListIndex = 1;
  ASSERT_EQ(scene.Surface.Queued.size(), 1U);
  scene.Surface.Queued[0]({});
  EXPECT_EQ(PrinterPanel(), "Sent to Office");
}

TEST_F(PrintedReport, ThatItsQueueRefusesIsAPrintThatFailed) {
  scene.Surface.QueueAnswersLater = true;
  Print();
  scene.Surface.Queued.at(0)({{}, "\"Office\" refused the page"});
  EXPECT_EQ(PrinterPanel(), "Refused by Office");
  EXPECT_EQ(PrinterTip(), std::string(Tip) + "\n\"Office\" refused the page");
  EXPECT_EQ(Line(forms::quiet_line::Report),
            "The report could not be printed: \"Office\" refused the page.");
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
  // Two refusals are told once.
  scene.Surface.Queued.at(0)({{}, "out of toner"});
  EXPECT_EQ(Line(forms::quiet_line::Report), "The report could not be printed: out of toner.");
}

class OddCharacters : public ReportPage {
 protected:
  /// Prints the report of a frame with this ID, at whose end stand the bytes without a shape.
  void PrintReportOf(const std::string& id) {
    const support::FrameBytes shapeless{0x7F, 0x81, 0x8D, 0x8F, 0x90, 0x9D, 0xAD};
    main.Command2.Value = true;
    for (int i = 0; i < 2; ++i) scene.Receive(SvFrame(id).Channels(4).Trailer(shapeless).Bytes());
    Print();
  }
};

TEST_F(OddCharacters, OfAnIdAreWrittenOutOnThePage) {
  PrintReportOf(std::string("MU01\0\n", 6));
  EXPECT_EQ(main.Label8[row::StationId].Caption.Get(), std::string("MU01\0\n", 6));
  EXPECT_EQ(Text(4 + 2 * row::StationId).Text, "MU01\\0\\n");
}

TEST_F(OddCharacters, OfADumpLeaveABlankInTheirPlace) {
  PrintReportOf("MU01");
  const auto columns = [](const std::string& utf8) {
    return std::count_if(utf8.begin(), utf8.end(), [](char byte) { return (byte & 0xC0) != 0x80; });
  };
  int blanks = 0;
  for (std::size_t i = row::FirstDump; i < 21; ++i) {
    const std::string& shown = main.Label8[i].Caption;
    const PrintedText printed = Text(i < 15 ? 4 + 2 * i : 3 + 2 * 15 + i - 15);
    EXPECT_EQ(columns(printed.Text), 4 + 48 + 32) << i;
    EXPECT_EQ(columns(shown), 4 + 48 + 32) << i;
    for (const char* lost :
         {"\x7F", "\xC2\x81", "\xC2\x8D", "\xC2\x8F", "\xC2\x90", "\xC2\x9D", "\xC2\xAD"}) {
      EXPECT_EQ(printed.Text.find(lost), std::string::npos) << i;
      blanks += shown.find(lost) != std::string::npos ? 1 : 0;
    }
  }
  EXPECT_EQ(blanks, 7) << "the frame held no such byte";
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
