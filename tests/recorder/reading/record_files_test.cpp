#include <gmock/gmock.h>

#include "recorder/reading/analysis_scene.h"

namespace support {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecordFiles : public ::testing::Test, public AnalysisScene {
 protected:
  /// A recording of this format lies on disk.
  void Made(const std::string& format, const std::string& extension) {
    Settings.FileFormat = format;
    RecordFileName = "SV record 09.03.2024 13-04-06" + extension;
    Recorded(LinesOf({0, 1}));
    Recorder.CWGraph2.Visible = false;
  }
};

TEST_F(RecordFiles, ATextRecordingIsShownOnTheGraph) {
  Made("TXT", ".txt");
  Analysis.ViewRecording();
  EXPECT_TRUE(Recorder.CWGraph2.Visible);
  EXPECT_THAT(Links.Opened, IsEmpty());
}

TEST_F(RecordFiles, AWorksheetOpensInItsViewer) {
  Made("EXCEL", ".xls");
  Analysis.ViewRecording();
  EXPECT_FALSE(Recorder.CWGraph2.Visible);
  EXPECT_THAT(Links.Opened, ElementsAre("c:\\StoredData\\SV record 09.03.2024 13-04-06.xls"));
  EXPECT_THAT(Dialogs.Shown, IsEmpty());
}

TEST_F(RecordFiles, AComtradeRecordingIsNotShown) {
  Made("COMTRADE", ".dat");
  Analysis.ViewRecording();
  EXPECT_FALSE(Recorder.CWGraph2.Visible);
  EXPECT_THAT(Links.Opened, IsEmpty());
  EXPECT_THAT(Journal, IsEmpty());
}

TEST_F(RecordFiles, NothingIsShownBeforeTheFirstRecording) {
  for (const char* format : {"TXT", "EXCEL", "COMTRADE"}) {
    Made(format, ".txt (after 'RUN')");
    Analysis.ViewRecording();
    RecordFileName.clear();
    Analysis.ViewRecording();
    EXPECT_FALSE(Recorder.CWGraph2.Visible) << format;
    EXPECT_THAT(Links.Opened, IsEmpty()) << format;
  }
}

TEST_F(RecordFiles, ARefusedWorksheetIsToldByTheCode) {
  Made("EXCEL", ".xls");
  const platform::Message noViewer{
      "Attention",
      "It was not possible to open Excel for viewing the stored data file!"
      "Nevertheless the 'xls' file is stored properly.\r\n"
      "Please install as minimum an 'Excel' file viewer.",
      platform::Icon::Exclamation};
  for (const std::int32_t code : {2, 3, 5, 8, 11, 26, 27, 28, 29, 30, 31, 32}) {
    Dialogs.Shown.clear();
    Links.Code = code;
    Analysis.ViewRecording();
    EXPECT_THAT(Dialogs.Shown, ElementsAre(noViewer)) << code;
  }
  Dialogs.Shown.clear();
  for (const std::int32_t code : {0, 1, 4, 6, 7, 9, 10, 12, 25, 33, 42, 1000}) {
    Links.Code = code;
    Analysis.ViewRecording();
    EXPECT_THAT(Dialogs.Shown, IsEmpty()) << code;
  }
}

TEST_F(RecordFiles, AnAnswerThatComesLateIsToldInABox) {
  Made("EXCEL", ".xls");
  Links.Late = true;
  Analysis.ViewRecording();
  EXPECT_THAT(Dialogs.Shown, IsEmpty());
  Links.Waiting[0](platform::open_code::NoViewer);
  EXPECT_EQ(Dialogs.Shown.size(), 1U);
}

TEST_F(RecordFiles, AnAnswerThatComesIntoTheNextRecordingIsToldOnTheLine) {
  Made("EXCEL", ".xls");
  Links.Late = true;
  Analysis.ViewRecording();
  Recording = true;
  Links.Waiting[0](platform::open_code::NoViewer);
  EXPECT_THAT(Dialogs.Shown, IsEmpty());
  EXPECT_EQ(Recorder.NotStored.Caption,
            "The worksheet of the recording before has found no viewer.");
  Recorder.NotStored.Say("not stored");
  Links.Waiting[0](platform::open_code::NoViewer);
  EXPECT_EQ(Recorder.NotStored.Caption, "not stored") << "which matters more";
}

TEST_F(RecordFiles, AnAnswerThatComesBehindAChangeOfTheTabIsToldInABox) {
  Made("EXCEL", ".xls");
  Links.Late = true;
  Analysis.ViewRecording();
  // The button of a recording that another tab has ended stays down.
  Recorder.CWButton3.Value = true;
  Links.Waiting[0](platform::open_code::NoViewer);
  EXPECT_EQ(Dialogs.Shown.size(), 1U);
  EXPECT_EQ(Recorder.NotStored.Caption, "");
}

TEST_F(RecordFiles, TheLogOpensByItsButton) {
  Made("TXT", ".txt");
  Recorder.Command9.Click();
  EXPECT_THAT(Links.Opened,
              ElementsAre("c:\\StoredData\\Errorlog SV record 09.03.2024 13-04-06.txt"));
}

TEST_F(RecordFiles, TheFolderOfTheRecordingsOpensByItsButton) {
  Recorder.OpenFolder.Click();
  EXPECT_THAT(Links.Opened, ElementsAre("c:\\StoredData"));
  EXPECT_EQ(Recorder.NotStored.Caption, "");
}

TEST_F(RecordFiles, AFolderThatDoesNotOpenIsToldOnTheLine) {
  const auto told = [this](std::int32_t code) {
    Links.Code = code;
    Recorder.OpenFolder.Click();
    return Recorder.NotStored.Caption.Get();
  };
  EXPECT_EQ(told(platform::open_code::PathNotFound),
            "The data folder is not there. Check the data path under 'Setup'.");
  EXPECT_EQ(told(platform::open_code::FileNotFound),
            "The data folder is not there. Check the data path under 'Setup'.");
  EXPECT_EQ(told(platform::open_code::AccessDenied),
            "The data folder must not be read. Check its rights, or the data path under 'Setup'.");
  EXPECT_EQ(told(platform::open_code::NoViewer),
            "The data folder was not opened: this computer has no file manager for it.");
  EXPECT_EQ(told(platform::open_code::Opened), "") << "what was told before holds no longer";
  EXPECT_THAT(Dialogs.Shown, IsEmpty());
}

TEST_F(RecordFiles, WhatIsToldOfARecordingStaysForTheFolder) {
  Recorder.NotStored.Say("not stored");
  Links.Late = true;
  Recorder.OpenFolder.Click();
  Links.Waiting[0](platform::open_code::NoViewer);
  EXPECT_EQ(Recorder.NotStored.Caption, "not stored");
  Links.Late = false;
  Links.Code = platform::open_code::Opened;
  Recorder.OpenFolder.Click();
  EXPECT_EQ(Recorder.NotStored.Caption, "not stored");
}

TEST_F(RecordFiles, TheButtonIgnoresThatThereIsNoLog) {
  Made("TXT", ".txt");
  Links.Code = platform::open_code::FileNotFound;
  Recorder.Command9.Click();
  EXPECT_THAT(Dialogs.Shown, IsEmpty());
}

TEST_F(RecordFiles, ADoubleClickOnAnyLineOpensATextRecording) {
  Made("TXT", ".txt");
  for (platform::Label& line : Recorder.Label10) line.DblClick();
  EXPECT_EQ(Links.Opened.size(), Recorder.Label10.size());
  EXPECT_THAT(Links.Opened, Each("c:\\StoredData\\SV record 09.03.2024 13-04-06.txt"));
}

TEST_F(RecordFiles, ADoubleClickOpensTheFileThatStillGrows) {
  Made("TXT", ".txt");
  Recorder.CWButton3.Value = true;
  Recorder.Label10[forms::record_line::FirstPath].DblClick();
  EXPECT_THAT(Links.Opened, ElementsAre(Path()));
}

TEST_F(RecordFiles, ADoubleClickOpensNoOtherFile) {
  for (const char* extension : {".xls", ".dat", ".txt (after 'RUN')", ".TXT"}) {
    Made("TXT", extension);
    Recorder.Label10[forms::record_line::FirstPath].DblClick();
    EXPECT_THAT(Links.Opened, IsEmpty()) << extension;
  }
  RecordFileName = "";
  Recorder.Label10[forms::record_line::FirstPath].DblClick();
  EXPECT_THAT(Links.Opened, IsEmpty());
}

}  // namespace
}  // namespace support
