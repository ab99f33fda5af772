// Presses of STOP at all moments of a live view's cycle.

#include <QApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QTimer>
#include <chrono>
#include <iostream>
#include <thread>

#include "live/scenes/bus_scene.h"

namespace desktop {
namespace {

using std::chrono::milliseconds;

constexpr int Moments = 50;
/// Of a usual cycle: a block of 100 ms, two pauses of 600 ms, and the drawing.
constexpr milliseconds Cycle{800};
/// Long enough for another burst to begin.
constexpr int SettleMs = 1000;

struct View {
  const char* Name;
  int Tab;
  const char* Button;
};

/// A hand that presses when its moment has come, whatever the program is at. The press waits in the
/// queue and is handled in the next pump.
class PressingHand {
 public:
  PressingHand(QWidget& button, milliseconds after)
      : press_([&button, after] {
          std::this_thread::sleep_for(after);
          const QPointF at(12, button.height() / 2.0);
          for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool down = type == QEvent::MouseButtonPress;
            QApplication::postEvent(
                &button, new QMouseEvent(type, at, button.mapToGlobal(at), Qt::LeftButton,
                                         down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
          }
        }) {}
  ~PressingHand() { press_.join(); }

 private:
  std::thread press_;
};

class StopAtAnyMoment : public BusScene, public testing::WithParamInterface<View> {
 protected:
  /// A box would hold the measure up until somebody comes.
  void CloseBoxes() {
    boxes_.callOnTimeout([] {
      auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      std::cout << "a box: " << box->property("text").toString().simplified().toStdString() << " "
                << box->windowTitle().toStdString() << std::endl;
      box->reject();
    });
    boxes_.start(100);
  }

 private:
  QTimer boxes_;
};

TEST_P(StopAtAnyMoment, LeavesNothingRunning) {
  ASSERT_NO_FATAL_FAILURE(Play("locked", 7, "--spacing 5"));
  Type(Member("Text1", static_cast<int>(forms::setup_field::Interval)), "500");
  TypeStations("BAY-01", "BAY-05");
  CloseBoxes();
  const View view = GetParam();
  int left = 0;
  int stuck = 0;
  for (int moment = 0; moment < Moments; ++moment) {
    ClickTab(forms::tab::Info);
    ClickTab(view.Tab);
    auto& button = Find<RunButton>(view.Button);
    Press(view.Button);
    // A second into the run, which shows blocks by then.
    if (!WaitFor([&] { return button.isEnabled() && button.Position(); })) {
      ++stuck;
      std::cout << view.Name << ": no run at moment " << moment << ", the face says "
                << (button.Position() ? "STOP" : "RUN") << (button.isEnabled() ? "" : ", locked")
                << (Program().Acquisition.State.CaptureRunning ? ", capture runs" : "")
                << std::endl;
      continue;
    }
    {
      const PressingHand hand(button, Cycle * moment / Moments);
      QTest::qWait(static_cast<int>(Cycle.count()));
    }
    QTest::qWait(SettleMs);
    const bool running = Program().Acquisition.State.CaptureRunning || button.Position();
    if (!running) continue;
    ++left;
    std::cout << view.Name << ": still running behind the press at "
              << (Cycle * moment / Moments).count() << " ms" << std::endl;
  }
  std::cout << view.Name << ": " << left << " of " << Moments << " presses left capture running, "
            << stuck << " runs did not begin" << std::endl;
}

INSTANTIATE_TEST_SUITE_P(On, StopAtAnyMoment,
                         testing::Values(View{"Values", forms::tab::Values, "CWButton4"},
                                         View{"Phasor", forms::tab::Phasor, "CWButton2"},
                                         View{"Waveforms", forms::tab::Waveforms, "CWButton1"}));

}  // namespace
}  // namespace desktop
