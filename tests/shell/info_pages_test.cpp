#include <gmock/gmock.h>

#include <iterator>
#include <tuple>

#include "support/scene.h"

namespace {

using support::Scene;

TEST(InformationPage, HoldsItsRows) {
  Scene scene;

  scene.App.Load();

  const std::string rows[] = {
      "Vornik",
      " ",
      "This program provides a simple interface to monitor the IEC 61850 SV",
      " ",
      " ",
      "Short description:",
      std::string("- select first 'Setup' for configuration of network adapters and look for SV ") +
          "ethernet streams",
      "- select 'Values' for direct view on the values",
      "- select 'Phases' for observing phase angles",
      "- select 'Waveforms' for looking on the waveforms of the signals",
      "- select 'Recorder' for long time running value recording on hard disk up to two sources",
      "- select 'Report' for a brief report of the filtered UDP packet acc. IEC 61850.9.2LE (SV)",
      " ",
      "- select 'Exit' to exit this program",
      " ",
      " ",
      " ",
      " ",
      "Harlengard GmbH && Co. KG",
      "See every sample. Trust every number."};
  static_assert(std::size(rows) == std::tuple_size_v<decltype(scene.Main.Label1)>);
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    EXPECT_EQ(scene.Main.Label1[i].Caption, rows[i]) << i;
    EXPECT_EQ(scene.Main.Label1[i].Visible, std::string(rows[i]) != " ") << i;
    EXPECT_EQ(scene.Main.Label1[i].FontName, "Verdana") << i;
  }
}

TEST(InformationPage, GivesTheRowsTheirFonts) {
  Scene scene;

  scene.App.Load();

  const auto& rows = scene.Main.Label1;
  EXPECT_FLOAT_EQ(rows[0].FontSize, 18.0F);
  EXPECT_TRUE(rows[0].FontBold);
  EXPECT_FALSE(rows[0].FontUnderline);
  EXPECT_TRUE(rows[2].FontBold);
  EXPECT_TRUE(rows[2].FontUnderline);
  EXPECT_FALSE(rows[5].FontBold);
  EXPECT_TRUE(rows[5].FontUnderline);
  EXPECT_FALSE(rows[7].FontBold);
  EXPECT_FALSE(rows[7].FontUnderline);
  EXPECT_FLOAT_EQ(rows[7].FontSize, 10.0F);
  EXPECT_TRUE(rows[18].FontBold);
  EXPECT_FALSE(rows[19].FontBold);
  EXPECT_FALSE(rows[19].FontUnderline);
  EXPECT_FLOAT_EQ(rows[19].FontSize, 10.0F);
}

TEST(InformationPage, GivesTheStepsThePlainFont) {
  Scene scene;

  scene.App.Load();

  for (std::size_t row = 7; row <= 13; ++row) {
    EXPECT_FLOAT_EQ(scene.Main.Label1[row].FontSize, 10.0F) << row;
    EXPECT_FALSE(scene.Main.Label1[row].FontBold) << row;
    EXPECT_FALSE(scene.Main.Label1[row].FontUnderline) << row;
  }
}

TEST(InformationPage, StandsInRowsOf300Twips) {
  Scene scene;

  scene.App.Load();

  for (std::size_t i = 0; i < 20; ++i) {
    EXPECT_EQ(scene.Main.Label1[i].Left, 600);
    EXPECT_EQ(scene.Main.Label1[i].Width, 14000);
    EXPECT_EQ(scene.Main.Label1[i].Top, 1300 + 300 * static_cast<int>(i));
  }
}

TEST(InformationPage, SendsANewUserToTheSetupFirst) {
  Scene scene;

  scene.App.Load();

  EXPECT_TRUE(scene.Main.Label1[6].FontBold);
}

TEST(InformationPage, AfterAFirstSetupIsShorter) {
  Scene scene;
  scene.Store.Texts["SetupDone"] = "True";

  scene.App.Load();

  EXPECT_EQ(scene.Main.Label1[6].Caption, "- select 'Setup' for configuration");
  EXPECT_FALSE(scene.Main.Label1[6].FontBold);
}

TEST(StatusBar, ShowsAdapterPrinterAndSamples) {
  Scene scene;
  scene.Start();

  scene.Main.Text1[13].Text = "100";

  const auto& panels = scene.Main.StatusBar1.Panels;
  EXPECT_EQ(panels[0].Text, "Bus");
  EXPECT_EQ(panels[1].Text, "Standard printer: Office ");
  EXPECT_EQ(panels[2].Text, "RMS base: 400 samples");
}

TEST(StatusBar, IsEmptiedOfItsErrorCountAtStart) {
  Scene scene;
  auto& errors = scene.Main.StatusBar1.Panels[3];
  errors.Text = "12";

  scene.Start();
  scene.Main.Text1[13].Text = "100";

  EXPECT_EQ(errors.Text, "");
}

TEST(StatusBar, ShowsTheFirst60CharactersOfAnAdapter) {
  Scene scene;
  scene.Capture.AddAdapter(std::string(65, 'x') + "12345");
  scene.Start();

  scene.Main.Combo1.ListIndex = 1;

  EXPECT_EQ(scene.Main.StatusBar1.Panels[0].Text, std::string(60, 'x'));
}

TEST(StatusBar, CountsCharactersAndNotBytes) {
  std::string name;
  for (int i = 0; i < 70; ++i) name += "ü";
  Scene scene;
  scene.Capture.AddAdapter(name);
  scene.Start();

  scene.Main.Combo1.ListIndex = 1;

  EXPECT_EQ(scene.Main.StatusBar1.Panels[0].Text, name.substr(0, 120));
}

TEST(StatusBar, WithoutAPrinterShowsTwoBlanks) {
  Scene scene;
  scene.Printers.List.clear();
  scene.Start();

  scene.Main.Text1[13].Text = "100";

  EXPECT_EQ(scene.Main.StatusBar1.Panels[1].Text, "Standard printer:  ");
  EXPECT_EQ(scene.Main.StatusBar1.Panels[2].Text, "RMS base: 400 samples");
}

TEST(StatusBar, KeepsItsPrinterWhereThatCannotBeAskedFor) {
  Scene scene;
  scene.Start();
  ASSERT_EQ(scene.Main.StatusBar1.Panels[1].Text, "Standard printer: Office ");
  scene.Printers.ReadFailure = platform::Failure(platform::failure::DeviceIo);
  scene.Printers.Chosen = 1;

  scene.Main.Text1[2].Text = "800";

  EXPECT_EQ(scene.Main.StatusBar1.Panels[1].Text, "Standard printer: Office ");
  EXPECT_EQ(scene.Main.StatusBar1.Panels[2].Text, "RMS base: 800 samples");
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
}

TEST(Links, OfTheSupportAddressBelongToTheWholeArray) {
  Scene scene;
  scene.Start();

  scene.Main.Label3[0].Click();
  scene.Main.Label3[24].Click();

  const std::string link = "mailto:" + scene.Main.Label3[0].Caption.Get() +
                           "?subject=Support question for Vornik IEC61850.9.2LE version: 2.3.5";
  EXPECT_THAT(scene.Links.Opened, ::testing::ElementsAre(link, link));
}

TEST(Links, OfThePictureOpenTheWebSite) {
  Scene scene;
  scene.Start();

  scene.Main.Picture2.Click();

  ASSERT_EQ(scene.Links.Opened.size(), 1U);
  EXPECT_EQ(scene.Links.Opened[0].rfind("https://", 0), 0U);
}

TEST(RevisionHistory, OpensWithItsTextAndClosesByItsButton) {
  Scene scene;
  scene.Start();
  auto& history = scene.App.Windows.Revisionhistory;
  std::string shown;
  history.Window.ShowModal = [&] {
    shown = history.Text1.Text;
    history.cmdOK.Click();
  };

  scene.Main.Label4.Click();

  EXPECT_EQ(shown.rfind("Vornik 2.3.5", 0), 0U);
  EXPECT_NE(shown.find("\r\n- "), std::string::npos);
  EXPECT_EQ(shown.find("\r\n\r\n"), std::string::npos);
  EXPECT_TRUE(shown.ends_with("\r\n"));
  EXPECT_FALSE(history.Window.Loaded);
}

TEST(RevisionHistory, OpensASecondTime) {
  Scene scene;
  scene.Start();
  int opened = 0;
  scene.App.Windows.Revisionhistory.Window.ShowModal = [&] {
    ++opened;
    EXPECT_TRUE(scene.App.Windows.Revisionhistory.Window.Loaded);
    scene.App.Windows.Revisionhistory.cmdOK.Click();
  };

  scene.Main.Label4.Click();
  scene.Main.Label4.Click();

  EXPECT_EQ(opened, 2);
}

TEST(DebugWindow, IsEmptiedByADoubleClick) {
  Scene scene;
  scene.App.Windows.DebugWindow.Text1.Text = "trace";

  scene.App.Windows.DebugWindow.Text1.DblClick();

  EXPECT_EQ(scene.App.Windows.DebugWindow.Text1.Text, "");
}

}  // namespace
