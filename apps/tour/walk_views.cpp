// The walk through the two picture views.

#include <QLabel>
#include <QTableWidget>
#include <QTest>

#include "desktop/binding/graph_view.h"
#include "desktop/widgets/run_button.h"
#include "walk.h"

namespace tour {

namespace {

/// A picture that was asked for is on the screen by then.
constexpr int DrawMs = 60;
constexpr int MagnitudeColumn = 1;
constexpr int AngleColumn = 2;

}  // namespace

QString Walk::Cell(int row, int column) const {
  return dynamic_cast<QTableWidget&>(hand_.Find("Grid1")).item(row, column)->text();
}

void Walk::AwaitButton(const QString& button) {
  record_.Step(button + " is free",
               Hand::WaitFor([&] { return hand_.Find(button).isEnabled(); }, PatienceMs));
}

void Walk::MeasurePhasors() {
  hand_.ClickTab(forms::tab::Phasor);
  AwaitButton("CWButton2");
  hand_.Click("CWButton2");
  record_.Step("the first phasors",
               Hand::WaitFor([this] { return !Cell(1, MagnitudeColumn).isEmpty(); }, PatienceMs));
  record_.Number("current A by phasor", Cell(1, MagnitudeColumn), 400);
  record_.Number("voltage A by phasor", Cell(5, MagnitudeColumn), 63.509);
  record_.Number("angle of current A", Cell(1, AngleColumn), -30);
  record_.Number("angle of voltage B", Cell(6, AngleColumn), -120);
  record_.Number("angle of voltage C", Cell(7, AngleColumn), 120);
  record_.Picture(program_.Window(), "phasors_automatic");

  hand_.Click("Check6");
  const auto& state = program_.Application().Acquisition.State;
  hand_.Find("Combo5(0)").setFocus();
  QTest::keyClick(&hand_.Find("Combo5(0)"), Qt::Key_Up);
  const auto updated = [&] { return hand_.Find("Combo5(0)").isEnabled() && !state.CaptureRunning; };
  record_.Step("the scales are free", Hand::WaitFor(updated, PatienceMs));
  QTest::qWait(1500);
  record_.Picture(program_.Window(), "phasors_fixed_scales");
  AwaitButton("CWButton2");
  hand_.Click("CWButton2");
  hand_.Click("Check6");
}

void Walk::WatchWaveforms() {
  hand_.ClickTab(forms::tab::Waveforms);
  auto& graph = dynamic_cast<desktop::GraphView&>(hand_.Find("CWGraph1"));
  AwaitButton("CWButton1");
  hand_.Click("CWButton1");
  record_.Step(
      "the first curves",
      Hand::WaitFor([this] { return program_.Application().Acquisition.State.BlockCount > 0; },
                    PatienceMs));
  record_.Picture(program_.Window(), "waveforms_running");
  AwaitButton("CWButton1");
  hand_.Click("CWButton1");

  hand_.Click("sevOption1(1)");
  const QPoint middle(graph.width() / 2, graph.height() / 2);
  QTest::mousePress(&graph, Qt::LeftButton, {}, middle - QPoint(160, 120));
  QTest::mouseMove(&graph, middle);
  QTest::mouseMove(&graph, middle + QPoint(20, 60));
  QTest::mouseRelease(&graph, Qt::LeftButton, {}, middle + QPoint(20, 60));
  record_.Step("a zoom falls back to pan",
               Hand::WaitFor(
                   [this] { return program_.Application().Windows.Main.sevOption1[0].Value.Get(); },
                   PatienceMs));
  QTest::qWait(DrawMs);
  record_.Picture(program_.Window(), "waveforms_zoomed");

  QTest::mouseClick(&graph, Qt::RightButton, {}, middle);
  QTest::qWait(DrawMs);
  record_.Picture(program_.Window(), "waveforms_samples");
  QTest::mouseClick(&graph, Qt::RightButton, {}, middle);
  hand_.Click("Check2(0)");
  record_.Step("a channel is off", !program_.Application().Windows.Main.CWGraph1.Plots[0].Visible);
  QTest::qWait(DrawMs);
  record_.Picture(program_.Window(), "waveforms_one_channel_off");
  hand_.Click("Check2(0)");
}

}  // namespace tour
