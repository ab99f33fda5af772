#include "shell/tab_scene.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// Recordings that another tab has ended, and the check of them, in the whole program.
class CheckedLater : public shell_tests::TabScene {
 protected:
  CheckedLater() { scene.Select(forms::tab::Recorder); }

  /// RUN, and whole seconds of the first stream.
  void Record(int seconds) {
    main.CWButton3.Value = true;
    scene.Receive(support::SvFrame("MU01").Bytes());
    scene.Receive(seconds * 4000, [](int i) {
      return support::SvFrame("MU01").Count(static_cast<std::uint16_t>(i % 4000)).Bytes();
    });
  }
  bool Offered() const { return main.CheckRecording.Visible; }
  const std::string& Line() const { return main.CheckLine.Caption; }

  const std::string name_ = "SV record 09.03.2024 14-05-07.txt";
};

TEST_F(CheckedLater, AreOfferedWhenThePageIsEnteredAgain) {
  EXPECT_FALSE(Offered());
  Record(2);
  scene.Select(forms::tab::Values);
  EXPECT_FALSE(Offered());
  EXPECT_FALSE(main.CheckLine.Visible);
  scene.Select(forms::tab::Recorder);
  ASSERT_TRUE(Offered());
  EXPECT_EQ(Line(), name_ + " of 09.03.2024 14:05:07 has no log.");
  main.CheckRecording.Click();
  EXPECT_EQ(Line(), "1 file checked: 0 samples lost. Its log is in the data folder.");
  EXPECT_THAT(scene.Files.Stored.at("c:\\StoredData\\Checklog " + name_),
              HasSubstr("Count of received samples        : 8000\r\n"));
  scene.Select(forms::tab::Values);
  scene.Select(forms::tab::Recorder);
  EXPECT_FALSE(Offered());
}

TEST_F(CheckedLater, AreOfferedBehindAPressOnTheShownTab) {
  Record(1);
  EXPECT_FALSE(Offered());
  main.TabStrip1.Changed();
  EXPECT_TRUE(Offered());
}

TEST_F(CheckedLater, AreAwayFromTheFirstFrameOfTheNextRecordingOn) {
  Record(1);
  main.TabStrip1.Changed();
  scene.Calendar.Present.Minute = 6;
  Record(1);
  EXPECT_FALSE(Offered());
  main.CheckRecording.Click();
  EXPECT_EQ(scene.Files.Stored.count("c:\\StoredData\\Checklog " + name_), 0U);
  main.CWButton3.Value = false;
  EXPECT_THAT(Line(), StartsWith(name_)) << "the later one has its log";
}

TEST_F(CheckedLater, AreNotLookedForInAFolderThatIsNotThere) {
  Record(1);
  main.TabStrip1.Changed();
  scene.Files.Folders.clear();
  const int before = scene.Disk.Lists;
  main.TabStrip1.Changed();
  EXPECT_EQ(main.TabStrip1.SelectedTab, forms::tab::Setup);
  EXPECT_EQ(scene.Disk.Lists, before);
  EXPECT_FALSE(Offered());
}

TEST_F(CheckedLater, LookThroughTheFolderOnceAnEntryAndNeverInARun) {
  scene.Select(forms::tab::Values);
  const int before = scene.Disk.Lists;
  scene.Select(forms::tab::Recorder);
  EXPECT_EQ(scene.Disk.Lists, before + 1);
  Record(3);
  EXPECT_EQ(scene.Disk.Lists, before + 1);
  main.CWButton3.Value = false;
  EXPECT_EQ(scene.Disk.Lists, before + 2);
}

TEST_F(CheckedLater, AreWholeOnDiskBeforeThePageSaysSo) {
  scene.Sync.Lags = true;
  Record(2);
  scene.Select(forms::tab::Values);
  scene.Elapse(std::chrono::milliseconds(300));
  EXPECT_EQ(main.OnDisk[0].Caption, "stream 1: 2 whole rings being written to the disk");
  scene.Sync.Work();
  scene.Elapse(std::chrono::milliseconds(300));
  EXPECT_THAT(main.OnDisk[0].Caption.Get(), StartsWith("stream 1: 2 whole rings, "));
  EXPECT_THAT(main.OnDisk[0].Caption.Get(), EndsWith(" kB on disk"));
}

}  // namespace
