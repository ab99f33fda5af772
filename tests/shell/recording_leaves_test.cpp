#include "shell/tab_scene.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using std::chrono_literals::operator""s;
namespace format = forms::record_format;

constexpr const char* TooManyErrors = "To much errors in the captured sequence";

/// What stands on disk behind a recording, as docs/recordings.md tells it.
class Leaves : public shell_tests::TabScene {
 protected:
  Leaves() { scene.Select(forms::tab::Recorder); }

  void TakeBoth() { main.Text1[forms::setup_field::Content2].Text = "MU02"; }
  void Choose(std::size_t chosen) { main.Option2[chosen].Value = true; }
  /// Presses RUN, with the frame that tells the length of all.
  void Run(const support::FrameBytes& first = support::SvFrame("MU01").Bytes()) {
    main.CWButton3.Value = true;
    scene.Receive(first);
  }
  void Stop() { main.CWButton3.Value = false; }
  void Frames(int count, const std::function<int(int)>& number) {
    scene.Receive(count, [&](int i) {
      return support::SvFrame("MU01")
          .AllRaw(1000)
          .Count(static_cast<std::uint16_t>(number(i)))
          .Bytes();
    });
  }
  /// Whole seconds of the first stream.
  void Seconds(int count) {
    Frames(count * 4000, [](int i) { return i % 4000; });
  }
  void SecondsOfBoth(int count) {
    for (int i = 0; i < count * 4000; ++i) {
      for (const char* id : {"MU01", "MU02"}) {
        scene.Receive(support::SvFrame(id)
                          .AllRaw(id[3] == '1' ? 1000 : 2000)
                          .Count(static_cast<std::uint16_t>(i % 4000))
                          .Bytes());
      }
    }
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& [path, content] : scene.Files.Stored) {
      if (!support::IsEventsFile(path)) names.push_back(path.substr(folder_.size()));
    }
    return names;
  }
  const std::string& Content(const std::string& name) const {
    return scene.Files.Stored.at(folder_ + name);
  }
  static std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0, end; (end = text.find("\r\n", begin)) != std::string::npos;) {
      lines.push_back(text.substr(begin, end - begin));
      begin = end + 2;
    }
    return lines;
  }

  const std::string folder_ = "c:\\StoredData\\";
  const std::string text_ = "SV record 09.03.2024 14-05-07.txt";
  const std::string sheet_ = "SV record 09.03.2024 14-05-07.xls";
  const std::string data_ = "SV record 09.03.2024 14-05-07.dat";
  const std::string config_ = "SV record 09.03.2024 14-05-07.cfg";
};

TEST_F(Leaves, ALogBehindOneStream) {
  Run();
  Seconds(1);
  Stop();
  EXPECT_THAT(Names(), ElementsAre("Errorlog " + text_, text_));
}

TEST_F(Leaves, NoLogBehindTwoStreams) {
  TakeBoth();
  Run();
  SecondsOfBoth(1);
  Stop();
  EXPECT_THAT(Names(), ElementsAre("1_" + text_, "2_" + text_, text_));
  EXPECT_EQ(Content(text_), "");
}

TEST_F(Leaves, NoLogBehindAStreamOfSixtyHertz) {
  Run();
  Frames(8000, [](int i) { return i % 4800; });
  Stop();
  EXPECT_THAT(Names(), ElementsAre(text_));
  EXPECT_THAT(scene.LastBox().Text, StartsWith(TooManyErrors));
}

TEST_F(Leaves, NoLogBehindFramesThatComeTwice) {
  Run();
  Frames(4000, [](int i) { return i / 2; });
  Stop();
  EXPECT_THAT(Names(), ElementsAre(text_));
  EXPECT_THAT(scene.LastBox().Text, StartsWith(TooManyErrors));
  EXPECT_THAT(LinesOf(Content(text_)), SizeIs(4000));
}

TEST_F(Leaves, NoLogWhereTheLastFrameHasLessThanAHundredBytes) {
  // Four channels and a short ID, with what a stream of four needs behind its samples.
  const auto frame = [](int i) {
    return support::SvFrame("MU01")
        .Channels(4)
        .Trailer(std::vector<std::uint8_t>(5))
        .Count(static_cast<std::uint16_t>(i % 4000))
        .Bytes();
  };
  ASSERT_LT(frame(0).size(), 100U);
  Run();
  Seconds(1);
  scene.Receive(frame(0));
  Stop();
  EXPECT_THAT(Names(), ElementsAre(text_));
  EXPECT_THAT(scene.Dialogs.Shown, IsEmpty());
}

TEST_F(Leaves, ALogOfTheWholeLinesOfAFullDisk) {
  scene.Disk.FailingWrite = 2;
  Run();
  Seconds(2);
  EXPECT_THAT(scene.LastBox().Text, StartsWith("Disk full."));
  EXPECT_THAT(Names(), ElementsAre("Errorlog " + text_, text_));
  const std::vector<std::string> lines = LinesOf(Content(text_));
  EXPECT_GT(lines.size(), 4000U);
  EXPECT_LT(lines.size(), 8000U);
  EXPECT_THAT(
      Content("Errorlog " + text_),
      HasSubstr("Count of received samples        : " + std::to_string(lines.size()) + "\r\n"));
}

TEST_F(Leaves, TheSecondFilesNumbersInStepsOf3600) {
  TakeBoth();
  Run();
  SecondsOfBoth(3);
  const std::vector<std::string> lines = LinesOf(Content("2_" + text_));
  ASSERT_THAT(lines, SizeIs(12'000));
  EXPECT_THAT(lines[0], StartsWith("0;0;2;"));
  EXPECT_THAT(lines[3999], StartsWith("3999;3999;2;"));
  EXPECT_THAT(lines[4000], StartsWith("3600;0;2;"));
  EXPECT_THAT(lines[8000], StartsWith("7200;0;2;"));
}

TEST_F(Leaves, NumbersThatGoOnBehindAChangeOfTheTab) {
  Run();
  Seconds(2);
  scene.Select(forms::tab::Values);
  EXPECT_THAT(Names(), ElementsAre(text_));

  scene.Select(forms::tab::Recorder);
  scene.Files.Stored.clear();
  Run();
  Seconds(1);
  EXPECT_THAT(Content(text_), StartsWith("8000;0;"));
  Stop();
  scene.Files.Stored.clear();
  Run();
  Seconds(1);
  EXPECT_THAT(Content(text_), StartsWith("0;0;")) << "behind a STOP they begin anew";
}

TEST_F(Leaves, HalfAConfigurationBehindAChangeOfTheTab) {
  Choose(format::Comtrade);
  Run();
  Seconds(1);
  scene.Select(forms::tab::Values);
  EXPECT_THAT(Names(), ElementsAre(config_, data_));
  EXPECT_THAT(LinesOf(Content(config_)), SizeIs(12));
}

TEST_F(Leaves, ASheetWithItsRowsBehindAChangeOfTheTab) {
  Choose(format::Worksheet);
  Run();
  Seconds(1);
  scene.Select(forms::tab::Values);
  EXPECT_THAT(Names(), ElementsAre(sheet_));
  EXPECT_GT(Content(sheet_).size(), 4000U * 9 * 19);
}

TEST_F(Leaves, TheFilesAsTheyStandAtTheEndOfTheProgram) {
  Choose(format::Worksheet);
  Run();
  Seconds(1);
  scene.App.CloseFiles();
  EXPECT_THAT(Content(sheet_), EndsWith(std::string("\x0A\0\0\0", 4))) << "the sheet is finished";
  EXPECT_THAT(scene.Links.Opened, IsEmpty());
}

TEST_F(Leaves, AnEmptyTextBehindARunWithoutData) {
  main.CWButton3.Value = true;
  scene.Elapse(2s);
  EXPECT_THAT(Names(), ElementsAre(text_));
  EXPECT_EQ(Content(text_), "");
  EXPECT_THAT(scene.Dialogs.Shown, IsEmpty());
}

TEST_F(Leaves, NoSheetBehindARunWithoutData) {
  Choose(format::Worksheet);
  main.CWButton3.Value = true;
  scene.Elapse(2s);
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Leaves, TheEndOfAConfigurationBehindARunWithoutData) {
  Choose(format::Comtrade);
  main.CWButton3.Value = true;
  scene.Elapse(2s);
  EXPECT_THAT(Names(), ElementsAre(config_));
  EXPECT_THAT(LinesOf(Content(config_)), SizeIs(5));
}

TEST_F(Leaves, ThreeConfigurationsBehindTwoStreams) {
  Choose(format::Comtrade);
  TakeBoth();
  Run();
  SecondsOfBoth(1);
  Stop();
  EXPECT_THAT(Names(),
              ElementsAre("1_" + config_, "1_" + data_, "2_" + config_, "2_" + data_, config_));
  EXPECT_THAT(LinesOf(Content("1_" + config_)), SizeIs(12));
  EXPECT_THAT(LinesOf(Content(config_)), SizeIs(5));
  EXPECT_THAT(LinesOf(Content("2_" + data_))[1], StartsWith("1,0.25,1,"))
      << "the values of the first stream";
}

TEST_F(Leaves, NoConfigurationsHeadWithOtherSamplings) {
  Choose(format::Comtrade);
  main.Text1[forms::setup_field::Samplings].Text = "200";
  Run();
  Seconds(1);
  Stop();
  EXPECT_THAT(LinesOf(Content(config_)), SizeIs(5));
}

TEST_F(Leaves, ADurationOfNineTenths) {
  Run();
  Seconds(10);
  EXPECT_EQ(main.Label10[forms::record_line::Progress].Caption, "9s / 36000 samples");
  EXPECT_THAT(main.OnDisk[0].Caption, StartsWith("stream 1: 10 whole rings, "));
}

}  // namespace
