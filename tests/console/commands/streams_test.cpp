#include "console_scene.h"

namespace console {
namespace {

using namespace std::chrono_literals;
using std::chrono::microseconds;
using support::SvFrame;

constexpr microseconds Gap{250};

class StreamsCommandScene : public ConsoleScene {
 protected:
  /// Frames of one sender, their counters one behind the other.
  void Send(std::uint32_t from, std::uint32_t to, const std::string& id = "MU01") {
    Taps.SendRun(SvFrame(id), from, to, Gap);
  }
};

TEST_F(StreamsCommandScene, TellAStreamWithTheNamesOfTheStandard) {
  for (std::uint16_t i = 0; i < 400; ++i) {
    Taps.Send(SvFrame("MU01").Count(i).Vlan(4, 5).Synch(1), Gap);
  }

  EXPECT_EQ(Run({"streams", "file.pcap", "--json"}), ExitCode::Done);

  const nlohmann::json stream = OnlyStream();
  EXPECT_EQ(stream.at("svID"), "MU01");
  EXPECT_EQ(stream.at("appid"), "0x4000");
  EXPECT_EQ(stream.at("destinationAddress"), "01:0C:CD:04:00:01");
  EXPECT_EQ(stream.at("sourceAddress"), "02:00:00:00:00:07");
  EXPECT_EQ(stream.at("vlanId"), 5);
  EXPECT_EQ(stream.at("vlanPriority"), 4);
  EXPECT_EQ(stream.at("simulation"), false);
  EXPECT_EQ(stream.at("noASDU"), 1);
  EXPECT_EQ(stream.at("channels"), 8);
  EXPECT_EQ(stream.at("confRev"), 1);
  EXPECT_EQ(stream.at("smpSynch"), 1);
  EXPECT_EQ(stream.at("frames"), 400);
  EXPECT_EQ(stream.at("framesPerSecond"), 4000.0);
  EXPECT_EQ(stream.at("nominalSamplesPerSecond"), 4000);
  EXPECT_EQ(stream.at("samplesLost"), 0);
  EXPECT_EQ(stream.at("arrivalGapMicroseconds").at("greatest"), 250);
  EXPECT_EQ(Notes.str(), "");
  EXPECT_EQ(Taps.Opened, "file.pcap");
}

TEST_F(StreamsCommandScene, CountWhatIsMissingDoubledAndOutOfOrder) {
  Send(0, 500);
  Taps.Send(SvFrame("MU01").Count(499), microseconds(10));
  Send(510, 520);
  Taps.Send(SvFrame("MU01").Count(521), Gap);
  Taps.Send(SvFrame("MU01").Count(520), microseconds(10));
  Send(522, 1000);

  Run({"streams", "file.pcap", "--json"});

  const nlohmann::json stream = OnlyStream();
  EXPECT_EQ(stream.at("samplesLost"), 10);
  EXPECT_EQ(stream.at("samplesDoubled"), 1);
  EXPECT_EQ(stream.at("samplesOutOfOrder"), 1);
  EXPECT_EQ(stream.at("arrivalGapMicroseconds").at("smallest"), 10);
}

TEST_F(StreamsCommandScene, StreamsOfSeveralASDUsHaveTheirSamplesAndTheirRate) {
  for (std::uint32_t i = 0; i < 4800; i += 2) {
    Taps.Send(SvFrame("MU60").Count(static_cast<std::uint16_t>(i)).Asdus(2).Channels(9),
              microseconds(i % 3 == 0 ? 416 : 417));
  }

  Run({"streams", "file.pcap", "--json"});

  const nlohmann::json stream = OnlyStream();
  EXPECT_EQ(stream.at("noASDU"), 2);
  EXPECT_EQ(stream.at("channels"), 9);
  EXPECT_EQ(stream.at("frames"), 2400);
  EXPECT_EQ(stream.at("samples"), 4800);
  EXPECT_EQ(stream.at("nominalSamplesPerSecond"), 4800);
  EXPECT_EQ(stream.at("samplesLost"), 0);
}

TEST_F(StreamsCommandScene, SendersOfOneIdAreTwoStreamsAndAPriorityMakesNone) {
  for (std::uint16_t i = 0; i < 8; ++i) {
    Taps.Send(SvFrame("SAME").Count(i).Vlan(i % 2 == 0 ? 4 : 5, 1), Gap);
    Taps.Send(SvFrame("SAME").Count(i).Vlan(4, 2), Gap);
  }
  Run({"streams", "file.pcap", "--json"});
  EXPECT_EQ(Json().at("streams").size(), 2U);
}

TEST_F(StreamsCommandScene, ATableForAReader) {
  Send(0, 4000);
  Send(0, 2, "\xE4\x01");

  EXPECT_EQ(Run({"streams", "file.pcap"}), ExitCode::Done);

  EXPECT_EQ(Results.str(),
            "#  svID   APPID   destination        source             VLAN/prio  ASDUs  channels  "
            "confRev  smpSynch  simulation\n"
            "1  MU01   0x4000  01:0C:CD:04:00:01  02:00:00:00:00:07  -              1         8  "
            "      1         2  no\n"
            "2  \xC3\xA4\\x01  0x4000  01:0C:CD:04:00:01  02:00:00:00:00:07  -              1    "
            "     8        1         2  no\n"
            "\n"
            "#  frames  frames/s  samples/s  lost  doubled  out of order  gap us: smallest  mean  "
            "99.9 %  greatest\n"
            "1    4000      4000       4000     0        0             0               250   250  "
            "   250       250\n"
            "2       2      4000       4000     0        0             0               250   250  "
            "   250       250\n");
}

TEST_F(StreamsCommandScene, FramesWithoutAWholeStructureAreCountedAndWhyIsTold) {
  Send(0, 10);
  support::FrameBytes cut = SvFrame("MU01").Count(10).Bytes();
  cut.resize(60);
  Taps.Frames.push_back({cut, Taps.Frames.back().Arrived + Gap});
  Taps.Frames.push_back({{1, 2, 3}, Taps.Frames.back().Arrived + Gap});

  EXPECT_EQ(Run({"streams", "file.pcap", "--json"}), ExitCode::Done);

  EXPECT_EQ(Json().at("framesWithFaults"), 1) << "three bytes are no frame of sampled values";
  EXPECT_EQ(OnlyStream().at("frames"), 10);
  EXPECT_NE(Notes.str().find("the structure of 1 of 11 frames is not whole"), std::string::npos);
}

TEST_F(StreamsCommandScene, ListenForFiveSecondsUnlessTold) {
  Taps.IsFile = false;
  Send(0, 40'000);
  Run({"streams", "eth0", "--json"});
  EXPECT_NEAR(OnlyStream().at("frames").get<double>(), 20'000, 80);
}

TEST_F(StreamsCommandScene, ListenAsLongAsIsAskedAndCountWhatTheSystemDropped) {
  Taps.IsFile = false;
  Taps.DroppedFrames = 3;
  Send(0, 40'000);
  EXPECT_EQ(Run({"streams", "eth0", "--seconds", "1", "--json"}), ExitCode::Done);
  EXPECT_NEAR(OnlyStream().at("frames").get<double>(), 4'000, 80);
  EXPECT_NE(Notes.str().find("the system has dropped 3 frames"), std::string::npos);
}

TEST_F(StreamsCommandScene, AFileMayBeReadInPart) {
  Send(0, 8000);
  Run({"streams", "file.pcap", "--fast", "--seconds", "0.5", "--json"});
  EXPECT_EQ(OnlyStream().at("frames"), 2000);
}

TEST_F(StreamsCommandScene, TheUserEndsTheListeningAndGetsWhatCame) {
  Taps.IsFile = false;
  Send(0, 40'000);
  WhileResting = [this] { EndAsked = Clock.Now() > std::chrono::seconds(2); };
  EXPECT_EQ(Run({"streams", "eth0", "--json"}), ExitCode::Done);
  EXPECT_LT(OnlyStream().at("frames"), 5000);
}

TEST_F(StreamsCommandScene, AnInterfaceThatGoesAwayIsToldAndItsReturnToo) {
  Taps.IsFile = false;
  Send(0, 4000);
  WhileResting = [this] {
    Taps.Present =
        Clock.Now() > 4s && Clock.Now() < 8s ? platform::Presence::Gone : platform::Presence::There;
  };
  Run({"streams", "eth0", "--seconds", "10"});
  EXPECT_EQ(Notes.str(), "vornik-cli: eth0 is gone.\nvornik-cli: eth0 is there again.\n");
}

TEST_F(StreamsCommandScene, NothingCame) {
  Taps.IsFile = false;
  EXPECT_EQ(Run({"streams", "eth0", "--seconds", "1"}), ExitCode::NothingReceived);
  EXPECT_EQ(Results.str(), "");
  EXPECT_EQ(Notes.str(), "vornik-cli: no stream of sampled values came from eth0.\n");
}

TEST_F(StreamsCommandScene, WhatCannotBeOpenedHasACodeOfItsReason) {
  Taps.RefusedWith = platform::Failure(platform::failure::PermissionDenied, "There is no right.");
  EXPECT_EQ(Run({"streams", "eth0"}), ExitCode::NotPermitted);
  EXPECT_EQ(Notes.str(), "vornik-cli: There is no right.\n");

  Taps.RefusedWith = platform::Failure(platform::failure::FileNotFound, "It is gone.");
  EXPECT_EQ(Run({"streams", "x.pcap"}), ExitCode::FileTrouble);

  Taps.RefusedWith = platform::Failure(platform::failure::DeviceIo, "There is no adapter eth9.");
  EXPECT_EQ(Run({"streams", "eth9"}), ExitCode::FileTrouble) << "the card may come yet";

  EXPECT_EQ(Run({"streams"}), ExitCode::WrongUse);
  EXPECT_EQ(Run({"streams", "eth0", "--seconds", "-1"}), ExitCode::WrongUse);
}

TEST_F(StreamsCommandScene, ATimeIsANumberInDigits) {
  for (const char* text :
       {"nan", "inf", "-1", "0", "1e3", "0x32", "1e300", "1000000001", "5s", "1.2.3", ".", ""}) {
    EXPECT_EQ(Run({"streams", "eth0", "--seconds", text}), ExitCode::WrongUse) << text;
  }
  EXPECT_EQ(Run({"streams", "eth0", "--seconds", "nan"}), ExitCode::WrongUse);
  EXPECT_EQ(Notes.str(),
            "--seconds: 'nan' is no number from 0.0001 to 1000000000\n"
            "Run with --help for more information.\n");
  for (const char* text : {"0.5", ".5", "5."}) {
    EXPECT_EQ(Run({"streams", "x.pcap", "--seconds", text}), ExitCode::NothingReceived) << text;
  }
}

TEST_F(StreamsCommandScene, ResultsThatNobodyTakesAreATrouble) {
  Send(0, 100);
  Results.setstate(std::ios::badbit);
  EXPECT_EQ(Run({"streams", "x.pcap"}), ExitCode::FileTrouble);
  EXPECT_EQ(Notes.str(), "vornik-cli: the results could not be written.\n");
  EXPECT_EQ(Run({"--help"}), ExitCode::FileTrouble);
  EXPECT_EQ(Run({"streams"}), ExitCode::WrongUse);
}

TEST_F(StreamsCommandScene, ADamagedFileIsToldBehindWhatItHeld) {
  Send(0, 100);
  Taps.Damage = "The capture file x.pcap is damaged behind frame 100.";
  EXPECT_EQ(Run({"streams", "x.pcap", "--json"}), ExitCode::FileTrouble);
  EXPECT_EQ(OnlyStream().at("frames"), 100);
  EXPECT_EQ(Notes.str(), "vornik-cli: The capture file x.pcap is damaged behind frame 100.\n");
}

TEST_F(StreamsCommandScene, ABusWithoutEndOfNewIdsKeepsItsMemory) {
  for (int i = 0; i < 1030; ++i) Send(0, 2, "ID" + std::to_string(i));
  Run({"streams", "x.pcap", "--json"});
  EXPECT_EQ(Json().at("streams").size(), 1024U);
  EXPECT_EQ(Json().at("framesOfFurtherStreams"), 12);
}

}  // namespace
}  // namespace console
