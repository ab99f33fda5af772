// A recording whose folder, medium or file is lost, with the real log and quick view behind it.

#include <filesystem>
#include <system_error>

#include "recorder/recorder_bench.h"
#include "support/real_files.h"

namespace recorder_tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class LostRecording : public testing::Test {
 protected:
  /// RUN, and a ring of each stream.
  void Record(const std::string& format, bool both = false) {
    if (both) bench.TakeBoth();
    bench.Run(format);
    bench.Frames(1);
    bench.Fill(0);
    bench.WriteRing(0);
    if (both) bench.WriteRing(1);
  }
  const std::string& Line() const { return bench.Main.NotStored.Caption; }
  /// The page as it is between two recordings.
  void ExpectRest() {
    EXPECT_FALSE(bench.Main.CWButton3.Value);
    EXPECT_FALSE(bench.State.CaptureRunning);
    EXPECT_FALSE(bench.State.LookingForRecording);
    EXPECT_FALSE(bench.State.RecorderBusy);
    for (const auto& format : bench.Main.Option2) EXPECT_TRUE(format.Enabled);
    EXPECT_EQ(bench.Caption(forms::record_line::Progress).find("analysis"), std::string::npos);
  }
  /// A recording behind it stands on disk as if nothing had been.
  void ExpectNextIsStored() {
    bench.Disk.Refusal = 0;
    bench.BringFolderBack();
    bench.Files.Stored.clear();
    bench.Calendar.Present.Second = 8;
    bench.Present.StreamCount = 1;
    bench.Run("TXT");
    bench.WriteRing(0);
    EXPECT_THAT(Lines(bench.Content("SV record 09.03.2024 14-05-08.txt")), SizeIs(4000));
    EXPECT_TRUE(bench.Main.CWButton3.Visible);
    EXPECT_EQ(Line(), "");
  }

  ReadingBench bench;
};

TEST_F(LostRecording, LeavesLogAndQuickViewOutWhereItsFolderIsGone) {
  Record("TXT");
  bench.LoseFolder();
  EXPECT_NO_THROW(bench.Stop());
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
  EXPECT_EQ(bench.Times("log") + bench.Times("view"), 0);
  EXPECT_TRUE(bench.Main.Command9.Visible);
  EXPECT_EQ(Line(),
            "stream 1: not stored since 09.03.2024 14:05:07: File not found; 1 ring lost before. "
            "Log and quick view are left out.");
  EXPECT_THAT(bench.Names(), IsEmpty());
  ExpectRest();
  ExpectNextIsStored();
}

TEST_F(LostRecording, LeavesLogAndQuickViewOutWhereItsFileAloneIsGone) {
  Record("TXT");
  bench.Files.Stored.clear();
  bench.Stop();
  EXPECT_THAT(Line(), HasSubstr("Log and quick view are left out."));
  EXPECT_THAT(bench.Names(), IsEmpty()) << "no empty file stands in its place";
  ExpectRest();
}

TEST_F(LostRecording, OfTwoStreamsIsNotReadWhereItsMediumCannotBeWritten) {
  Record("TXT", true);
  bench.Disk.Refusal = 70;
  EXPECT_NO_THROW(bench.Stop());
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
  EXPECT_EQ(Line(), "Log and quick view are left out: Permission denied. " + WhereTotalsStand);
  EXPECT_THAT(bench.Names(), ElementsAre("1_" + Started + ".txt", "2_" + Started + ".txt"));
  ExpectRest();
  ExpectNextIsStored();
}

TEST_F(LostRecording, OfTwoStreamsTellsWhichFilesAreGone) {
  Record("TXT", true);
  bench.LoseFolder();
  EXPECT_NO_THROW(bench.Stop());
  EXPECT_EQ(Line(),
            "stream 1: not stored since 09.03.2024 14:05:07: File not found; 1 ring lost before. "
            "stream 2: not stored since 09.03.2024 14:05:07: File not found; 1 ring lost before. "
            "Log and quick view are left out: Path not found.");
  ExpectRest();
}

TEST_F(LostRecording, TellsOfAQuickViewThatFails) {
  Record("TXT");
  bench.Disk.FailingRead = 3;
  bench.Disk.Number = 57;
  EXPECT_NO_THROW(bench.Stop());
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
  EXPECT_EQ(Line(), "The quick view is left out: Device I/O error.");
  EXPECT_FALSE(bench.Main.ProgressBar1.Visible);
  ExpectRest();
  ExpectNextIsStored();
}

TEST_F(LostRecording, WithAFullDiskInTheEventOfAFrameIsWrittenOnceAndToldOnce) {
  bench.TakeBoth();
  bench.Run("TXT");
  bench.Frames(3999);
  bench.Disk.FailingWrite = 1;
  bench.Dialogs.WhileOpen = [&] { bench.Disk.Refusal = 61; };
  bench.Frames(1, "MU01", 3999);
  ASSERT_THAT(bench.Dialogs.Shown, SizeIs(1));
  EXPECT_THAT(bench.Dialogs.Shown[0].Text, HasSubstr("Disk full."));
  EXPECT_EQ(bench.Disk.Writes, 1);
  EXPECT_EQ(Line(), "Log and quick view are left out: Disk full. " + WhereTotalsStand);
  ExpectRest();
  ExpectNextIsStored();
}

TEST_F(LostRecording, DoesNotPraiseADataFileThatIsGone) {
  Record("COMTRADE");
  bench.LoseFolder();
  bench.Stop();
  ASSERT_THAT(bench.Dialogs.Shown, SizeIs(1));
  EXPECT_EQ(bench.Dialogs.Shown[0].Text, "The file " + RecorderBench::Path(Started + ".cfg") +
                                             " is incomplete.\r\nPath not found.\r\n"
                                             "The data file is gone, too.");
  EXPECT_THAT(Line(), HasSubstr("stream 1: not stored since"));
  ExpectRest();
}

TEST_F(LostRecording, DoesNotPraiseADataFileThatNeverWas) {
  bench.Run("COMTRADE");
  bench.LoseFolder();
  bench.WriteRing(0);
  bench.Stop();
  ASSERT_THAT(bench.Dialogs.Shown, SizeIs(1));
  EXPECT_THAT(bench.Dialogs.Shown[0].Text, testing::EndsWith("\r\nNo samples were stored."));
}

TEST_F(LostRecording, TellsBesideTheBoxThatThereIsNoWorksheet) {
  bench.Run("EXCEL");
  bench.Links.Code = platform::open_code::FileNotFound;
  bench.Stop();
  ASSERT_THAT(bench.Dialogs.Shown, SizeIs(1)) << "which calls it stored properly";
  EXPECT_EQ(Line(), "No ring was stored, so there is no worksheet.");
}

/// Another failure than a full disk leaves the files' number taken for the rest of a recording.
class BehindAFailure : public LostRecording, public testing::WithParamInterface<const char*> {
 protected:
  void Fail() {
    Record(GetParam());
    bench.Disk.FailingWrite = bench.Disk.Writes + 1;
    bench.Disk.Number = 57;
    bench.WriteRing(0, 18);
    bench.WriteRing(0, 27);
    EXPECT_TRUE(bench.Writing.Open.IsOpen(packetroutines::TextFile));
  }
};

TEST_P(BehindAFailure, ANextRecordingIsStored) {
  Fail();
  bench.Stop();
  ExpectNextIsStored();
}

TEST_P(BehindAFailure, ANextRecordingIsStoredWhereTheTabWasChanged) {
  Fail();
  bench.Acquisition.StopCapture();
  bench.Core.Run.ClearModes();
  bench.State.RecorderBusy = true;
  bench.Main.CWButton3.Value = false;
  bench.State.RecorderBusy = false;
  ++bench.State.PagesLeft;
  ExpectNextIsStored();
}

INSTANTIATE_TEST_SUITE_P(Formats, BehindAFailure, testing::Values("TXT", "COMTRADE"));

TEST_F(LostRecording, OfTwoStreamsBehindAFailureLeavesANextOneThatIsStored) {
  Record("TXT", true);
  bench.Disk.FailingWrite = bench.Disk.Writes + 1;
  bench.Disk.Number = 57;
  bench.WriteRing(0);
  bench.Stop();
  ExpectNextIsStored();
}

/// The same on the disk of this computer, where a file that was deleted takes writes still.
class OnARealDisk : public testing::Test {
 protected:
  OnARealDisk() { bench.Settings.StoragePath = folder; }

  /// False where the system keeps a file that is open in its place, as a worksheet is.
  bool LoseFolder() const {
    std::error_code refused;
    std::filesystem::remove_all(folder, refused);
    return !refused;
  }
  static constexpr const char* StaysInPlace = "this system takes no file away while it is open";

  support::TemporaryFolder above;
  const std::string folder = above.File("stick");
  support::RealFiles files;
  ReadingBench bench{&files};
};

TEST_F(OnARealDisk, TellsOfAWorksheetThatIsGone) {
  std::filesystem::create_directory(folder);
  bench.Run("EXCEL");
  bench.WriteRing(0);
  EXPECT_TRUE(bench.Main.OnDisk[0].Caption.Get().starts_with("stream 1: 1 whole ring"));
  if (!LoseFolder()) GTEST_SKIP() << StaysInPlace;
  bench.WriteRing(0);
  EXPECT_EQ(bench.Main.NotStored.Caption,
            "stream 1: not stored since 09.03.2024 14:05:07: File not found; 1 ring lost before.");
  EXPECT_EQ(bench.Main.OnDisk[0].Caption, "");
  bench.Stop();
  EXPECT_THAT(bench.Main.NotStored.Caption.Get(),
              testing::EndsWith("lost before. The worksheet is not opened for viewing."));
  EXPECT_THAT(bench.Links.Opened, IsEmpty());
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

TEST_F(OnARealDisk, StopsWithTheFolderGone) {
  std::filesystem::create_directory(folder);
  for (const char* format : {"TXT", "COMTRADE", "EXCEL"}) {
    std::filesystem::create_directory(folder);
    bench.Run(format);
    bench.WriteRing(0);
    if (!LoseFolder()) GTEST_SKIP() << "a worksheet: " << StaysInPlace;
    EXPECT_NO_THROW(bench.Stop()) << format;
    EXPECT_FALSE(std::filesystem::exists(folder)) << format;
    EXPECT_THAT(bench.Main.NotStored.Caption.Get(), HasSubstr("1 ring lost before")) << format;
  }
}

TEST_F(OnARealDisk, TellsThatRingsAreStoredAgainAndWhichAreNot) {
  std::filesystem::create_directory(folder);
  bench.Run("TXT");
  bench.WriteRing(0);
  std::filesystem::remove_all(folder);
  bench.WriteRing(0);
  std::filesystem::create_directory(folder);
  bench.Calendar.Present.Second = 9;
  bench.WriteRing(0);
  EXPECT_EQ(bench.Main.NotStored.Caption,
            "stream 1: stored again since 09.03.2024 14:05:09; 2 rings lost: File not found.");
  EXPECT_TRUE(bench.Main.OnDisk[0].Caption.Get().starts_with("stream 1: 1 whole ring, "));
}

}  // namespace
}  // namespace recorder_tests
