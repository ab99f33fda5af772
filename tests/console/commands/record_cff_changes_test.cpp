#include "console/commands/cff_scene.h"
#include "support/failing_files.h"

namespace console {
namespace {

using namespace std::chrono_literals;
using support::SvFrame;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

/// What may happen to a stream, a clock and a disk while it is recorded.
class ChangingCffScene : public RecordCffScene {
 protected:
  /// The recording of `Samples` frames that wear their place in the first channel.
  void SendNumbered(std::uint32_t from, std::uint32_t to, std::chrono::microseconds gap,
                    std::uint32_t round = 4000) {
    for (std::uint32_t i = from; i < to; ++i) {
      Taps.Send(Numbered(i, round), gap);
    }
  }
  static SvFrame Numbered(std::uint32_t place, std::uint32_t round = 4000) {
    return SvFrame("MU01")
        .Raw(0, static_cast<std::int32_t>(place))
        .Count(static_cast<std::uint16_t>(place % round));
  }
};

TEST_F(ChangingCffScene, TheEndOfTheRoundTellsTheRateAndNotFramesThatWereHeldUp) {
  Taps.SendRun(SvFrame("MU01"), 0, 60, 1us, 14'400);
  Taps.SendRun(SvFrame("MU01"), 60, 28'800, 69us, 14'400);

  EXPECT_EQ(Record(), ExitCode::Done);

  EXPECT_THAT(ReadOnly().Head, Contains("14400,28800"));
  EXPECT_EQ(Notes.str(), "");
}

TEST_F(ChangingCffScene, FramesThatWereLateAtTheBeginMakeNoOtherRate) {
  // The frames at the ends of the rounds are lost.
  SendNumbered(0, 4, 250us);
  Taps.Send(Numbered(1400), 90ms);
  SendNumbered(1401, 3990, 250us);
  Taps.Send(Numbered(4010), 5ms);
  SendNumbered(4011, 7990, 250us);
  Taps.Send(Numbered(8010), 5ms);
  SendNumbered(8011, 10'000, 250us);

  Record();

  EXPECT_THAT(ReadOnly().Head, Contains("4000,10000"));
  EXPECT_EQ(ReadOnly().Value(9999, 0), 9999);
}

TEST_F(ChangingCffScene, AHoleAtTheEndOfTheFirstRoundMakesNoSmallerRate) {
  SendNumbered(0, 3900, 208us, 4800);
  Taps.Send(Numbered(4810, 4800), 189'600us);
  SendNumbered(4811, 8700, 208us, 4800);
  Taps.Send(Numbered(9610, 4800), 189'600us);
  SendNumbered(9611, 12'000, 208us, 4800);

  Record();

  EXPECT_THAT(ReadOnly().Head, Contains("4800,12000"));
  EXPECT_EQ(ReadOnly().Value(11'999, 0), 11'999);
}

class RateCffScene : public RecordCffScene, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(RateCffScene, IsThatOfTheCounterWhetherAStandardListsItOrNot) {
  const std::uint32_t rate = GetParam();
  const std::chrono::microseconds gap(1'000'000 / rate);
  Taps.SendRun(SvFrame("MU01"), rate / 2, 3 * rate, gap, rate);

  EXPECT_EQ(Record(), ExitCode::Done);

  const std::string expected = std::to_string(rate) + "," + std::to_string(3 * rate - rate / 2);
  EXPECT_THAT(ReadOnly().Head, Contains(expected));
  EXPECT_EQ(Notes.str(), "");
}

INSTANTIATE_TEST_SUITE_P(Rates, RateCffScene,
                         testing::Values(1000U, 2000U, 4800U, 6400U, 10'000U, 12'800U));

TEST_F(ChangingCffScene, ThePaceTellsTheRateOfAShortRun) {
  Taps.SendRun(SvFrame("MU01"), 0, 150, 208us, 4800);
  Record();
  EXPECT_THAT(ReadOnly().Head, Contains("4800,150"));
}

TEST_F(ChangingCffScene, ASampleThatWasLostAtTheEndOfTheRoundMakesNoOtherRate) {
  SendNumbered(2000, 3999, 250us);
  SendNumbered(4000, 12'000, 250us);
  Record();
  EXPECT_THAT(ReadOnly().Head, Contains("4000,10000"));
  EXPECT_EQ(ReadOnly().Value(1999, 0), MissingValue);
}

TEST_F(ChangingCffScene, WhatTheSenderTellsOfItsRateIsTaken) {
  // smpRate 400, smpMod 1: samples a second.
  const std::vector<std::uint8_t> told{0x86, 2, 0x01, 0x90, 0x88, 2, 0, 1};
  Taps.SendRun(SvFrame("MU01").FieldBehindSamples(told), 0, 12, 2500us, 400);
  Record();
  EXPECT_THAT(ReadOnly().Head, Contains("400,12"));
}

TEST_F(ChangingCffScene, AnotherRateIsAnotherFile) {
  Taps.SendRun(SvFrame("MU01"), 0, 8000, 250us, 4000);
  Taps.SendRun(SvFrame("MU01"), 0, 9600, 208us, 4800);

  EXPECT_EQ(Record(), ExitCode::Done);

  ASSERT_EQ(Names().size(), 2U);
  EXPECT_THAT(Read(Names()[1]).Head, Contains(HasSubstr("4800,")));
}

TEST_F(ChangingCffScene, ABrokenCounterEndsNothing) {
  Taps.SendRun(SvFrame("MU01"), 0, 6000, 250us);
  Taps.Send(SvFrame("MU01").Count(60'000), 10us);
  Taps.SendRun(SvFrame("MU01"), 6000, 12'000, 240us);
  Record();
  EXPECT_THAT(ReadOnly().Head, Contains("4000,12000"));
  EXPECT_THAT(Notes.str(), HasSubstr("1 samples of MU01 were left out"));
}

TEST_F(ChangingCffScene, AHoleOfARoundOrMoreEndsTheFileAndIsCounted) {
  SendNumbered(0, 6000, 250us);
  Taps.Send(Numbered(7000), 3600s + 250'250us);
  SendNumbered(7001, 9000, 250us);

  EXPECT_EQ(Record(), ExitCode::Done);

  ASSERT_EQ(Names(), (std::vector{Name, std::string("SV record 09.03.2024 15-05-08.cff")}));
  EXPECT_EQ(Read(Names()[0]).Samples(), 6000U);
  EXPECT_EQ(Read(Names()[1]).Samples(), 2000U);
  EXPECT_EQ(Read(Names()[1]).Value(0, 0), 7000);
  EXPECT_THAT(Notes.str(), HasSubstr("14401000 samples of MU01 were lost"));
}

TEST_F(ChangingCffScene, ASenderThatBeginsAnewBeginsAFile) {
  SendNumbered(0, 9234, 250us);
  SendNumbered(0, 6000, 250us);

  EXPECT_EQ(Record(), ExitCode::Done);

  ASSERT_EQ(Names().size(), 2U);
  EXPECT_EQ(Read(Names()[0]).Samples(), 9234U);
  EXPECT_EQ(Read(Names()[1]).Samples(), 6000U);
  EXPECT_EQ(Notes.str(), "");
}

TEST_F(ChangingCffScene, SamplesThatAreSwappedWhereAFileEndsStandInTheirPlaces) {
  // In the midst, and on both sides of the place where the next file begins.
  for (std::uint32_t i = 0; i < 20'000; ++i) {
    const std::uint32_t inPair = i % 2 == 0 ? i + 1 : i - 1;
    const bool shifted = i >= 10'000 && i < 19'999;
    const std::uint32_t place = !shifted ? inPair : (i % 2 == 0 ? i - 1 : i + 1);
    Taps.Send(Numbered(i == 10'000 || i == 19'999 ? i : place), 250us);
  }

  EXPECT_EQ(Record({"--station", "MU01", "--every", "2s"}), ExitCode::Done);

  std::vector<std::int32_t> all;
  for (const std::string& name : Names()) {
    const Single file = Read(name);
    for (std::size_t k = 0; k < file.Samples(); ++k) all.push_back(file.Value(k, 0));
  }
  EXPECT_EQ(Names().size(), 3U);
  EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
  EXPECT_THAT(all, Not(Contains(MissingValue)));
}

TEST_F(ChangingCffScene, AFileMayHoldPartsOfASecond) {
  SendNumbered(0, 24'000, 250us);
  Record({"--station", "MU01", "--every", "2.4s"});
  ASSERT_EQ(Names().size(), 3U);
  EXPECT_EQ(Read(Names()[0]).Samples(), 9600U);
  EXPECT_EQ(Read(Names()[1]).Value(0, 0), 9600);
  EXPECT_THAT(Read(Names()[1]).Head, Contains("09/03/2024,14:05:09.400000"));
}

TEST_F(ChangingCffScene, TheSameCaptureAgainLeavesTheOlderFile) {
  SendNumbered(0, 4000, 250us);
  Record();
  const std::string before = support::BytesOf(Data + "/" + Name);
  SendNumbered(100, 4000, 250us);

  EXPECT_EQ(Record(), ExitCode::Done);

  EXPECT_EQ(support::BytesOf(Data + "/" + Name), before);
  EXPECT_EQ(Names(), (std::vector{Name, std::string("SV record 09.03.2024 14-05-08.cff")}));
}

TEST_F(ChangingCffScene, AFileThatHasItsTimeGoesOnUntilTheNextNameIsFree) {
  for (const char* taken : {"09", "10"}) {
    Files.Create(Data + "/SV record 09.03.2024 14-05-" + taken + ".cff")->Write("older");
  }
  SendNumbered(0, 24'000, 250us);

  EXPECT_EQ(Record({"--station", "MU01", "--every", "2s"}), ExitCode::Done);

  EXPECT_EQ(Read(Name).Samples(), 16'000U);
  EXPECT_EQ(Read("SV record 09.03.2024 14-05-11.cff").Value(0, 0), 16'000);
  EXPECT_EQ(support::BytesOf(Data + "/SV record 09.03.2024 14-05-10.cff"), "older");
}

TEST_F(ChangingCffScene, OfTwoSendersOfOneIdTheFirstIsRecorded) {
  for (std::uint16_t i = 0; i < 4000; ++i) {
    Taps.Send(SvFrame("MU01").Raw(0, 1).Count(i), 200us);
    Taps.Send(SvFrame("MU01").Raw(0, 2).Count(i).Addresses({1, 12, 205, 4, 0, 1, 2, 0, 0, 0, 0, 9}),
              50us);
  }
  EXPECT_EQ(Record(), ExitCode::Done);
  const Single file = ReadOnly();
  for (std::size_t k = 0; k < file.Samples(); ++k) ASSERT_EQ(file.Value(k, 0), 1);
  EXPECT_EQ(file.Samples(), 4000U);
  EXPECT_EQ(Notes.str(),
            "vornik-cli: 02:00:00:00:00:09 sends as MU01, too; only 02:00:00:00:00:07, which came "
            "first, is recorded.\n");
}

TEST_F(ChangingCffScene, AnIdThatAHeadCannotHoldIsFittedToIt) {
  const std::string id = "North,1\t" + std::string(100, 'x');
  Taps.SendRun(SvFrame(id), 0, 400, 250us);
  Record({"--station", id});
  EXPECT_EQ(ReadOnly().Head[1].substr(0, 65), "North_1_" + std::string(56, 'x') + ",");
}

TEST_F(ChangingCffScene, TheFrequencyIsThatOfTheRateUnlessTold) {
  Taps.SendRun(SvFrame("MU01"), 0, 9600, 208us, 4800);
  Record();
  EXPECT_EQ(ReadOnly().Head[11], "60");
}

TEST_F(ChangingCffScene, TheFrequencyThatIsToldIsTaken) {
  Taps.SendRun(SvFrame("MU01"), 0, 9600, 208us, 4800);
  Record({"--station", "MU01", "--frequency", "50"});
  EXPECT_EQ(ReadOnly().Head[11], "50");
}

TEST_F(ChangingCffScene, WhatDoesNothingForItIsRefused) {
  for (const Words& option : {Words{"--filter", "and len > 1"}, Words{"--samplings", "80"},
                              Words{"--current", "mA"}, Words{"--voltage", "V"}}) {
    EXPECT_EQ(Record({"--station", "MU01", option[0], option[1]}), ExitCode::WrongUse);
    EXPECT_THAT(Notes.str(), HasSubstr(option[0]));
  }
  EXPECT_THAT(Names(), testing::IsEmpty());
}

TEST_F(ChangingCffScene, ADiskThatIsFullWithinTheFirstSecondKeepsWhatItTook) {
  support::FailingFiles failing(Files);
  failing.FailingWrite = 2;
  const console::Machine weak = MachineWith(failing);
  SendNumbered(0, 8000, 250us);
  const std::vector<const char*> words{"vornik-cli", "record",     "x.pcap",    "--format", "cff",
                                       "--folder",   Data.c_str(), "--station", "MU01"};

  EXPECT_EQ(console::Run(static_cast<int>(words.size()), words.data(), weak),
            ExitCode::FileTrouble);

  const Single file = ReadOnly();
  ASSERT_GT(file.Samples(), 1000U);
  EXPECT_LT(file.Samples(), 4000U);
  EXPECT_THAT(file.Head, Contains("4000," + std::to_string(file.Samples())));
  EXPECT_EQ(file.Value(file.Samples() - 1, 0), static_cast<std::int32_t>(file.Samples() - 1));
}

TEST_F(ChangingCffScene, AClockThatIsSetMakesNoHoleAndNoOtherFile) {
  Taps.IsFile = false;
  Taps.SendRun(SvFrame("MU01").Raw(0, 5), 0, 8000, 250us);
  for (std::size_t i = 5000; i < 8000; ++i) Taps.Frames[i].Arrived += 1h;
  const auto begun = Clock.WallTime();
  bool set = false;
  WhileResting = [&] {
    if (!set && Clock.WallTime() >= begun + 1250ms) {
      Clock.Began += 1h;
      set = true;
    }
    EndAsked = Taps.Frames.empty();
  };

  EXPECT_EQ(Record(), ExitCode::Done);

  EXPECT_EQ(ReadOnly().Samples(), 8000U);
  EXPECT_EQ(Notes.str(), "");
}

}  // namespace
}  // namespace console
