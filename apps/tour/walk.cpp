#include "walk.h"

#include <QAbstractButton>
#include <QDateTime>
#include <QFile>
#include <QLabel>
#include <QTest>
#include <cmath>

#include "desktop/widgets/reading_field.h"
#include "desktop/widgets/run_button.h"

namespace tour {

namespace {

// What the two units of the simulated bus send.
constexpr double FirstAmperes = 400;
constexpr double FirstKilovolts = 63.509;
constexpr double SecondAmperes = 150;
constexpr double SecondKilovolts = 11.547;

QString Member(const char* array, int index) {
  return QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index);
}

}  // namespace

Walk::Walk(const desktop::Sources& sources, QSize size, qint64 started, Record& record)
    : program_(sources, [this](int exitCode) { exitCode_ = exitCode; }),
      size_(size),
      started_(started),
      record_(record),
      hand_(program_.Window()) {}

void Walk::Run() {
  ShowStart();
  ReadHistory();
  SetUp();
  VisitTabs();
  MeasureFirstStation();
  MeasureSecondStation();
  MeasureRealTime();
  Stop();
  MeasurePhasors();
  WatchWaveforms();
  MakeReports();
  PrintPages();
  RecordInAllFormats();
  MissFolder();
  MeetNoData();
  Exit();
}

void Walk::ShowStart() {
  program_.Load();
  record_.Step("the window comes up", QTest::qWaitForWindowExposed(&program_.Window()));
  MeasureStart();
  program_.Window().showNormal();
  program_.Window().resize(size_);
  record_.Step("the window has its size",
               Hand::WaitFor([this] { return program_.Window().size() == size_; }, PatienceMs));
  record_.Picture(program_.Window(), "info");
}

void Walk::MeasureStart() {
  record_.Measure("start until the first tab shows, ms",
                  static_cast<double>(QDateTime::currentMSecsSinceEpoch() - started_));
#ifdef Q_OS_LINUX
  QFile status("/proc/self/status");
  if (!status.open(QIODevice::ReadOnly)) return;
  for (const QByteArray& line : status.readAll().split('\n')) {
    if (!line.startsWith("VmHWM:")) continue;
    record_.Measure("peak resident memory of the start, MB",
                    line.mid(6).simplified().split(' ').first().toDouble() / 1024);
  }
#endif
}

void Walk::ReadHistory() {
  bool shown = false;
  hand_.OnDialog([this, &shown](QDialog& dialog) {
    shown = true;
    record_.Picture(dialog, "revision_history");
    QTest::mouseClick(dialog.findChild<QAbstractButton*>("cmdOK"), Qt::LeftButton);
  });
  hand_.Click("Label4");
  record_.Step("the revision history opens and closes", shown);
}

void Walk::VisitTabs() {
  struct Visit {
    int Tab;
    const char* Name;
  };
  for (const Visit& visit :
       {Visit{3, "phasor"}, {4, "waveforms"}, {5, "recorder"}, {6, "report"}}) {
    hand_.ClickTab(visit.Tab);
    record_.Step(QStringLiteral("the %1 view comes up").arg(QLatin1String(visit.Name)),
                 program_.Application().Windows.Main.TabStrip1.SelectedTab == visit.Tab);
    // Texts come to the screen with its next frame, on a busy computer later than that.
    QTest::qWait(250);
    record_.Picture(program_.Window(), QLatin1String(visit.Name) + QLatin1String("_idle"));
  }
}

void Walk::SetUp() {
  hand_.ClickTab(forms::tab::Setup);
  record_.Picture(program_.Window(), "setup_empty");
  hand_.ChooseFirst("Combo1");
  FindStreams();
  // Pages go to files, whatever printers the computer has.
  hand_.ChooseLast("Combo2");
  hand_.Click("Check4");
  const auto& settings = program_.Application().Config.Settings;
  record_.Step("the simulated bus is chosen", settings.AdapterIndex == 1);
  record_.Step("the first filter is set", settings.FilterContent[0] == "VORNIK-SIM-1");
  record_.Step("the second filter is set", settings.FilterContent[1] == "VORNIK-SIM-2");
  record_.Step("the DC values are on", settings.ACDC);
  record_.Picture(program_.Window(), "setup");
  ChooseFolder();
}

void Walk::MeasureFirstStation() {
  hand_.ClickTab(forms::tab::Values);
  record_.Picture(program_.Window(), "values_idle");
  PressRun();
  record_.Step("the run button is locked after the press", IsLocked());
  record_.Step("numbers of the first station", WaitForCurrent(FirstAmperes));
  NoteSet("first station", FirstAmperes, FirstKilovolts);
  const auto& dc = dynamic_cast<QLabel&>(hand_.Find(Member("Label12", 8)));
  record_.Step("the DC value shows", dc.text().startsWith("DC:"));
  record_.Step("capture shows", Hand::WaitFor([this] { return IsCapturing(); }, PatienceMs));
  record_.Picture(program_.Window(), "values_running");
}

void Walk::MeasureSecondStation() {
  hand_.Click(Member("Option3", 1));
  record_.Step("numbers of the second station", WaitForCurrent(SecondAmperes));
  NoteSet("second station", SecondAmperes, SecondKilovolts);
  record_.Picture(program_.Window(), "second_station");
  hand_.Click(Member("Option3", 0));
  record_.Step("back to the first station", WaitForCurrent(FirstAmperes));
}

void Walk::MeasureRealTime() {
  constexpr int Channel = 6;
  hand_.Click("Check5");
  hand_.Click(Member("Label5", Channel));
  // The click clears all readings; only the chosen one comes up again.
  const auto alone = [this] {
    return Value(0) == 0 && Value(5) == 0 && std::abs(Value(Channel) - FirstKilovolts) < 0.001;
  };
  record_.Step("the real-time value comes up alone", Hand::WaitFor(alone, PatienceMs));
  record_.Number("voltage C in real time", Reading(Channel), FirstKilovolts);
  record_.Picture(program_.Window(), "real_time");
  hand_.Click("Check5");
  record_.Step("back to blocks", WaitForCurrent(FirstAmperes));
}

void Walk::Stop() {
  record_.Step("the run button is free", Hand::WaitFor([this] { return !IsLocked(); }, PatienceMs));
  hand_.Click("CWButton4");
  record_.Step("the run button is locked after the stop", IsLocked());
  record_.Step("no capture shows", !IsCapturing());
  record_.Picture(program_.Window(), "stopped");
  record_.Step("the run button comes back",
               Hand::WaitFor([this] { return !IsLocked(); }, PatienceMs));
}

void Walk::MeetNoData() {
  hand_.ClickTab(forms::tab::Setup);
  hand_.Type(Member("Text1", 12), "NOBODY");
  hand_.Type(Member("Text1", 14), "NOBODY ELSE");
  hand_.ClickTab(forms::tab::Values);
  bool shown = false;
  hand_.OnDialog([this, &shown](QDialog& dialog) {
    auto* text = dialog.findChild<QLabel*>("Text");
    shown = text != nullptr && text->text().contains("No data received!");
    record_.Picture(dialog, "no_data_dialog");
    QTest::mouseClick(dialog.findChild<QAbstractButton*>("Close"), Qt::LeftButton);
  });
  PressRun();
  record_.Step("the no-data dialog comes up", Hand::WaitFor([&] { return shown; }, PatienceMs));
  const auto& run = dynamic_cast<desktop::RunButton&>(hand_.Find("CWButton4"));
  record_.Step("the run button falls back",
               Hand::WaitFor([&] { return !run.Position() && run.isEnabled(); }, PatienceMs));
}

void Walk::Exit() {
  hand_.ClickTab(forms::tab::Exit);
  record_.Step("the program ends without an error",
               Hand::WaitFor([this] { return exitCode_ == 0; }, PatienceMs));
}

void Walk::PressRun() {
  hand_.Click("CWButton4");
}

QString Walk::Reading(int channel) const {
  return dynamic_cast<desktop::ReadingField&>(hand_.Find(Member("Label5", channel))).Text();
}

double Walk::Value(int channel) const {
  return Reading(channel).toDouble();
}

bool Walk::IsLocked() const {
  return !hand_.Find("CWButton4").isEnabled();
}

bool Walk::IsCapturing() const {
  return hand_.Find(Member("Shape12", 0)).isVisible();
}

bool Walk::WaitForCurrent(double amperes) const {
  return Hand::WaitFor([&] { return std::abs(Value(0) - amperes) < 1; }, PatienceMs);
}

void Walk::NoteSet(const QString& station, double amperes, double kilovolts) {
  constexpr int Phases = 3;
  constexpr int FirstVoltage = 4;
  constexpr const char* Names = "ABC";
  for (int phase = 0; phase < Phases; ++phase) {
    const QString name = QLatin1Char(' ') + QString(QLatin1Char(Names[phase])) + ", " + station;
    record_.Number("current" + name, Reading(phase), amperes);
    record_.Number("voltage" + name, Reading(FirstVoltage + phase), kilovolts);
  }
}

}  // namespace tour
