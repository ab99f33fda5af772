#include "console_scene.h"
#include "support/failing_files.h"

namespace console {
namespace {

using namespace std::chrono_literals;
using support::SvFrame;

class WatchCommandScene : public ConsoleScene {
 protected:
  void Send(std::uint32_t from, std::uint32_t to) {
    Taps.SendRun(SvFrame("MU01").Synch(synch_), from, to, 250us);
  }
  /// The loss is so near to the last sample that what is missing may still come.
  void SendUpToALossBeforeASilence() {
    Taps.IsFile = false;
    Send(0, 4190);
    Send(4200, 4210);
  }
  std::vector<nlohmann::json> Lines() const {
    std::vector<nlohmann::json> lines;
    std::istringstream text(Results.str());
    for (std::string line; std::getline(text, line);) lines.push_back(nlohmann::json::parse(line));
    return lines;
  }
  std::string MetricsPath() const { return Folder.File("bus.prom"); }

  std::uint8_t synch_ = 2;
  bool set_ = false;
  const std::chrono::microseconds begun_ = Clock.WallTime();
};

TEST_F(WatchCommandScene, ALineEachSecondTellsThatSecond) {
  Send(0, 4000);
  Send(4010, 8000);
  Taps.Send(SvFrame("MU01").Count(0), 250us);

  EXPECT_EQ(Run({"watch", "file.pcap", "--fast"}), ExitCode::Done);

  const auto lines = Lines();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].at("time"), "2024-03-09T14:05:08.000000Z");
  EXPECT_EQ(lines[0].at("frames"), 4000);
  EXPECT_EQ(lines[0].at("samplesLost"), 0);
  EXPECT_EQ(lines[1].at("samplesLost"), 10);
  EXPECT_EQ(lines[1].at("svID"), "MU01");
}

TEST_F(WatchCommandScene, TellTheReadingsOfTheChannels) {
  Taps.SendRun(SvFrame("MU01").Raw(0, 7000).Raw(4, -300), 0, 8001, 250us);

  Run({"watch", "file.pcap"});

  const nlohmann::json channels = Lines().at(1).at("channelReadings");
  EXPECT_EQ(channels.at(0).at("rms"), 7000.0);
  EXPECT_EQ(channels.at(0).at("magnitude"), 0.0);
  EXPECT_EQ(channels.at(4).at("mean"), -300.0);
  EXPECT_EQ(Lines().at(0).at("channelReadings").size(), 0U) << "a part of it was not measured";
  EXPECT_EQ(Lines().at(2).at("channelReadings").size(), 0U) << "it is no whole second";
}

TEST_F(WatchCommandScene, GoOnForEverAndTellOfAStreamThatFellSilent) {
  Taps.IsFile = false;
  Send(0, 4200);
  WhileResting = [this] { EndAsked = Clock.Now() > 5s; };

  EXPECT_EQ(Run({"watch", "eth0"}), ExitCode::Done);

  const auto lines = Lines();
  ASSERT_GE(lines.size(), 3U);
  EXPECT_EQ(lines[1].at("frames"), 200);
  EXPECT_EQ(lines[2].at("frames"), 0);
  EXPECT_FALSE(lines[2].contains("first"));
}

TEST_F(WatchCommandScene, EndAtALossThatIsWatchedFor) {
  Send(0, 3000);
  Send(3001, 12'000);

  EXPECT_EQ(Run({"watch", "file.pcap", "--fast", "--fail-on", "silence,loss"}), ExitCode::Alarm);

  EXPECT_EQ(Notes.str(), "vornik-cli: the stream MU01 has lost 1 sample.\n");
  EXPECT_EQ(Lines().size(), 1U) << "the second of the alarm is the last one that is told";
}

TEST_F(WatchCommandScene, SamplesThatChangePlacesOverTheEndOfASecondAreNotLost) {
  Send(0, 3999);
  Taps.Send(SvFrame("MU01").Count(0), 500us);
  Taps.Send(SvFrame("MU01").Count(3999), 10us);
  Send(4001, 8001);

  EXPECT_EQ(Run({"watch", "file.pcap", "--fast", "--fail-on", "loss"}), ExitCode::Done);

  for (const nlohmann::json& line : Lines()) EXPECT_EQ(line.at("samplesLost"), 0) << line;
}

TEST_F(WatchCommandScene, ALossAtTheEndIsToldAtTheEnd) {
  Send(0, 500);
  Send(510, 520);
  Run({"watch", "file.pcap", "--fast"});
  EXPECT_EQ(Lines().back().at("samplesLost"), 10);
}

TEST_F(WatchCommandScene, ALossRightBeforeASilenceIsToldInTheSilence) {
  SendUpToALossBeforeASilence();
  WhileResting = [this] { EndAsked = Clock.Now() > 8s; };

  Run({"watch", "eth0"});

  const auto lines = Lines();
  ASSERT_GE(lines.size(), 4U);
  EXPECT_EQ(lines[1].at("samplesLost"), 0) << "they may still come";
  EXPECT_EQ(lines[2].at("frames"), 0);
  EXPECT_EQ(lines[2].at("samplesLost"), 10);
  EXPECT_EQ(lines[3].at("samplesLost"), 0);
}

TEST_F(WatchCommandScene, ALossRightBeforeASilenceIsToldAtTheEndOfTheWatch) {
  SendUpToALossBeforeASilence();
  WhileResting = [this] { EndAsked = Results.str().find("\"frames\":20") != std::string::npos; };

  Run({"watch", "eth0"});

  const auto lines = Lines();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[1].at("samplesLost"), 0) << "they may still come";
  EXPECT_EQ(lines[2].at("frames"), 0);
  EXPECT_EQ(lines[2].at("samplesLost"), 10);
}

TEST_F(WatchCommandScene, AClockThatIsSetIsNoLossAndNoSilence) {
  Taps.IsFile = false;
  Send(0, 6000);
  for (std::size_t i = 2000; i < 6000; ++i) Taps.Frames[i].Arrived += 1h;
  WhileResting = [this] {
    if (!set_ && Clock.WallTime() >= begun_ + 500ms) {
      Clock.Began += 1h;
      set_ = true;
    }
    EndAsked = Clock.Now() > 4s;
  };

  EXPECT_EQ(Run({"watch", "eth0", "--fail-on", "loss"}), ExitCode::Done);

  std::uint64_t frames = 0;
  for (const nlohmann::json& line : Lines()) {
    frames += line.at("frames").get<std::uint64_t>();
    EXPECT_EQ(line.at("samplesLost"), 0);
  }
  EXPECT_EQ(frames, 6000U);
  EXPECT_LE(Lines().size(), 3U);
}

TEST_F(WatchCommandScene, AProgramThatWasStoppedForAWhileTellsItsSecondsAsTheyWere) {
  Taps.IsFile = false;
  Send(0, 16'000);
  WhileResting = [this] {
    if (!set_ && Clock.WallTime() >= begun_ + 100ms) {
      Clock.Advance(3800ms);
      set_ = true;
    }
    EndAsked = Clock.WallTime() >= begun_ + 4200ms;
  };

  EXPECT_EQ(Run({"watch", "eth0", "--fail-on", "silence,loss"}), ExitCode::Done);

  const auto lines = Lines();
  ASSERT_EQ(lines.size(), 4U);
  for (const nlohmann::json& line : lines) EXPECT_EQ(line.at("frames"), 4000);
}

TEST_F(WatchCommandScene, MeasureAtOtherRatesToo) {
  Taps.SendRun(SvFrame("MU01").Raw(0, 7000), 0, 14'400 * 2, 69us, 14'400);
  Run({"watch", "file.pcap", "--fast"});
  EXPECT_EQ(Lines().at(1).at("channelReadings").at(0).at("rms"), 7000.0);
}

TEST_F(WatchCommandScene, EndAtSilenceAndNotBeforeAStreamCame) {
  Taps.IsFile = false;
  Clock.Advance(3s);
  Taps.Frames.push_back({SvFrame("MU01").Bytes(), Clock.WallTime() + 3s});

  EXPECT_EQ(Run({"watch", "eth0", "--fail-on", "silence"}), ExitCode::Alarm);

  EXPECT_EQ(Notes.str(), "vornik-cli: the stream MU01 is silent.\n");
  EXPECT_GT(Clock.Now(), 7s);
}

TEST_F(WatchCommandScene, EndAtABusOnWhichNothingEverComes) {
  Taps.IsFile = false;
  EXPECT_EQ(Run({"watch", "eth0", "--fail-on", "silence"}), ExitCode::Alarm);
  EXPECT_EQ(Notes.str(), "vornik-cli: no stream has come yet.\n");
  EXPECT_LT(Clock.Now(), 10s);
}

TEST_F(WatchCommandScene, EndAtASynchronisationThatIsLostOrChanges) {
  synch_ = 0;
  Send(0, 4001);
  EXPECT_EQ(Run({"watch", "file.pcap", "--fail-on", "synch"}), ExitCode::Alarm);
  EXPECT_EQ(Notes.str(), "vornik-cli: the stream MU01 is not synchronised.\n");

  Taps.Frames.clear();
  synch_ = 1;
  Send(0, 2000);
  synch_ = 2;
  Send(2000, 4001);
  EXPECT_EQ(Run({"watch", "file.pcap", "--fail-on", "synch"}), ExitCode::Alarm);
  EXPECT_EQ(Notes.str(), "vornik-cli: the stream MU01 has another smpSynch.\n");
}

TEST_F(WatchCommandScene, NoAlarmWhereNothingIsWrong) {
  Send(0, 8001);
  EXPECT_EQ(Run({"watch", "file.pcap", "--fail-on", "loss,synch,silence"}), ExitCode::Done);
  EXPECT_EQ(Notes.str(), "");
  EXPECT_EQ(Run({"watch", "file.pcap", "--fail-on", "thunder"}), ExitCode::WrongUse);
  EXPECT_EQ(Notes.str(),
            "--fail-on: 'thunder' is none of loss, synch and silence\n"
            "Run with --help for more information.\n");
}

TEST_F(WatchCommandScene, TheAdapterMayStandBehindWhatIsWatchedFor) {
  Send(0, 4001);
  EXPECT_EQ(Run({"watch", "--fail-on", "loss,silence", "file.pcap"}), ExitCode::Done);
  EXPECT_EQ(Notes.str(), "");
}

TEST_F(WatchCommandScene, WriteTheMetricsOfASecondInOnePiece) {
  Send(0, 4001);

  Run({"watch", "file.pcap", "--metrics", MetricsPath()});

  const std::string text = support::BytesOf(MetricsPath());
  const std::string labels =
      "{adapter=\"file.pcap\",svID=\"MU01\",appid=\"0x4000\",source=\"02:00:00:00:00:07\","
      "destination=\"01:0C:CD:04:00:01\",vlan=\"\"} ";
  EXPECT_NE(text.find("\nvornik_stream_frames_total" + labels + "4001\n"), std::string::npos)
      << text;
  EXPECT_NE(text.find("\nvornik_stream_smp_synch" + labels + "2\n"), std::string::npos);
  EXPECT_NE(text.find("\nvornik_capture_frames_total{adapter=\"file.pcap\"} 4001\n"),
            std::string::npos);
  EXPECT_FALSE(Files.FileExists(MetricsPath() + ".new"));
}

TEST_F(WatchCommandScene, TheMetricsSayWhatTheyAre) {
  Send(0, 4001);
  Run({"watch", "file.pcap", "--metrics", MetricsPath()});
  std::istringstream text(support::BytesOf(MetricsPath()));
  std::string heads;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("#")) heads += line.substr(2) + '\n';
  }
  EXPECT_EQ(heads, R"(HELP vornik_build_info The program that has written this.
TYPE vornik_build_info gauge
HELP vornik_capture_frames_total Sampled values frames received.
TYPE vornik_capture_frames_total counter
HELP vornik_capture_faulty_frames_total Frames whose structure is not whole.
TYPE vornik_capture_faulty_frames_total counter
HELP vornik_capture_dropped_frames_total Frames that the system has dropped.
TYPE vornik_capture_dropped_frames_total counter
HELP vornik_stream_frames_total Frames received.
TYPE vornik_stream_frames_total counter
HELP vornik_stream_samples_total Samples received.
TYPE vornik_stream_samples_total counter
HELP vornik_stream_samples_lost_total Samples that never came.
TYPE vornik_stream_samples_lost_total counter
HELP vornik_stream_samples_doubled_total Samples that came again.
TYPE vornik_stream_samples_doubled_total counter
HELP vornik_stream_samples_out_of_order_total Samples that came behind a later one.
TYPE vornik_stream_samples_out_of_order_total counter
HELP vornik_stream_restarts_total Times the counter began anew.
TYPE vornik_stream_restarts_total counter
HELP vornik_stream_smp_synch_changes_total Changes of smpSynch.
TYPE vornik_stream_smp_synch_changes_total counter
HELP vornik_stream_up 1 where frames came in the last second.
TYPE vornik_stream_up gauge
HELP vornik_stream_smp_synch smpSynch: 0 not synchronised, 1 local, 2 global.
TYPE vornik_stream_smp_synch gauge
HELP vornik_stream_conf_rev confRev.
TYPE vornik_stream_conf_rev gauge
HELP vornik_stream_simulation 1 where the simulation bit is set.
TYPE vornik_stream_simulation gauge
HELP vornik_stream_frames_per_second Frames a second, measured.
TYPE vornik_stream_frames_per_second gauge
HELP vornik_stream_samples_per_second Samples a second, measured.
TYPE vornik_stream_samples_per_second gauge
HELP vornik_stream_arrival_gap_seconds Times between two frames.
TYPE vornik_stream_arrival_gap_seconds gauge
HELP vornik_stream_channel_rms RMS value, in units of the wire.
TYPE vornik_stream_channel_rms gauge
HELP vornik_stream_channel_magnitude RMS value of the nominal frequency, in units of the wire.
TYPE vornik_stream_channel_magnitude gauge
HELP vornik_stream_channel_angle_degrees Angle at the nominal frequency, from the whole second on.
TYPE vornik_stream_channel_angle_degrees gauge
)");
}

TEST_F(WatchCommandScene, TheMetricsKeepTheReadingsOfTheLatestWholeSecond) {
  Taps.SendRun(SvFrame("MU01").Raw(0, 7000), 0, 9000, 250us);
  Run({"watch", "file.pcap", "--metrics", MetricsPath()});
  const std::string text = support::BytesOf(MetricsPath());
  EXPECT_NE(text.find("channel=\"1\"} 7000\n"), std::string::npos) << text;
}

TEST_F(WatchCommandScene, ADiskThatFailsForAWhileIsToldOnceAndTheWatchGoesOn) {
  support::FailingFiles failing(Files);
  failing.FailingRename = 2;
  const console::Machine weak = MachineWith(failing);
  Send(0, 16'001);
  const std::string path = MetricsPath();
  const std::vector<const char*> words{"vornik-cli", "watch", "x.pcap", "--metrics", path.c_str()};

  EXPECT_EQ(console::Run(static_cast<int>(words.size()), words.data(), weak), ExitCode::Done);

  EXPECT_EQ(Notes.str(), "vornik-cli: " + path + " is not written: Disk full\nvornik-cli: " + path +
                             " is written again.\n");
  EXPECT_EQ(Lines().size(), 5U);
}

TEST_F(WatchCommandScene, MetricsThatCannotBeWrittenAtTheEndAreATrouble) {
  Send(0, 4001);
  EXPECT_EQ(Run({"watch", "x.pcap", "--metrics", Folder.File("none/bus.prom")}),
            ExitCode::FileTrouble);
  EXPECT_EQ(Lines().size(), 2U);
}

TEST_F(WatchCommandScene, MetricsThatCannotGetTheirNameLeaveNothing) {
  support::FailingFiles failing(Files);
  failing.FailingRename = 1;
  const console::Machine weak = MachineWith(failing);
  Send(0, 2000);
  const std::string path = MetricsPath();
  const std::vector<const char*> words{"vornik-cli", "watch", "x.pcap", "--metrics", path.c_str()};
  EXPECT_EQ(console::Run(static_cast<int>(words.size()), words.data(), weak),
            ExitCode::FileTrouble);
  EXPECT_EQ(NamesIn(Folder.Path()), Words{});
}

TEST_F(WatchCommandScene, NothingCame) {
  Taps.IsFile = false;
  EXPECT_EQ(Run({"watch", "eth0", "--seconds", "2"}), ExitCode::NothingReceived);

  Taps.IsFile = true;
  Taps.Frames.push_back({{1, 2, 3}, 1s});
  EXPECT_EQ(Run({"watch", "x.pcap"}), ExitCode::NothingReceived) << "it was no sampled value";
  EXPECT_EQ(Notes.str(), "vornik-cli: no stream of sampled values came from x.pcap.\n");
}

}  // namespace
}  // namespace console
