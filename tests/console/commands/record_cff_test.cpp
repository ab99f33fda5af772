#include "console/commands/cff_scene.h"
#include "support/failing_files.h"

namespace console {
namespace {

using namespace std::chrono_literals;
using support::SvFrame;
using testing::HasSubstr;

TEST_F(RecordCffScene, KeepsTheNumbersOfTheWire) {
  Taps.SendRun(SvFrame("MU01").Raw(0, -1234).Raw(7, 2'000'000'000), 0, 8000, 250us);

  EXPECT_EQ(Record(), ExitCode::Done);

  EXPECT_EQ(Names(), std::vector{Name});
  EXPECT_EQ(Results.str(), Data + "/" + Name + "\n");
  const Single file = Read(Name);
  EXPECT_EQ(file.Head[1].substr(0, 5), "MU01,");
  EXPECT_THAT(file.Head, testing::Contains("4000,8000"));
  EXPECT_EQ(file.Samples(), 8000U);
  EXPECT_EQ(file.Value(7999, 0), -1234);
  EXPECT_EQ(file.Value(0, 7), 2'000'000'000);
  EXPECT_EQ(Notes.str(), "");
}

TEST_F(RecordCffScene, NamesCurrentsAndVoltagesWithTheirUnits) {
  Taps.SendRun(SvFrame("MU01"), 0, 8000, 250us);
  Record();
  const Single file = Read(Name);
  const std::string ampere = ",,A,0.001,0,0,-2147483647,2147483647,1,1,P";
  const std::string volt = ",,V,0.01,0,0,-2147483647,2147483647,1,1,P";
  EXPECT_THAT(std::vector(file.Head.begin() + 3, file.Head.begin() + 11),
              testing::ElementsAre("1,Ia,A" + ampere, "2,Ib,B" + ampere, "3,Ic,C" + ampere,
                                   "4,In,N" + ampere, "5,Va,A" + volt, "6,Vb,B" + volt,
                                   "7,Vc,C" + volt, "8,Vn,N" + volt));
}

TEST_F(RecordCffScene, HoldsStreamsOfOtherRatesAndChannels) {
  for (std::uint32_t i = 0; i < 9600; i += 2) {
    Taps.Send(SvFrame("MU01").Count(static_cast<std::uint16_t>(i % 4800)).Asdus(2).Channels(12),
              std::chrono::microseconds(i % 12 == 0 ? 420 : 416));
  }

  EXPECT_EQ(Record({"--station", "MU01", "--frequency", "60"}), ExitCode::Done);

  const Single file = Read(Name);
  EXPECT_EQ(file.Head[2], "12,12A,0D");
  EXPECT_THAT(file.Head, testing::Contains("4800,9600"));
  EXPECT_EQ(file.Samples(), 9600U);
  EXPECT_EQ(file.Value(5, 11), 0x55555555);
}

TEST_F(RecordCffScene, LostSamplesKeepTheirPlaces) {
  Taps.SendRun(SvFrame("MU01").Raw(0, 5), 0, 4000, 250us);
  Taps.SendRun(SvFrame("MU01").Raw(0, 6), 4010, 6000, 250us);
  // Half a second and ten samples of silence.
  Taps.Send(SvFrame("MU01").Raw(0, 7).Count(10), 502'750us);
  Taps.SendRun(SvFrame("MU01").Raw(0, 7), 11, 500, 250us);

  EXPECT_EQ(Record(), ExitCode::Done);

  const Single file = ReadOnly();
  EXPECT_EQ(file.Value(3999, 0), 5);
  EXPECT_EQ(file.Value(4000, 0), MissingValue);
  EXPECT_EQ(file.Value(4009, 0), MissingValue);
  EXPECT_EQ(file.Value(4010, 0), 6);
  EXPECT_EQ(file.Value(5999, 0), 6);
  EXPECT_EQ(file.Value(6000, 0), MissingValue);
  EXPECT_EQ(file.Value(8009, 0), MissingValue);
  EXPECT_EQ(file.Value(8010, 0), 7);
  EXPECT_EQ(file.Samples(), 8500U);
  EXPECT_EQ(Notes.str(),
            "vornik-cli: 2020 samples of MU01 were lost; they stand as missing, or between two "
            "files.\n");
}

TEST_F(RecordCffScene, SamplesThatCameTwiceOrLateStandInTheirPlaces) {
  Taps.SendRun(SvFrame("MU01").Raw(0, 5), 0, 500, 250us);
  Taps.Send(SvFrame("MU01").Raw(0, 5).Count(499), 10us);
  Taps.Send(SvFrame("MU01").Raw(0, 9).Count(501), 200us);
  Taps.Send(SvFrame("MU01").Raw(0, 8).Count(500), 10us);
  Taps.SendRun(SvFrame("MU01").Raw(0, 5), 502, 1000, 250us);

  Record();

  const Single file = Read(Name);
  EXPECT_EQ(file.Samples(), 1000U);
  EXPECT_EQ(file.Value(500, 0), 8);
  EXPECT_EQ(file.Value(501, 0), 9);
}

TEST_F(RecordCffScene, TheCounterOfASynchronisedSenderTellsTheMomentBetterThanTheArrival) {
  Taps.SendRun(SvFrame("MU01").Synch(2), 3000, 4000, 250us);
  for (support::PlayedTaps::Frame& frame : Taps.Frames) frame.Arrived += 1'234us;
  Record();
  EXPECT_THAT(Read(Names().at(0)).Head, testing::Contains("09/03/2024,14:05:06.750000"));
}

TEST_F(RecordCffScene, TheArrivalTellsTheMomentOfOneThatIsNot) {
  Taps.SendRun(SvFrame("MU01").Synch(0), 3000, 4000, 250us);
  for (support::PlayedTaps::Frame& frame : Taps.Frames) frame.Arrived += 1'234us;
  Record();
  EXPECT_THAT(Read(Name).Head, testing::Contains("09/03/2024,14:05:07.001234"));
}

TEST_F(RecordCffScene, EachStationHasItsFileAndOthersHaveNone) {
  for (std::uint16_t i = 0; i < 400; ++i) {
    for (const char* id : {"MU01", "MU02", "MU03", "MU04"}) Taps.Send(SvFrame(id).Count(i), 62us);
  }

  EXPECT_EQ(
      Record({"--station", "MU01", "--station", "MU02", "--station", "MU03", "--station", "MU09"}),
      ExitCode::NothingReceived);

  EXPECT_EQ(Names(), (std::vector{"1_" + Name, "2_" + Name, "3_" + Name}));
  EXPECT_EQ(Notes.str(), "vornik-cli: nothing came of the station MU09.\n");
}

TEST_F(RecordCffScene, ANewFileGoesOnWithoutAMissingSample) {
  constexpr std::uint32_t Run = 100;
  for (std::uint32_t i = 0; i < 44'000; i += Run) {
    Taps.SendRun(SvFrame("MU01").Raw(0, static_cast<std::int32_t>(i / Run)), i, i + Run, 250us);
  }

  EXPECT_EQ(Record({"--station", "MU01", "--every", "5s"}), ExitCode::Done);

  std::uint32_t next = 0;
  for (const std::string& name : Names()) {
    const Single file = Read(name);
    for (std::size_t sample = 0; sample < file.Samples(); ++sample) {
      ASSERT_EQ(file.Value(sample, 0), static_cast<std::int32_t>(next++ / Run)) << name;
    }
  }
  EXPECT_EQ(next, 44'000U);
  EXPECT_EQ(Names().size(), 3U);
}

TEST_F(RecordCffScene, WhatWasStoredBeforeTheDiskFailedIsWhole) {
  support::FailingFiles failing(Files);
  failing.FailingWrite = 6;
  failing.AlsoBehind = true;
  const console::Machine weak = MachineWith(failing);
  Taps.SendRun(SvFrame("MU01").Raw(0, 5), 0, 40'000, 250us);
  const std::vector<const char*> words{"vornik-cli", "record",     "x.pcap",    "--format", "cff",
                                       "--folder",   Data.c_str(), "--station", "MU01"};

  EXPECT_EQ(console::Run(static_cast<int>(words.size()), words.data(), weak),
            ExitCode::FileTrouble);

  EXPECT_THAT(Notes.str(), HasSubstr("Disk full"));
  const Single file = Read(Name);
  EXPECT_GE(file.Samples(), 8000U);
  EXPECT_EQ(file.Value(7999, 0), 5);
}

TEST_F(RecordCffScene, WhatIsNotLikeTheFirstSampleIsLeftOutAndTold) {
  Taps.SendRun(SvFrame("MU01"), 0, 400, 250us);
  Taps.SendRun(SvFrame("MU01").Channels(4), 400, 403, 250us);
  Taps.SendRun(SvFrame("MU01"), 403, 800, 250us);
  Record();
  EXPECT_EQ(Read(Name).Samples(), 800U);
  EXPECT_THAT(Notes.str(), HasSubstr("3 samples of MU01 were left out"));
}

TEST_F(RecordCffScene, AHandfulOfSamplesIsARecordingToo) {
  Taps.SendRun(SvFrame("MU01").Raw(0, 5), 7, 10, 250us);
  EXPECT_EQ(Record(), ExitCode::Done);
  EXPECT_EQ(Read(Name).Samples(), 3U);
}

TEST_F(RecordCffScene, AThirdStationIsForThisFormatAlone) {
  EXPECT_EQ(Run({"record", "x.pcap", "--folder", Data, "--station", "A", "--station", "B",
                 "--station", "C"}),
            ExitCode::WrongUse);
  EXPECT_THAT(Notes.str(), HasSubstr("--format cff"));
}

}  // namespace
}  // namespace console
