#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QSessionManager>
#include <csignal>

#include "base/failure.h"
#include "desktop/binding/termination.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// What goes on behind a box that stands.
class Boxes : public WindowScene {
 protected:
  /// Longer than the lock of a run button, and many frames and bursts long.
  static constexpr int AWhileMs = 1500;

  /// Runs the Values view with the real-time value, which keeps capture running, up to a frame
  /// whose reading fails: a plain box tells so.
  void RunIntoABox(const std::function<void(QDialog&)>& whileItStands) {
    Start();
    GoMeasure();
    Click("Check5");
    OnDialog([this, whileItStands](QDialog& box) {
      ++boxes_;
      whileItStands(box);
      box.accept();
    });
    Form().Label5[0].Caption.Observe([this] {
      ++readings_;
      if (readings_ == 10) throw platform::Failure(platform::failure::OutOfMemory);
    });
    Click("CWButton4");
    ASSERT_TRUE(WaitFor([this] { return boxes_ > 0; }));
  }

  int boxes_ = 0;
  int readings_ = 0;
};

TEST_F(Boxes, NoFrameIsHandedOverAndNoTimerFiresBehindOne) {
  int behind = -1;
  bool locked = false;
  RunIntoABox([&](QDialog& box) {
    EXPECT_EQ(box.windowTitle(), "unknown...");
    EXPECT_TRUE(Program().Acquisition.State.CaptureRunning);
    EXPECT_FALSE(Form().CWButton4.Enabled);
    EXPECT_TRUE(Form().Timer3.Enabled);
    const int before = readings_;
    QTest::qWait(AWhileMs);
    behind = readings_ - before;
    locked = !Form().CWButton4.Enabled;
  });
  EXPECT_EQ(behind, 0);
  EXPECT_TRUE(locked);
  const int before = readings_;
  EXPECT_TRUE(WaitFor([&] { return readings_ > before + 100; }));
  EXPECT_TRUE(WaitFor([&] { return Form().CWButton4.Enabled.Get(); }));
  EXPECT_EQ(boxes_, 1);
}

TEST_F(Boxes, TheNoDataDialogCountsDownAndHoldsTheProgramsTimers) {
  Start();
  GoMeasure("NOBODY");
  bool fired = false;
  bool firedBehind = true;
  QString line;
  OnDialog([&](QDialog& dialog) {
    Form().Timer3.Interval = 100;
    Form().Timer3.Elapsed = [&] { fired = true; };
    Form().Timer3.Enabled = true;
    auto& countdown = *dialog.findChild<QLabel*>("Countdown");
    const QString first = countdown.text();
    EXPECT_TRUE(WaitFor([&] { return countdown.text() != first; }));
    line = countdown.text();
    firedBehind = fired;
    dialog.accept();
  });
  Form().Text1[14].Text = "";
  Click("CWButton4");
  ASSERT_TRUE(WaitFor([&] { return !line.isEmpty(); }));
  EXPECT_EQ(line, "This window will be closed after: 29 seconds.");
  EXPECT_FALSE(firedBehind);
  EXPECT_TRUE(WaitFor([&] { return fired; }));
}

TEST_F(Boxes, TheFolderDialogHoldsTheProgramToo) {
  Start();
  ClickTab(forms::tab::Setup);
  bool fired = false;
  bool firedBehind = true;
  Form().Timer3.Interval = 50;
  Form().Timer3.Elapsed = [&] { fired = true; };
  OnDialog([&](QDialog& dialog) {
    EXPECT_NE(qobject_cast<QFileDialog*>(&dialog), nullptr);
    Form().Timer3.Enabled = true;
    QTest::qWait(300);
    firedBehind = fired;
    dialog.reject();
  });
  Click("Command3");
  EXPECT_FALSE(firedBehind);
  EXPECT_TRUE(WaitFor([&] { return fired; }));
}

TEST_F(Boxes, SettingsThatCannotBeSavedAreReportedWhenTheBoxIsGone) {
  Start();
  EXPECT_TRUE(QDir(home_.filePath("StoredData")).removeRecursively());
  QStringList texts;
  const auto close = [&](QDialog& dialog) {
    QTest::qWait(200);
    EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    texts << dialog.property("text").toString();
    dialog.accept();
  };
  OnDialog([&](QDialog& dialog) {
    // From here on a file stands where the folder of the settings was.
    EXPECT_TRUE(QDir(home_.filePath("Vornik")).removeRecursively());
    QFile blocked(home_.filePath("Vornik"));
    EXPECT_TRUE(blocked.open(QIODevice::WriteOnly));
    Form().Text1[4].Text = "Bay 7";
    close(dialog);
    OnDialog(close);
  });
  ClickTab(forms::tab::Recorder);
  ASSERT_TRUE(WaitFor([&] { return texts.size() == 2; }));
  EXPECT_TRUE(texts.first().startsWith("The given path"));
  EXPECT_TRUE(texts.last().startsWith("The settings can't be saved!"));
}

TEST_F(Boxes, ASignalFromBehindOneEndsTheProgramWithCaptureStopped) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    boxes_ = 0;
    readings_ = 0;
    exitCode_.reset();
    std::optional<Termination> termination;
    RunIntoABox([&](QDialog&) {
      termination.emplace([this] { program_->EndSession(); });
      std::raise(signal);
      EXPECT_TRUE(WaitFor([&] { return exitCode_.has_value(); })) << signal;
    });
    EXPECT_EQ(exitCode_, 0) << signal;
    EXPECT_FALSE(Program().Acquisition.State.CaptureRunning) << signal;
    program_.reset();
  }
}

TEST_F(Boxes, TheEndOfTheSessionFromBehindOneEndsTheProgramWithCaptureStopped) {
  RunIntoABox([&](QDialog&) {
    auto* manager = qGuiApp->findChild<QSessionManager*>();
    ASSERT_NE(manager, nullptr);
    emit qGuiApp->commitDataRequest(*manager);
    EXPECT_EQ(exitCode_, 0);
  });
  EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);
}

}  // namespace
}  // namespace desktop
