#include "console/comtrade/comtrade_file.h"

#include <gtest/gtest.h>

#include <array>

#include "support/failing_files.h"
#include "support/failures.h"
#include "support/fake_services.h"

namespace console {
namespace {

/// A recording of one channel in a folder of a played computer.
struct FileScene {
  FileScene() {
    Files.LeaveWindows();
    Files.Folders.insert("/data");
    Head.Edition = ComtradeEdition::Of2013;
    Head.Form = ComtradeForm::Binary;
    Head.Channels = {{.Name = "Ia", .Phase = "A", .Unit = "A", .Greatest = 1}};
    Head.Start = {2026, 11, 21, 18, 4, 9};
  }
  ComtradeFile Begin(ComtradeFiles kind) { return {Files, Head, kind, "/data/a"}; }
  static void Add(ComtradeFile& file, int samples) {
    constexpr std::array<double, 1> Stored{1};
    for (int i = 0; i < samples; ++i) file.Add(Stored);
  }
  std::string Configuration(std::int64_t samples) {
    Head.Samples = samples;
    return ConfigurationText(Head);
  }
  const std::string& Content(const std::string& name) { return Files.Stored["/data/" + name]; }

  support::FakeFiles Files;
  ComtradeHead Head;
};

TEST(ComtradeFile, TellsInThePairHowManySamplesThereAre) {
  FileScene scene;
  ComtradeFile file = scene.Begin(ComtradeFiles::Pair);

  FileScene::Add(file, 3);
  file.AddMissing(2);
  file.Finish();

  EXPECT_EQ(scene.Content("a.cfg"), scene.Configuration(5));
  EXPECT_EQ(scene.Content("a.dat").size(), 50U);
  EXPECT_EQ(scene.Content("a.dat").substr(38),
            std::string("\x03\0\0\0\0\x80\x05\0\0\0\x04\0\0\0\0\x80", 16).substr(4));
}

TEST(ComtradeFile, IsWholeUpToWhatWasStoredLast) {
  FileScene scene;
  ComtradeFile file = scene.Begin(ComtradeFiles::Pair);
  EXPECT_EQ(scene.Content("a.cfg"), scene.Configuration(0)) << "who looks early meets no samples";

  FileScene::Add(file, 9);
  file.Store();
  FileScene::Add(file, 2);

  EXPECT_EQ(scene.Content("a.cfg"), scene.Configuration(9));
  EXPECT_EQ(scene.Content("a.dat").size(), 90U);
}

TEST(ComtradeFile, InOnePieceKeepsItsSamplesInPlaceWhileTheirNumberGrows) {
  FileScene scene;
  ComtradeFile file = scene.Begin(ComtradeFiles::Single);
  const std::size_t front = scene.Content("a.cff").size();

  FileScene::Add(file, 9);
  file.Store();
  FileScene::Add(file, 20'000);
  file.Finish();

  const std::string& content = scene.Content("a.cff");
  ASSERT_EQ(content.size(), front + 200'090);
  EXPECT_TRUE(content.starts_with("--- file type: CFG ---\r\n" + scene.Configuration(20'009) +
                                  "--- file type: INF ---\r\n--- file type: HDR ---\r\n"
                                  "Written by Vornik "));
  EXPECT_TRUE(content.substr(0, front).ends_with(" \r\n--- file type: DAT BINARY: 200090 ---\r\n"));
  EXPECT_EQ(content.substr(front, 4), std::string("\x01\0\0\0", 4));
}

TEST(ComtradeFile, InOnePieceTellsNoLengthOfLines) {
  FileScene scene;
  scene.Head.Form = ComtradeForm::Ascii;
  ComtradeFile file = scene.Begin(ComtradeFiles::Single);

  FileScene::Add(file, 2);
  file.Finish();

  EXPECT_TRUE(
      scene.Content("a.cff").ends_with("--- file type: DAT ASCII ---\r\n1,0,1\r\n2,1,1\r\n"));
}

TEST(ComtradeFile, HasRoomForTheLongestRecording) {
  FileScene scene;
  scene.Head.Form = ComtradeForm::Float32;
  scene.Head.Channels.assign(256, scene.Head.Channels[0]);
  ComtradeFile file = scene.Begin(ComtradeFiles::Single);
  const std::size_t front = scene.Content("a.cff").size();

  EXPECT_GE(front, scene.Configuration(SampleRows::MostSamples).size() +
                       std::string("--- file type: CFG ---\r\n--- file type: INF ---\r\n"
                                   "--- file type: HDR ---\r\nWritten by Vornik 2.3.5\r\n"
                                   "--- file type: DAT FLOAT32: 4432406248440 ---\r\n")
                           .size());
}

TEST(ComtradeFile, WritesWhatGathersBeforeItIsMuch) {
  FileScene scene;
  ComtradeFile file = scene.Begin(ComtradeFiles::Pair);

  FileScene::Add(file, 100'000);

  EXPECT_GT(scene.Content("a.dat").size(), 700'000U) << "memory does not grow with a recording";
}

TEST(ComtradeFile, TellsAFullDisk) {
  FileScene scene;
  support::FailingFiles failing(scene.Files);
  ComtradeFile file(failing, scene.Head, ComtradeFiles::Pair, "/data/a");
  failing.FailingWrite = failing.Writes + 1;
  FileScene::Add(file, 3);

  EXPECT_EQ(support::FailureOf([&] { file.Finish(); }), platform::failure::DiskFull);
}

}  // namespace
}  // namespace console
