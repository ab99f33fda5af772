// Recordings of the whole program on a virtual wire, compared with what the publisher sent.

#include <QAbstractButton>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <thread>

#include "desktop/widgets/run_button.h"
#include "live/program/wire_scene.h"

namespace desktop {
namespace {

using std::chrono::milliseconds;
using std::chrono_literals::operator""ms;

/// The longest standstill of the program that the driver's buffer, of four seconds of two streams,
/// is sure to bridge.
constexpr qint64 BridgedMs = 3500;
constexpr milliseconds HoldUp = 2000ms;
/// No more than so many wait while nothing holds the program up.
constexpr std::int64_t FewFrames = 1000;
constexpr double UsualSeconds = 6.2;
constexpr qint64 StartOfPublisherMs = 200;

/// How long a scene records, at least what its hold-ups take. A worksheet is full after eight
/// seconds.
double SecondsIn(std::size_t format) {
  if (format == forms::record_format::Worksheet) return UsualSeconds;
  const char* asked = std::getenv("VORNIK_LIVE_SECONDS");
  return asked == nullptr ? UsualSeconds : std::max(UsualSeconds, std::atof(asked));
}

/// Two streams: the second one's frames are longer by a tag and by the ID.
constexpr const char* BothStreams =
    "--stream id=MU-LONGER-NAME,tag=4:7,currents=150:151:152:1,voltages=11547:11600:11700:20,"
    "dc=1:2:3:0:10:20:30:5,count=3 "
    "--stream id=MU-A,currents=400:410:420:2,voltages=63509:63600:63700:80,"
    "angles=-23.4:-150:97.25:12:10:-110:130.5:-45,count=3";

class RecordingOnTheWire : public WireScene {
 protected:
  void SetUp() override {
    WireScene::SetUp();
    if (IsSkipped()) return;
    look_.callOnTimeout([this] { longestMs_ = std::max(longestMs_, sinceLook_.restart()); });
  }

  /// Publishes, and begins to record as soon as the streams are there.
  void Record(std::size_t format, const std::string& sent, double seconds) {
    sent_ = "--duration " + std::to_string(seconds) + " " + sent;
    publisher_.emplace(sent_);
    sentFor_.start();
    freeMs_ = static_cast<qint64>(seconds * 1000) - HoldUp.count() + StartOfPublisherMs;
    ClickTab(forms::tab::Recorder);
    Click(Member("Option2", static_cast<int>(format)));
    ASSERT_TRUE(WaitFor([] { return Arrived() > 0; }));
    sinceLook_.start();
    look_.start(1);
    arrivedBefore_ = Arrived();
    Click("CWButton3");
    ASSERT_TRUE(WaitFor([this] { return Button().isVisible(); })) << "no ring was written";
  }
  /// Frames that came to the near end of the wire.
  static std::int64_t Arrived() {
    std::ifstream interfaces("/proc/self/net/dev");
    for (std::string line; std::getline(interfaces, line);) {
      const std::size_t end = line.find(live::NearEnd + ":");
      if (end == std::string::npos) continue;
      std::int64_t bytes = 0;
      std::int64_t frames = 0;
      std::istringstream(line.substr(line.find(':') + 1)) >> bytes >> frames;
      return frames;
    }
    return 0;
  }
  RunButton& Button() { return Find<RunButton>("CWButton3"); }

  /// The program stands still, as behind a disk that is busy.
  void HoldUpReader() {
    Waited();
    std::this_thread::sleep_for(HoldUp);
    Waited();
    // The next hold-up would add to what waits in the buffer.
    caughtUp_ = WaitFor([this] { return Waiting() < FewFrames; });
  }
  /// About how many frames of each of two streams came since RUN and were not handled yet.
  std::int64_t Waiting() {
    // Nine blocks are counted a ring.
    const std::int64_t handled = std::int64_t{Program().Acquisition.State.BlockCount} * 4000 / 9;
    return (Arrived() - arrivedBefore_) / 2 - handled;
  }
  /// Whether this machine held the program up for longer than the buffer lasts, or all but, so that
  /// nothing can be said of what is missing.
  bool MachineWasBusy() {
    Waited();
    return longestMs_ > BridgedMs || !caughtUp_;
  }
  void Waited() { longestMs_ = std::max(longestMs_, sinceLook_.elapsed()); }

  /// Holds the program up to the end of what is sent, and stops before it has had a turn.
  void StopBehindHoldUp() {
    QTest::qWait(static_cast<int>(std::max<qint64>(0, freeMs_ - sentFor_.elapsed())));
    Waited();
    while (!publisher_->HasFinished()) std::this_thread::sleep_for(10ms);
    // What was sent last is on its way through the kernel.
    std::this_thread::sleep_for(100ms);
    CloseBoxes();
    Click("CWButton3");
    look_.stop();
  }

  /// Boxes about a worksheet that no viewer takes close by themselves.
  void CloseBoxes() {
    OnDialog([](QDialog& dialog) { dialog.reject(); });
  }

  /// What the comparison with what was sent says.
  std::string Compared(const std::string& streams) {
    const std::string record = home_.filePath("StoredData").toStdString() + "/" + name_;
    return live::Run(std::string(VORNIK_SYSTEM_PYTHON) + " " + VORNIK_RECORDED + " --record '" +
                     record + "' --to-the-end " + streams + " " + sent_);
  }
  void ExpectAllStored(const std::string& streams) {
    name_ = Program().Acquisition.State.RecordFileName;
    // A second worksheet is finished when the program ends.
    program_.reset();
    if (MachineWasBusy()) GTEST_SKIP() << "this machine held the program up";
    const std::string result = Compared(streams);
    if (result.starts_with("cannot")) GTEST_SKIP() << result;
    EXPECT_TRUE(result.starts_with("right")) << result;
    RecordProperty("result", result);
  }

  std::optional<live::Publisher> publisher_;
  std::string sent_;
  std::string name_;
  QTimer look_;
  QElapsedTimer sinceLook_;
  QElapsedTimer sentFor_;
  /// When the last hold-up begins.
  qint64 freeMs_ = 0;
  qint64 longestMs_ = 0;
  std::int64_t arrivedBefore_ = 0;
  bool caughtUp_ = true;
};

/// A recording of two streams in one of the formats. Its reader is held up twice: at some moment,
/// and right before the stop.
class TwoStreams : public RecordingOnTheWire, public testing::WithParamInterface<std::size_t> {};

TEST_P(TwoStreams, StandOnDiskAsTheyWereSentThoughTheReaderIsHeldUp) {
  Type(Member("Text1", 12), "MU-A");
  Type(Member("Text1", 14), "MU-LONGER-NAME");
  ASSERT_NO_FATAL_FAILURE(Record(GetParam(), BothStreams, SecondsIn(GetParam())));
  std::random_device anything;
  const int moment = std::uniform_int_distribution(0, 900)(anything);
  SCOPED_TRACE("held up after " + std::to_string(moment) + " ms");
  QTest::qWait(moment);
  HoldUpReader();
  StopBehindHoldUp();
  ExpectAllStored("--first MU-A --second MU-LONGER-NAME");
}

std::string FormatName(const testing::TestParamInfo<std::size_t>& format) {
  constexpr const char* Texts[] = {"Text", "Worksheets", "Comtrade"};
  return Texts[format.param];
}

INSTANTIATE_TEST_SUITE_P(In, TwoStreams,
                         testing::Values(forms::record_format::Text,
                                         forms::record_format::Worksheet,
                                         forms::record_format::Comtrade),
                         FormatName);

TEST_F(RecordingOnTheWire, TellsInItsLogWhatWasNotSent) {
  Type(Member("Text1", 12), "MU-A");
  // Two of the stretches are of one length, and they are the longest.
  ASSERT_NO_FATAL_FAILURE(Record(forms::record_format::Text,
                                 "--stream id=MU-A,tag=4:7,count=3,pause=1.2:1.22:2.7:2.72:4.2:5",
                                 UsualSeconds));
  StopBehindHoldUp();
  ExpectAllStored("--first MU-A");
}

}  // namespace
}  // namespace desktop
