#include <QHelpEvent>
#include <QLabel>
#include <QSessionManager>
#include <QSettings>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolTip>
#include <csignal>

#include "desktop/binding/termination.h"
#include "paintings.h"
#include "window_scene.h"

namespace desktop {
namespace {

class Window : public WindowScene {
 protected:
  QTabBar& Tabs() { return Find<QTabBar>("TabStrip1"); }
  int Page() { return program_->Window().findChild<QStackedWidget*>()->currentIndex() + 1; }
};

TEST_F(Window, AClickOnATabSelectsItAndBringsItsPageUp) {
  Start();
  for (int tab = 2; tab <= 7; ++tab) {
    ClickTab(tab);
    EXPECT_EQ(Form().TabStrip1.SelectedTab, tab);
    EXPECT_EQ(Page(), tab);
  }
}

TEST_F(Window, AClickOnTheSelectedTabSelectsItAgain) {
  Start();
  ClickTab(forms::tab::Values);
  int changes = 0;
  Form().TabStrip1.Changed = [&] { ++changes; };
  ClickTab(forms::tab::Values);
  EXPECT_EQ(changes, 1);
  ClickTab(forms::tab::Setup);
  EXPECT_EQ(changes, 2);
}

TEST_F(Window, ATabsKeySelectsItAlsoWhenItIsSelectedAlready) {
  Start();
  int changes = 0;
  Form().TabStrip1.Changed = [&] { ++changes; };
  QTest::keyClick(&program_->Window(), Qt::Key_V, Qt::AltModifier);
  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Values);
  EXPECT_EQ(changes, 1);
  QTest::keyClick(&program_->Window(), Qt::Key_V, Qt::AltModifier);
  EXPECT_EQ(changes, 2);
}

TEST_F(Window, TheArrowKeysStopBeforeTheTabThatEndsTheProgram) {
  Start();
  Tabs().setFocus();
  for (int i = 0; i < 10; ++i) QTest::keyClick(&Tabs(), Qt::Key_Right);
  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Setup);
  QTest::keyClick(&Tabs(), Qt::Key_End);
  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Setup);
  EXPECT_FALSE(exitCode_);
}

TEST_F(Window, ATabSelectedByTheProgramShowsInTheStrip) {
  Start();
  Form().TabStrip1.SelectedTab = forms::tab::Waveforms;
  EXPECT_EQ(Tabs().currentIndex(), 3);
  EXPECT_EQ(Page(), 4);
}

TEST_F(Window, TheExitTabEndsTheProgram) {
  Start();
  ClickTab(forms::tab::Exit);
  EXPECT_TRUE(WaitFor([&] { return exitCode_ == 0; }));
  EXPECT_FALSE(program_->Window().isVisible());
}

TEST_F(Window, TheCloseBoxEndsTheProgram) {
  Start();
  // The wish to close is passed on; the window goes when the program unloads it.
  program_->Window().close();
  EXPECT_TRUE(WaitFor([&] { return exitCode_ == 0; }));
}

TEST_F(Window, ClosingDuringARunningViewWaitsForItsButton) {
  Start();
  GoMeasure();
  Click("CWButton4");
  ASSERT_TRUE(Program().Acquisition.State.CaptureRunning);
  ASSERT_FALSE(Form().CWButton4.Enabled);
  const auto pressed = clock_.Now();
  program_->Window().close();
  EXPECT_TRUE(program_->Window().isVisible());
  EXPECT_FALSE(exitCode_);
  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Values);
  EXPECT_TRUE(WaitFor([&] { return exitCode_.has_value(); }));
  EXPECT_EQ(exitCode_, 0);
  EXPECT_GE(clock_.Now() - pressed, std::chrono::milliseconds(950));
  EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);
}

TEST_F(Window, ATipThatLooksLikeMarkupIsShownAsItStands) {
  Start();
  QWidget& window = program_->Window();
  window.setToolTip("<img src='/etc/logo.png'>MU");
  QHelpEvent asked(QEvent::ToolTip, {1, 1}, window.mapToGlobal(QPoint(1, 1)));
  QApplication::sendEvent(&window, &asked);
  EXPECT_TRUE(QToolTip::text().contains("&lt;img src=")) << QToolTip::text().toStdString();
  QToolTip::hideText();
}

TEST_F(Window, ARequestToTerminateStopsCaptureAndEndsTheProgram) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    exitCode_.reset();
    Start();
    GoMeasure();
    const Termination termination([this] { program_->EndSession(); });
    Click("CWButton4");
    ASSERT_TRUE(Program().Acquisition.State.CaptureRunning);
    std::raise(signal);
    EXPECT_TRUE(WaitFor([&] { return exitCode_.has_value(); })) << signal;
    EXPECT_EQ(exitCode_, 0) << signal;
    EXPECT_FALSE(Program().Acquisition.State.CaptureRunning) << signal;
    program_.reset();
  }
}

TEST_F(Window, TheEndOfTheSessionStopsCaptureAndEndsTheProgram) {
  Start();
  GoMeasure();
  Click("CWButton4");
  ASSERT_TRUE(Program().Acquisition.State.CaptureRunning);
  auto* manager = qGuiApp->findChild<QSessionManager*>();
  ASSERT_NE(manager, nullptr);
  emit qGuiApp->commitDataRequest(*manager);
  EXPECT_EQ(exitCode_, 0);
  EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);
}

TEST_F(Window, EveryTabHasItsKey) {
  Start();
  const std::pair<int, Qt::Key> keys[] = {
      {2, Qt::Key_V}, {3, Qt::Key_P}, {4, Qt::Key_W}, {6, Qt::Key_E}, {7, Qt::Key_S}};
  for (const auto& [tab, key] : keys) {
    ClickTab(forms::tab::Info);
    QTest::keyClick(&program_->Window(), key, Qt::AltModifier);
    EXPECT_EQ(Form().TabStrip1.SelectedTab, tab);
    EXPECT_EQ(Page(), tab);
  }
  ClickTab(forms::tab::Values);
  QTest::keyClick(&program_->Window(), Qt::Key_I, Qt::AltModifier);
  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Info);
  QTest::keyClick(&program_->Window(), Qt::Key_R, Qt::AltModifier);
  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Recorder);
  ClickTab(forms::tab::Info);
  QTest::keyClick(&program_->Window(), Qt::Key_X, Qt::AltModifier);
  EXPECT_TRUE(WaitFor([&] { return exitCode_ == 0; }));
}

TEST_F(Window, ShowsTheTitleAndStartsMaximised) {
  Build();
  program_->Load();
  EXPECT_TRUE(program_->Window().isMaximized());
  EXPECT_TRUE(program_->Window().windowTitle().startsWith("Vornik: for Real-Time Communication"));
  EXPECT_TRUE(program_->Window().windowTitle().endsWith("Version: 2.3.5"));
}

TEST_F(Window, AResizeKeepsARunningView) {
  Start();
  GoMeasure();
  Click("CWButton4");
  ASSERT_TRUE(WaitFor([&] { return Reading(0) == "400.0000"; }));
  ResizeFrame({1300, 900});
  EXPECT_EQ(Form().Window.Width, 1300 * 15);
  EXPECT_EQ(Form().Window.Height, 900 * 15);
  EXPECT_EQ(Page(), forms::tab::Values);
  EXPECT_TRUE(Program().Acquisition.State.LookingForValues);
  EXPECT_TRUE(Form().CWButton4.Value);
}

TEST_F(Window, AResizeKeepsTheViewAndItsFocus) {
  Start();
  ClickTab(forms::tab::Setup);
  auto& field = Find<QWidget>(Member("Text1", 12));
  field.setFocus();
  ResizeFrame({1300, 900});
  EXPECT_EQ(Page(), forms::tab::Setup);
  EXPECT_TRUE(field.hasFocus());
}

// As at a start where nobody gives the window another size.
TEST_F(Window, IsPaintedWhereItWasToBeWhileItsViewsWereLaidOut) {
  Start();
  ASSERT_TRUE(WaitFor([&] { return program_->Window().isVisible(); }));
  QTest::qWait(50);
  program_->Window().update();
  Form().TabStrip1.Visible = false;
  Paintings paintings(program_->Window());
  QTest::qWait(50);
  ASSERT_EQ(paintings.Count, 0);
  Form().TabStrip1.Visible = true;
  EXPECT_TRUE(WaitFor([&] { return paintings.Count > 0; }));
}

TEST_F(Window, TheRecorderWithoutItsFolderAsksAndGoesToTheField) {
  Store("Path of stored data", home_.filePath("gone"));
  Start();
  QString text;
  OnDialog([&](QDialog& dialog) {
    text = dialog.property("text").toString();
    dialog.accept();
  });
  ClickTab(forms::tab::Recorder);
  EXPECT_EQ(text,
            "The given path under 'Setup' is not available!\nPlease check the specified path for "
            "errors.");
  EXPECT_EQ(Page(), forms::tab::Setup);
  // Nothing activates the window again after a box here, so its own record of the focus counts.
  auto* field = &Find<QWidget>(Member("Text1", 3));
  EXPECT_TRUE(WaitFor([&] { return program_->Window().focusWidget() == field; }));
  Type(Member("Text1", 3), home_.path());
  ClickTab(forms::tab::Recorder);
  EXPECT_EQ(Page(), forms::tab::Recorder);
  auto& path = Find<QLabel>(Member("Label10", 1));
  EXPECT_TRUE(WaitFor([&] { return path.text().startsWith(home_.path() + "/SV record"); }));
}

TEST_F(Window, CannotBeMadeSmallerThanTheDesignAllows) {
  Start();
  program_->Window().resize(200, 200);
  EXPECT_EQ(program_->Window().frameGeometry().size(), QSize(1024, 768));
}

TEST_F(Window, EveryControlHasItsNameOnce) {
  Start();
  QStringList names = {"TabStrip1", "CWButton4",  "Check5",     "Check4",
                       "Label16",   "Combo1",     "Combo3",     "Combo4(0)",
                       "Combo4(1)", "Shape12(0)", "Option3(0)", "Option3(1)"};
  for (int i = 0; i < 8; ++i) {
    names << Member("Label5", i) << Member("Label6", i) << Member("Label12", i + 8);
  }
  for (int i = 0; i < 15; ++i) names << Member("Text1", i);
  for (int i = 1; i <= 4; ++i) names << Member("StatusBar1.Panels", i);
  for (const QString& name : names) {
    EXPECT_EQ(program_->Window().findChildren<QWidget*>(name).size(), 1) << name.toStdString();
  }
}

TEST_F(Window, SettingsThatCannotBeSavedAreReportedOnce) {
  // A file where the folder of the settings should be.
  const QString blocked = home_.filePath("blocked");
  QFile file(blocked);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, blocked);
  Build();
  int boxes = 0;
  QString text;
  OnDialog([&](QDialog& dialog) {
    ++boxes;
    text = dialog.property("text").toString();
    OnDialog([&](QDialog& second) {
      ++boxes;
      second.accept();
    });
    dialog.accept();
  });
  program_->Load();
  ASSERT_TRUE(WaitFor([&] { return boxes > 0; }));
  EXPECT_TRUE(text.startsWith("The settings can't be saved!")) << text.toStdString();
  ClickTab(forms::tab::Setup);
  Type(Member("Text1", 12), "MU-7");
  QTest::qWait(200);
  EXPECT_EQ(boxes, 1);
  EXPECT_EQ(Program().Config.Settings.FilterContent[0], "MU-7");
}

TEST_F(Window, AStoredSettingThatIsNoNumberEndsTheStartWithTheRuntimesBox) {
  Store("Internal Delay", "12x");
  Build();
  QString text;
  OnDialog([&](QDialog& dialog) {
    text = dialog.property("text").toString();
    dialog.accept();
  });
  program_->Load();
  EXPECT_EQ(text,
            "Run-time error '13':\n\nType mismatch\n\n"
            "The stored setting 'Internal Delay' is '12x'.\nSettings file: " +
                home_.filePath("Vornik/Vornik.conf") +
                "\n\nPlease correct the setting there, or remove the file: the program then starts "
                "with its usual settings.");
  EXPECT_EQ(exitCode_, 1);
}

}  // namespace
}  // namespace desktop
