// What the start does before what, and what it makes of damaged or missing things.

#include <gmock/gmock.h>

#include "support/failures.h"
#include "support/scene.h"

namespace {

using support::Scene;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(StartUpOrder, LooksAtTheScreenBeforeItReadsTheSettings) {
  Scene scene;
  scene.Screen = {15345, 11520};
  scene.Store.Texts["Internal Delay"] = "soon";

  EXPECT_THROW(scene.App.Load(), support::SceneEnded);

  ASSERT_EQ(scene.Dialogs.Shown.size(), 1U);
  EXPECT_THAT(scene.LastBox().Text, HasSubstr("resolution of the screen"));
}

TEST(StartUpOrder, LetsEventsRunBetweenTheFormsSetUpAndTheInformationPage) {
  Scene scene;
  auto& errors = scene.Main.StatusBar1.Panels[3].Text;
  errors = "12";
  std::string seen;
  std::string firstRow = "not seen";
  // The last control that the form's set-up writes.
  scene.Main.sevOption1[0].Value.Observe([&] {
    scene.Events.AtPump(1, [&] {
      seen = errors;
      firstRow = scene.Main.Label1[0].Caption;
    });
  });

  scene.App.Load();

  EXPECT_EQ(seen, "12");
  EXPECT_EQ(firstRow, "");
  EXPECT_EQ(errors, "");
}

TEST(StartUpOrder, ListsTheAdaptersBeforeThePrinters) {
  Scene scene;
  std::vector<std::string> lists;
  scene.Main.Combo1.ListIndex.Observe([&] { lists.push_back("adapter chosen"); });
  scene.Main.Combo2.ListIndex.Observe([&] {
    if (scene.Main.Combo2.ListIndex >= 0) lists.push_back("printer chosen");
  });

  scene.App.Load();

  EXPECT_THAT(lists, ElementsAre("adapter chosen", "printer chosen"));
}

TEST(StartUp, OnTheRecorderWithoutItsFolderSaysSoOnceAndLandsOnTheSetup) {
  Scene scene;
  scene.Store.Texts["MainActiveTab"] = "5";
  scene.Store.Texts["Path of stored data"] = "d:\\gone";
  int focused = 0;
  scene.Main.Text1[3].SetFocus = [&] { ++focused; };

  scene.App.Load();

  ASSERT_EQ(scene.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(scene.LastBox().Text,
            "The given path under 'Setup' is not available!\r\n"
            "Please check the specified path for errors.");
  EXPECT_EQ(scene.Main.TabStrip1.SelectedTab, forms::tab::Setup);
  EXPECT_EQ(scene.Settings.MainActiveTab, forms::tab::Setup);
  EXPECT_EQ(scene.Store.Texts["MainActiveTab"], "7");
  EXPECT_EQ(focused, 1);
  EXPECT_THAT(scene.Files.Made, IsEmpty());
}

TEST(StartUp, NamesTheSettingsFileWhereAStoredChoiceIsOutsideOfItsList) {
  Scene scene;
  scene.Store.Texts["UnitCurrent"] = "7";

  const platform::Failure failure = support::RaisedBy([&] { scene.App.Load(); });

  EXPECT_EQ(failure.Number(), platform::failure::InvalidPropertyValue);
  EXPECT_THAT(failure.Text(),
              AllOf(HasSubstr("Invalid property value\r\n"),
                    HasSubstr("A stored setting is outside of what the program can take."),
                    HasSubstr("Settings file: settings of Vornik")));
}

TEST(StoredData, OfANewUserLiesInTheHomeAndIsMade) {
  Scene scene;
  scene.Files.LeaveWindows();

  scene.App.Load();
  scene.Select(forms::tab::Recorder);

  EXPECT_THAT(scene.Files.Made, ElementsAre("/home/user/StoredData"));
  EXPECT_THAT(scene.Dialogs.Shown, IsEmpty());
  EXPECT_EQ(scene.Main.Text1[3].Text, "/home/user/StoredData");
  EXPECT_EQ(scene.Store.Texts["Path of stored data"], "/home/user/StoredData");
  EXPECT_EQ(scene.Main.Label10[1].Caption,
            "/home/user/StoredData/SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')");
}

TEST(StoredData, OffWindowsTakesThePlaceOfAStoredDriveDefault) {
  Scene scene;
  scene.Files.LeaveWindows();
  scene.Store.Texts["Path of stored data"] = "c:\\StoredData";

  scene.App.Load();

  EXPECT_EQ(scene.Settings.StoragePath, "/home/user/StoredData");
}

TEST(StoredData, OnWindowsStaysOnItsDriveAndIsMade) {
  Scene scene;
  scene.Files.Folders.clear();

  scene.App.Load();

  EXPECT_EQ(scene.Settings.StoragePath, "c:\\StoredData");
  EXPECT_THAT(scene.Files.Made, ElementsAre("c:\\StoredData"));
}

TEST(StoredData, OfTheUsersOwnChoiceIsNotMade) {
  Scene scene;
  scene.Files.LeaveWindows();
  scene.Store.Texts["Path of stored data"] = "/media/stick";

  scene.App.Load();

  EXPECT_THAT(scene.Files.Made, IsEmpty());
  EXPECT_EQ(scene.Settings.StoragePath, "/media/stick");
}

TEST(StoredData, ShowsOnTheRecorderInTheWritingOfThePlatform) {
  Scene scene;
  scene.Files.LeaveWindows();
  scene.Files.Folders = {"d:\\records"};
  scene.Files.NativePaths["d:\\records"] = "/home/user/records";
  scene.Store.Texts["Path of stored data"] = "d:\\records";
  scene.App.Load();

  scene.Select(forms::tab::Recorder);

  EXPECT_EQ(scene.Main.Label10[1].Caption,
            "/home/user/records/SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')");
  EXPECT_EQ(scene.Main.Label10[4].Caption,
            "/home/user/records/2_SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')");
}

}  // namespace
