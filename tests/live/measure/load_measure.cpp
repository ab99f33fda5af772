// What the views and a recording take of the computer beside sixty senders.

#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <iostream>

#include "live/scenes/bus_scene.h"
#include "processor_time.h"

namespace desktop {
namespace {

constexpr int MeasuredMs = 5000;
constexpr int RecordedMs = 10'000;
constexpr int SamplesASecond = 4000;

class SixtySenders : public BusScene {
 protected:
  void SetUp() override {
    BusScene::SetUp();
    if (IsSkipped()) return;
    ASSERT_NO_FATAL_FAILURE(Play("locked", 60));
    ClickTab(forms::tab::Setup);
    // As a new user has it.
    Type(Member("Text1", static_cast<int>(forms::setup_field::Interval)), "500");
    TypeStations("BAY-20", "BAY-40");
  }
  /// What a run takes while the program does nothing else, in percent of a core.
  static double Share(int ms) {
    const double before = ProcessorMs();
    QElapsedTimer taken;
    taken.start();
    QTest::qWait(ms);
    return (ProcessorMs() - before) / static_cast<double>(taken.elapsed()) * 100;
  }
  /// Samples that are missing between the lines of a file.
  static int LostIn(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
    int lost = 0;
    int last = -1;
    for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine()) {
      const int count = line.split(';')[1].toInt();
      if (last >= 0) lost += (count - last - 1 + SamplesASecond) % SamplesASecond;
      last = count;
    }
    return lost;
  }
};

TEST_F(SixtySenders, BesideTheLiveViews) {
  std::cout << "at rest: " << Share(MeasuredMs) << " %" << std::endl;
  const struct {
    const char* Name;
    int Tab;
    const char* Button;
  } views[] = {{"Values", forms::tab::Values, "CWButton4"},
               {"Phasor", forms::tab::Phasor, "CWButton2"},
               {"Waveforms", forms::tab::Waveforms, "CWButton1"}};
  for (const auto& view : views) {
    ClickTab(view.Tab);
    Press(view.Button);
    QTest::qWait(1000);
    const double share = Share(MeasuredMs);
    std::cout << view.Name << ": " << share << " % of a core" << std::endl;
    Press(view.Button);
  }
}

TEST_F(SixtySenders, BesideARecordingOfTwoStreams) {
  ClickTab(forms::tab::Recorder);
  Click(Member("Option2", static_cast<int>(forms::record_format::Text)));
  Press("CWButton3");
  ASSERT_TRUE(WaitFor([this] { return Find<RunButton>("CWButton3").isVisible(); }));
  const double share = Share(RecordedMs);
  OnDialog([](QDialog& dialog) { dialog.reject(); });
  Press("CWButton3");
  const QString name = QString::fromStdString(Program().Acquisition.State.RecordFileName);
  const QString folder = home_.filePath("StoredData/");
  std::cout << "recording of two streams: " << share << " % of a core, "
            << LostIn(folder + "1_" + name) << " and " << LostIn(folder + "2_" + name)
            << " samples lost; " << Form().OnDisk[0].Caption.Get() << "; "
            << Form().OnDisk[1].Caption.Get() << std::endl;
}

}  // namespace
}  // namespace desktop
