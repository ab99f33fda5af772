// The walk through what leaves something behind: recordings, reports, printed pages.

#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QTest>
#include <memory>

#include "desktop/widgets/run_button.h"
#include "walk.h"

namespace tour {

namespace {

/// A ring is a second of a stream, and the files of two of them are written and read back.
constexpr int RecordingMs = 30'000;
constexpr int PageMs = 250;

}  // namespace

QDir Walk::DataFolder() {
  return {QString::fromStdString(program_.Application().Config.Settings.StoragePath)};
}

void Walk::FindStreams() {
  bool both = false;
  hand_.OnDialog([&](QDialog& dialog) {
    auto* list = dialog.findChild<QListWidget*>("IDlook.List1");
    both = Hand::WaitFor([&] { return list->count() == 2; }, PatienceMs);
    for (int row = 0; row < list->count(); ++row) {
      list->setCurrentRow(row);
      QTest::keyClick(list, Qt::Key_Space);
    }
    QTest::qWait(PageMs);
    record_.Picture(dialog, "finder");
    QTest::mouseClick(dialog.findChild<QAbstractButton*>("IDlook.Command1"), Qt::LeftButton);
  });
  hand_.Click("Command7");
  record_.Step("the finder lists both streams", both);
  const auto& content = program_.Application().Config.Settings.FilterContent;
  record_.Step("both streams are taken", !content[0].empty() && !content[1].empty());
  if (content[0] == "VORNIK-SIM-1") return;
  // The list has them in the order of their first frames; the walk goes by their numbers.
  hand_.Type("Text1(12)", "VORNIK-SIM-1");
  hand_.Type("Text1(14)", "VORNIK-SIM-2");
}

void Walk::RecordInAllFormats() {
  // One stream alone has a log and a quick view; the field that was written last counts.
  hand_.ClickTab(forms::tab::Setup);
  hand_.Type("Text1(14)", "");
  hand_.Type("Text1(12)", "VORNIK-SIM-1");
  hand_.ClickTab(forms::tab::Recorder);
  for (const char* format : {"comtrade", "worksheet", "text"}) RecordAs(format);
  hand_.ClickTab(forms::tab::Setup);
  hand_.Type("Text1(14)", "VORNIK-SIM-2");
}

void Walk::RecordAs(const QString& format) {
  const int index = format == "text" ? 0 : format == "worksheet" ? 1 : 2;
  auto& main = program_.Application().Windows.Main;
  hand_.Click(QStringLiteral("Option2(%1)").arg(index));
  hand_.Click("CWButton3");
  record_.Step(format + ": the button is away until the first ring is on disk",
               !hand_.Find("CWButton3").isVisible());
  if (index == 0) record_.Picture(program_.Window(), "recorder_waiting");
  record_.Step(format + ": the first ring is on disk",
               Hand::WaitFor([&] { return main.CWButton3.Visible.Get(); }, RecordingMs));
  QTest::qWait(1300);
  record_.Picture(program_.Window(), "recorder_" + format);
  if (index == 0) {
    KeepWhatRuns();
    PictureOfTheAnalysis();
  }
  if (index == 1) {
    hand_.OnDialog([this](QDialog& dialog) {
      record_.Picture(dialog, "no_viewer_box");
      dialog.accept();
    });
  }
  hand_.Click("CWButton3");
  const auto ended = [&] { return !main.CWButton3.Value && main.Option2[0].Enabled; };
  record_.Step(format + ": the recording has ended", Hand::WaitFor(ended, RecordingMs));
  QTest::qWait(PageMs);
  record_.Picture(program_.Window(), "recorder_" + format + "_ended");
  KeepFiles(format);
}

void Walk::KeepWhatRuns() {
  bool asked = false;
  hand_.OnDialog([this, &asked](QDialog& dialog) {
    asked = true;
    QTest::qWait(PageMs);
    record_.Picture(dialog, "end_question");
    QTest::mouseClick(dialog.findChild<QAbstractButton*>("EndQuestion.Keep"), Qt::LeftButton);
  });
  hand_.ClickTab(forms::tab::Values);
  record_.Step("another tab asks before it ends a recording",
               Hand::WaitFor([&] { return asked; }, PatienceMs));
  record_.Step("the recording is kept", program_.Application().Windows.Main.CWButton3.Value);
}

void Walk::ChooseFolder() {
  hand_.OnDialog([this](QDialog& dialog) {
    QTest::qWait(PageMs);
    record_.Picture(dialog, "folder_dialog");
    dialog.reject();
  });
  hand_.Click("Command3");
}

void Walk::MissFolder() {
  hand_.ClickTab(forms::tab::Setup);
  const QString kept = DataFolder().path();
  hand_.Type("Text1(3)", "/nowhere");
  hand_.OnDialog([this](QDialog& dialog) {
    QTest::qWait(PageMs);
    record_.Picture(dialog, "missing_folder_box");
    dialog.accept();
  });
  hand_.ClickTab(forms::tab::Recorder);
  record_.Step("without its folder the recorder sends to the setup",
               program_.Application().Windows.Main.TabStrip1.SelectedTab == forms::tab::Setup);
  hand_.Type("Text1(3)", kept);
}

void Walk::PictureOfTheAnalysis() {
  // The analysis holds the window, but it paints its bar; a picture is taken of such a moment.
  auto& bar = program_.Application().Windows.Main.ProgressBar1;
  auto taken = std::make_shared<bool>(false);
  bar.Value.Observe([this, &bar, taken] {
    if (*taken || !bar.Visible || bar.Value < 50) return;
    *taken = true;
    record_.Picture(program_.Window(), "recorder_analysing");
  });
}

void Walk::KeepFiles(const QString& what) {
  const QFileInfoList files = DataFolder().entryInfoList(QDir::Files);
  record_.Step(what + ": files are left", !files.isEmpty());
  for (const QFileInfo& file : files) {
    record_.Keep(file.filePath(), file.fileName());
    QFile::remove(file.filePath());
  }
}

void Walk::MakeReports() {
  hand_.ClickTab(forms::tab::Report);
  auto& main = program_.Application().Windows.Main;
  for (int station = 0; station < 2; ++station) {
    hand_.Click(QStringLiteral("Option3(%1)").arg(6 + station));
    const QString id = QStringLiteral("VORNIK-SIM-%1").arg(station + 1);
    AwaitButton("Command2");
    hand_.Click("Command2");
    Hand::WaitFor([&] { return main.Command2.Visible && main.Command2.Enabled; }, PatienceMs);
    QTest::qWait(PageMs);
    record_.Step("the report of " + id, ToText(main.Label8[7].Caption) == id);
    record_.Picture(program_.Window(), QStringLiteral("report_%1").arg(station + 1));
  }
}

void Walk::PrintPages() {
  hand_.Click("Command4");
  QTest::qWait(PageMs);
  record_.Picture(program_.Window(), "report_printed");
  hand_.ClickTab(forms::tab::Waveforms);
  AwaitButton("Command1");
  hand_.Click("Command1");
  const QStringList pages = DataFolder().entryList({"*.pdf"}, QDir::Files);
  record_.Step("both pages are printed to files", pages.size() == 2);
  QTest::qWait(PageMs);
  const auto& panel = dynamic_cast<QLabel&>(hand_.Find("StatusBar1.Panels(2)"));
  record_.Step("the status bar tells the file", panel.text().startsWith("Printed to "));
  KeepFiles("prints");
}

}  // namespace tour
