#include <gmock/gmock.h>

#include "config/printer_list.h"
#include "config/setup_view.h"
#include "support/scene.h"

namespace {

using support::Scene;
using ::testing::ElementsAre;

TEST(StoragePath, TakesTheFolderThatWasBrowsed) {
  Scene scene;
  scene.Start();
  scene.Folders.Answer = "c:\\Records";

  scene.Main.Command3.Click();

  EXPECT_THAT(scene.Folders.Titles, ElementsAre("Bitte einen Ordner auswählen"));
  EXPECT_THAT(scene.Folders.Presents, ElementsAre("c:\\StoredData"));
  EXPECT_EQ(scene.Settings.StoragePath, "c:\\Records");
  EXPECT_EQ(scene.Main.Text1[3].Text, "c:\\Records");
  EXPECT_EQ(scene.Store.Texts["Path of stored data"], "c:\\Records");
}

TEST(StoragePath, StaysWhereTheBrowsingWasCancelled) {
  Scene scene;
  scene.Start();
  scene.Store.Written.clear();

  scene.Main.Command3.Click();

  EXPECT_EQ(scene.Settings.StoragePath, "c:\\StoredData");
  EXPECT_TRUE(scene.Store.Written.empty());
}

TEST(StoragePath, ExistsWithAndWithoutATrailingSeparator) {
  support::FakeFiles files;
  files.Folders = {"c:\\Records"};

  EXPECT_TRUE(subroutines::PathExists(files, "c:\\Records"));
  EXPECT_TRUE(subroutines::PathExists(files, "c:\\Records\\"));
  EXPECT_FALSE(subroutines::PathExists(files, "c:\\Record"));
  EXPECT_FALSE(subroutines::PathExists(files, ""));
}

TEST(PrinterChoice, FollowsTheListAndIsStored) {
  Scene scene;
  scene.Start();

  scene.Main.Combo2.ListIndex = 1;

  EXPECT_EQ(scene.Settings.PrinterChoice, 1);
  EXPECT_EQ(scene.Printers.Chosen, 1U);
  EXPECT_EQ(scene.Store.Texts["Printerchoice"], "1");
  EXPECT_EQ(scene.Main.StatusBar1.Panels[1].Text, "Standard printer: Control room ");
}

/// A printer list of its own, beside the program's.
class PrinterListing : public ::testing::Test {
 protected:
  Scene scene;
  subroutines::StoredSettings file{scene.Store, scene.Numbers, scene.Settings};
  subroutines::PrinterChoices choices{scene.Main,     scene.Main,    scene.Settings, file,
                                      scene.Printers, scene.Dialogs, scene.Runtime};
};

TEST_F(PrinterListing, MarksAndSelectsTheCurrentPrinterWhereAskedTo) {
  scene.Printers.Chosen = 1;

  choices.PrinterList(false, false);
  EXPECT_THAT(scene.Main.Combo2.List.Get(), ElementsAre("Office", "Control room"));
  EXPECT_EQ(scene.Main.Combo2.ListIndex, -1);

  choices.PrinterList(true, false);
  EXPECT_THAT(scene.Main.Combo2.List.Get(), ElementsAre("Office", "Control room*"));
  EXPECT_EQ(scene.Main.Combo2.ListIndex, -1);

  choices.PrinterList(false, true);
  EXPECT_THAT(scene.Main.Combo2.List.Get(), ElementsAre("Office", "Control room"));
  EXPECT_EQ(scene.Main.Combo2.ListIndex, 1);
}

TEST_F(PrinterListing, EndsTheProgramOnAnyOtherFailure) {
  class Broken : public support::FakePrinters {
   public:
    std::vector<std::string> Names() const override { throw platform::Failure(57); }
  } broken;
  subroutines::PrinterChoices list{scene.Main, scene.Main,    scene.Settings, file,
                                   broken,     scene.Dialogs, scene.Runtime};

  EXPECT_THROW(list.PrinterList(true, true), support::SceneEnded);
}

TEST(ChannelName, StandsBesideItsCurveToo) {
  Scene scene;
  scene.Start();

  scene.Main.Text1[9].Text = "Busbar L2";

  EXPECT_EQ(scene.Main.Check2[5].Caption, "Busbar L2");
  EXPECT_EQ(scene.Main.Grid1.Cell[6][0], "Busbar L2");
}

}  // namespace
