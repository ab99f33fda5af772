#include "live/scenes/bus_scene.h"

#include <QElapsedTimer>
#include <QPushButton>
#include <QTableWidget>
#include <algorithm>
#include <stdexcept>

#include "live/scenes/wire_tap.h"

namespace desktop {

using live::BusUnit;
using live::Frame;

namespace {

/// Long enough to hear every sender, and what changes in each one's frames.
constexpr qint64 ListenMs = 350;
/// One look spent on the length, and one that fell to a sender that was met.
constexpr std::size_t SpareLooks = 2;

std::string Plain(const QString& text) {
  return text.toStdString();
}

}  // namespace

void BusScene::Play(const std::string& profile, std::size_t senders, const std::string& arguments) {
  live::WireTap tap("ether proto 0x88ba");
  bus_.emplace(profile, "--senders " + std::to_string(senders) + " " + arguments);
  std::vector<Frame> frames;
  QElapsedTimer listening;
  const auto heard = [&] {
    tap.TakeTo(frames);
    for (Frame& frame : frames) {
      const auto unit = std::find_if(units_.begin(), units_.end(),
                                     [&](const BusUnit& known) { return known.IsOf(frame); });
      if (unit == units_.end()) {
        if (units_.empty()) listening.start();
        units_.emplace_back(std::move(frame));
      } else {
        unit->Add(std::move(frame));
      }
    }
    frames.clear();
    if (units_.size() < senders || listening.elapsed() < ListenMs) return false;
    return std::all_of(units_.begin(), units_.end(), [](const BusUnit& unit) {
      return unit.Frames().size() > 3 * BusUnit::BlockRows / 2;
    });
  };
  ASSERT_TRUE(WaitFor(heard)) << "the bus is not heard";
  ASSERT_EQ(units_.size(), senders);
  ASSERT_EQ(tap.Missed(), 0U);
  std::size_t longest = 0;
  for (const BusUnit& unit : units_) longest = std::max(longest, unit.Frames()[0].size());
  for (BusUnit& unit : units_) unit.Read(longest);
}

const BusUnit& BusScene::Unit(const std::string& id) const {
  std::string heard;
  for (const BusUnit& unit : units_) {
    if (unit.Id() == id) return unit;
    heard += " \"" + unit.Id() + "\"";
  }
  for (const BusUnit& unit : units_) {
    if (unit.Reader().SvId() == id) return unit;
  }
  throw std::invalid_argument("no sender \"" + id + "\" among" + heard);
}

void BusScene::FindSenders(std::string& first, std::string& second) {
  Search([&](QDialog& finder) {
    ExpectAllListed(finder);
    if (!HasFatalFailure()) CheckBoth(finder, first, second);
    QTest::mouseClick(finder.findChild<QPushButton*>("IDlook.Command1"), Qt::LeftButton);
  });
  ASSERT_FALSE(HasFatalFailure());
  EXPECT_EQ(Plain(Field(12)), first);
  EXPECT_EQ(Plain(Field(14)), second);
  for (int choice = 0; choice < 8; ++choice) {
    EXPECT_EQ(Plain(Station(choice)), choice % 2 == 0 ? first : second) << choice;
  }
}

void BusScene::ExpectAllListed(QDialog& finder) {
  QStringList ids;
  for (const BusUnit& unit : units_) ids << QString::fromStdString(unit.Id());
  const std::size_t most = units_.size() + SpareLooks;
  // One look takes half a second.
  const int patience = PatienceMs + static_cast<int>(most) * 1000;
  ASSERT_TRUE(QTest::qWaitFor([&] { return WasEachSenderLookedAt() || Looks() > most; }, patience))
      << Program().Windows.IDlook.FrameCount.Caption.Get();
  EXPECT_TRUE(WasEachSenderLookedAt()) << "after " << Looks() << " looks: " << Told(lookedAt_);
  EXPECT_LE(Looks(), most);
  for (const QString& id : lookedAt_)
    EXPECT_TRUE(ids.contains(id)) << "no sender has " << Plain(id);
  std::vector<std::string> listed;
  for (const platform::CheckItem& item : Program().Windows.IDlook.List1.Items.Get()) {
    listed.push_back(item.Text);
  }
  const std::vector<std::string> expected = ExpectedList();
  EXPECT_EQ(listed, expected);
  EXPECT_EQ(static_cast<std::size_t>(ListOf(finder).count()), expected.size());
}

bool BusScene::WasEachSenderLookedAt() const {
  return std::all_of(units_.begin(), units_.end(), [this](const BusUnit& unit) {
    return std::find(sources_.begin(), sources_.end(), unit.Reader().Address(6)) != sources_.end();
  });
}

std::vector<std::string> BusScene::ExpectedList() const {
  std::vector<std::string> expected;
  std::string seen;
  const auto list = [&expected](const std::string& id) {
    const bool isThere = std::find(expected.begin(), expected.end(), id) != expected.end();
    if (!id.empty() && !isThere) expected.push_back(id);
  };
  for (std::size_t look = 0; look < sources_.size(); ++look) {
    const std::string read = Plain(lookedAt_[static_cast<qsizetype>(look)]);
    if (seen.find(read) == std::string::npos) list(read);
    seen += ' ' + read;
    for (const BusUnit& unit : units_) {
      const live::FrameReader reader = unit.Reader();
      if (reader.Address(6) == sources_[look] && reader.SvId() != read) list(reader.SvId());
    }
  }
  return expected;
}

void BusScene::CheckBoth(QDialog& finder, std::string& first, std::string& second) {
  const std::vector<platform::CheckItem> items = Program().Windows.IDlook.List1.Items;
  const auto rowOf = [&](const std::string& id) {
    const auto item =
        std::find_if(items.begin(), items.end(),
                     [&](const platform::CheckItem& each) { return each.Text == id; });
    return static_cast<int>(item - items.begin());
  };
  if (rowOf(second) < rowOf(first)) std::swap(first, second);
  for (const std::string& id : {first, second}) {
    ASSERT_LT(rowOf(id), ListOf(finder).count()) << id;
    ListOf(finder).setCurrentRow(rowOf(id));
    QTest::keyClick(&ListOf(finder), Qt::Key_Space);
  }
}

void BusScene::TypeStations(const std::string& first, const std::string& second) {
  ClickTab(forms::tab::Setup);
  Type(Member("Text1", 12), QString::fromStdString(first));
  Type(Member("Text1", 14), QString::fromStdString(second));
}

void BusScene::ReportBoth(const std::string& first, const std::string& second) {
  ClickTab(forms::tab::Report);
  for (const auto& [choice, id] : {std::pair{6, first}, {7, second}, {6, first}}) {
    Click(Member("Option3", choice));
    ExpectReported(Unit(id));
  }
}

void BusScene::ExpectReported(const BusUnit& unit) {
  SCOPED_TRACE("report of " + unit.Id());
  lookedAt_.clear();
  sources_.clear();
  Click("Command2");
  ASSERT_TRUE(WaitFor([this] { return !Find<QWidget>("Command2").isVisible(); }));
  ASSERT_TRUE(WaitFor([this] { return Find<QWidget>("Command2").isVisible(); }));
  EXPECT_EQ(Told(lookedAt_), unit.Id()) << "it was another station's frame";
  const live::FrameReader reader = unit.Reader();
  EXPECT_EQ(RowOf(forms::report_row::Destination), reader.Address(0));
  EXPECT_EQ(RowOf(forms::report_row::Source), reader.Address(6));
  EXPECT_EQ(RowOf(forms::report_row::Ethertype), reader.Ethertype());
  EXPECT_EQ(RowOf(forms::report_row::StationId), unit.Id());
  // The digits of a counter can mislead the search, so it is the frame that came that counts.
  const live::Frame shown = DumpedFrame();
  if (live::FrameReader{shown, reader.Expected}.Synchronisation() == "02") {
    EXPECT_EQ(RowOf(forms::report_row::Synchronisation),
              "value=2; synchronized by a global area clock");
  }
}

live::Frame BusScene::DumpedFrame() {
  constexpr int FirstDigit = 4;
  constexpr int DigitsOfLine = 48;
  live::Frame frame;
  for (std::size_t line = 0; line < forms::report_row::DumpCount; ++line) {
    const std::string caption = RowOf(forms::report_row::FirstDump + line);
    const QByteArray bytes =
        QByteArray::fromHex(QByteArray::fromStdString(caption).mid(FirstDigit, DigitsOfLine));
    frame.insert(frame.end(), bytes.begin(), bytes.end());
  }
  return frame;
}

std::string BusScene::RowOf(std::size_t row) {
  return Form().Label8[row].Caption;
}

void BusScene::Press(const char* runButton) {
  ASSERT_TRUE(WaitFor([&] { return Find<QWidget>(runButton).isEnabled(); })) << runButton;
  Click(runButton);
}

std::string BusScene::Readings() {
  std::string readings;
  for (int channel = 0; channel < 8; ++channel) readings += Plain(Reading(channel)) + " ";
  return readings + WaitingLine();
}

std::string BusScene::WaitingLine() {
  return Form().QuietLine[forms::quiet_line::Values].Caption;
}

bool BusScene::WaitForReadings(const BusUnit& unit) {
  const std::vector<std::size_t> channels = unit.Channels();
  return WaitFor([&] {
    return std::all_of(channels.begin(), channels.end(), [&](std::size_t channel) {
      return unit.Spans()[channel].Rms.Holds(Plain(Reading(static_cast<int>(channel))));
    });
  });
}

void BusScene::ShowValues(const std::string& first, const std::string& second) {
  ClickTab(forms::tab::Values);
  Press("CWButton4");
  for (const auto& [choice, id] : {std::pair{0, first}, {1, second}, {0, first}}) {
    Click(Member("Option3", choice));
    EXPECT_TRUE(WaitForReadings(Unit(id))) << id << ": " << Readings();
  }
  Press("CWButton4");
  EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);
}

void BusScene::ShowPhasor(const std::string& id) {
  const BusUnit& unit = Unit(id);
  const std::vector<std::size_t> channels = unit.Channels();
  ClickTab(forms::tab::Phasor);
  Press("CWButton2");
  auto& table = Find<QTableWidget>("Grid1");
  const auto cell = [&](std::size_t channel, int column) {
    const auto* item = table.item(static_cast<int>(channel) + 1, column);
    return item == nullptr ? std::string() : Plain(item->text());
  };
  const auto isShown = [&](std::size_t channel) {
    const live::ChannelSpans& spans = unit.Spans()[channel];
    if (!spans.Rms.Holds(cell(channel, 1))) return false;
    if (!spans.Angle) return true;
    for (const double turns : {-360.0, 0.0, 360.0}) {
      const double angle = *spans.Angle + turns;
      if (live::Span{angle - 0.1, angle + 0.1}.Holds(cell(channel, 2))) return true;
    }
    return false;
  };
  EXPECT_TRUE(WaitFor([&] { return std::all_of(channels.begin(), channels.end(), isShown); }))
      << id << ", current A: " << cell(0, 1) << " at " << cell(0, 2);
  Press("CWButton2");
  ASSERT_TRUE(WaitFor([this] { return !Program().Acquisition.State.CaptureRunning; }));
}

void BusScene::ShowWaveforms(const std::string& id) {
  const BusUnit& unit = Unit(id);
  ClickTab(forms::tab::Waveforms);
  Press("CWButton1");
  const auto shown = [&] {
    std::array<std::vector<double>, 8> curves;
    for (std::size_t k = 0; k < curves.size(); ++k) curves[k] = Form().CWGraph1.Plots[k].Y;
    return unit.Brings(curves);
  };
  // A block without a gap takes longer to come where the processors have much else to do.
  EXPECT_TRUE(WaitFor(shown) || WaitFor(shown)) << id;
  Press("CWButton1");
  ASSERT_TRUE(WaitFor([this] { return Find<RunButton>("CWButton1").isEnabled(); }));
}

void BusScene::FindAndShow(std::string first, std::string second) {
  ASSERT_NO_FATAL_FAILURE(FindSenders(first, second));
  ASSERT_NO_FATAL_FAILURE(ShowValues(first, second));
}

void BusScene::GoThroughAllViews(std::string first, std::string second) {
  ASSERT_NO_FATAL_FAILURE(FindSenders(first, second));
  ASSERT_NO_FATAL_FAILURE(ReportBoth(first, second));
  ASSERT_NO_FATAL_FAILURE(ShowValues(first, second));
  ASSERT_NO_FATAL_FAILURE(ShowPhasor(first));
  ASSERT_NO_FATAL_FAILURE(ShowWaveforms(first));
  ASSERT_NO_FATAL_FAILURE(Record(first, second));
}

}  // namespace desktop
