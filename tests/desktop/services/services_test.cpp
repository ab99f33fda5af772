#include <gtest/gtest.h>

#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <functional>

#include "adapters/steady_clock.h"
#include "desktop/binding/qt_event_queue.h"
#include "desktop/binding/repaint_queue.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/services/qt_alarm.h"
#include "desktop/services/qt_dialogs.h"
#include "desktop/services/system_locale.h"
#include "desktop/services/timed_dialog.h"
#include "desktop/widgets/message_dialog.h"
#include "platform/loop/frame_turns.h"
#include "platform/loop/timer_turns.h"

namespace desktop {
namespace {

bool WaitFor(const std::function<bool()>& condition) {
  constexpr int PatienceMs = 8000;
  return QTest::qWaitFor(condition, PatienceMs);
}

platform::TimedMessage Message(std::int32_t seconds) {
  return {"Attention", "prefix\r\nline", "Close", "Verdana", true, seconds, "closes in #sec# s"};
}

TEST(TimedDialogScene, ClosesItselfAndCountsTheSeconds) {
  TimedDialog dialog(Message(2), nullptr);
  auto& line = *dialog.findChild<QLabel*>("Countdown");
  QStringList lines{line.text()};
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    if (lines.last() != line.text()) lines << line.text();
  });
  look.start(10);
  QElapsedTimer time;
  time.start();
  dialog.exec();
  EXPECT_EQ(lines, QStringList({"closes in 2 s", "closes in 1 s"}));
  EXPECT_GE(time.elapsed(), 1900);
}

TEST(TimedDialogScene, ClosesByItsButton) {
  TimedDialog dialog(Message(30), nullptr);
  EXPECT_EQ(dialog.windowTitle(), "Attention");
  EXPECT_EQ(dialog.findChild<QLabel*>("Text")->text(), "prefix\nline");
  auto* close = dialog.findChild<QPushButton*>("Close");
  EXPECT_EQ(close->text(), "Close");
  QTimer::singleShot(50, &dialog, [&] { QTest::mouseClick(close, Qt::LeftButton); });
  EXPECT_EQ(dialog.exec(), QDialog::Accepted);
  // The seconds have not run down.
  EXPECT_NE(dialog.findChild<QLabel*>("Countdown")->text(), "closes in 1 s");
}

TEST(TimedDialogScene, StandsInTheFontOfItsMessageAndOnlyItsTextIsBold) {
  for (const char* family : {"Verdana", "Courier New"}) {
    for (const bool bold : {true, false}) {
      platform::TimedMessage message = Message(30);
      message.FontName = family;
      message.Bold = bold;
      const TimedDialog dialog(message, nullptr);
      for (const QString part : {"Text", "Countdown", "Close"}) {
        const QFont font = dialog.findChild<QWidget*>(part)->font();
        EXPECT_EQ(font.family(), look::TextFont(look::TextSize, family).family())
            << part.toStdString();
        EXPECT_EQ(font.bold(), bold && part == "Text") << part.toStdString() << " in " << family;
      }
    }
  }
  ASSERT_NE(look::TextFont(look::TextSize, "Verdana").family(),
            look::TextFont(look::TextSize, "Courier New").family());
}

/// The message box that stands.
MessageDialog* Box() {
  return qobject_cast<MessageDialog*>(QApplication::activeModalWidget());
}

/// Presses the answer of this caption.
std::function<void(MessageDialog&)> Press(const char* caption) {
  return [caption](MessageDialog& box) {
    for (QPushButton* answer : box.findChildren<QPushButton*>()) {
      if (answer->text() == QLatin1String(caption)) answer->click();
    }
  };
}

/// What the user's work at a box with these buttons means.
platform::Answer AnswerTo(platform::Buttons buttons,
                          const std::function<void(MessageDialog&)>& user) {
  QtDialogs dialogs;
  QTimer::singleShot(50, qApp, [&user] {
    ASSERT_NE(Box(), nullptr);
    user(*Box());
  });
  return dialogs.Show({"Attention", "text", platform::Icon::Critical, buttons});
}

const auto Escape = [](MessageDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); };
const auto Return = [](MessageDialog& box) { QTest::keyClick(&box, Qt::Key_Return); };
const auto Close = [](MessageDialog& box) { box.close(); };

TEST(MessageBoxes, GiveTheAnswerOfTheUser) {
  using platform::Answer;
  constexpr auto YesNo = platform::Buttons::YesNo;
  EXPECT_EQ(AnswerTo(YesNo, Press("&Yes")), Answer::Yes);
  EXPECT_EQ(AnswerTo(YesNo, Press("&No")), Answer::No);
  EXPECT_EQ(AnswerTo(YesNo, Return), Answer::Yes);
  EXPECT_EQ(AnswerTo(YesNo, Escape), Answer::No);
  EXPECT_EQ(AnswerTo(YesNo, Close), Answer::No);
}

TEST(MessageBoxes, HaveTheProgramsNameWhereTheyHaveNoTitle) {
  QtDialogs dialogs;
  QString title;
  QString text;
  QTimer::singleShot(50, qApp, [&] {
    ASSERT_NE(Box(), nullptr);
    title = Box()->windowTitle();
    text = Box()->Text();
    QTest::keyClick(Box(), Qt::Key_C, Qt::ControlModifier);
    Box()->accept();
  });
  dialogs.Show({"", "one\r\ntwo"});
  EXPECT_EQ(title, "Vornik");
  EXPECT_EQ(text, "one\ntwo");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
}

TEST(MessageBoxes, StopOnlyWhereStopIsPressed) {
  using platform::Answer;
  constexpr auto OkStop = platform::Buttons::OkStop;
  EXPECT_EQ(AnswerTo(OkStop, Press("&Stop")), Answer::Stop);
  EXPECT_EQ(AnswerTo(OkStop, Press("&OK")), Answer::Ok);
  EXPECT_EQ(AnswerTo(OkStop, Escape), Answer::Ok);
  EXPECT_EQ(AnswerTo(OkStop, Return), Answer::Ok);
  EXPECT_EQ(AnswerTo(OkStop, Close), Answer::Ok);
}

TEST(RepaintQueueScene, ManyChangesCostOneUpdateAFrame) {
  RepaintQueue queue;
  int updates = 0;
  const std::size_t entry = queue.Add([&] { ++updates; });
  for (int i = 0; i < 4000; ++i) queue.Mark(entry);
  EXPECT_EQ(updates, 0);
  QTest::qWait(60);
  EXPECT_EQ(updates, 1);
  queue.Mark(entry);
  queue.Flush();
  EXPECT_EQ(updates, 2);
  QTest::qWait(60);
  EXPECT_EQ(updates, 2);
}

/// A program whose end is only noted.
struct Stage {
  QtDialogs Dialogs;
  int Ends = 0;
  platform::RunningProgram Program{[] {}, [this](int) { ++Ends; }};
  platform::Guard Entry{Dialogs, Program};
  RepaintQueue Repaints;
  QtEventQueue Events{Repaints, Entry};
  adapters::SteadyClock Clock;
  QtAlarm Alarm;
};

TEST(EventQueueScene, APumpBringsTheTextsToTheirWidgets) {
  Stage stage;
  int updates = 0;
  const std::size_t entry = stage.Repaints.Add([&] { ++updates; });
  stage.Repaints.Mark(entry);
  stage.Events.Pump();
  EXPECT_EQ(updates, 1);
}

TEST(EventQueueScene, AnEndInsideAPumpLeavesTheHandlerThatPumped) {
  Stage stage;
  QTimer::singleShot(0, qApp, [&] { stage.Entry([&] { stage.Program.End(); }); });
  bool wentOn = false;
  stage.Entry([&] {
    QTest::qWait(20);
    stage.Events.Pump();
    wentOn = true;
  });
  EXPECT_EQ(stage.Ends, 1);
  EXPECT_FALSE(wentOn);
}

TEST(EventQueueScene, AWaitLetsNoEventIn) {
  Stage stage;
  bool delivered = false;
  QTimer::singleShot(0, qApp, [&] { delivered = true; });
  QElapsedTimer time;
  time.start();
  stage.Events.WaitMs(60);
  EXPECT_GE(time.elapsed(), 60);
  EXPECT_FALSE(delivered);
  stage.Events.Pump();
  EXPECT_TRUE(delivered);
}

TEST(TimerTurnsScene, FiresAtItsTimeAndLetsOthersFireInsideOfAnEvent) {
  Stage stage;
  platform::TimerQueue timers(stage.Clock);
  platform::Timer outer(timers);
  platform::Timer inner(timers);
  const platform::TimerTurns turns(timers, stage.Clock, stage.Entry, stage.Alarm);
  bool innerInside = false;
  bool inside = false;
  outer.Elapsed = [&] {
    outer.Enabled = false;
    inside = true;
    QTest::qWait(150);
    inside = false;
  };
  inner.Elapsed = [&] {
    inner.Enabled = false;
    innerInside = inside;
  };
  // Due at the same moment: the event of the first must not hold the second back.
  for (platform::Timer* timer : {&outer, &inner}) {
    timer->Interval = 60;
    timer->Enabled = true;
  }
  QElapsedTimer time;
  time.start();
  EXPECT_TRUE(WaitFor([&] { return !outer.Enabled && !inside; }));
  EXPECT_GE(time.elapsed(), 60);
  EXPECT_TRUE(innerInside);
}

/// A source that has a given number of frames at hand.
class FrameStock : public platform::FrameDelivery {
 public:
  bool DeliverOne() override {
    if (Left == 0) return false;
    --Left;
    ++Delivered;
    if (OnFrame) OnFrame();
    return true;
  }
  int Left = 0;
  int Delivered = 0;
  std::function<void()> OnFrame;
};

TEST(FrameTurnsScene, DeliversWhileRunningAndNotAfterwards) {
  Stage stage;
  FrameStock stock;
  const platform::FrameTurns turns(stock, stage.Clock, stage.Entry, stage.Alarm);
  stock.Left = 100;
  QTest::qWait(30);
  EXPECT_EQ(stock.Delivered, 0);
  stock.Running(true);
  EXPECT_TRUE(WaitFor([&] { return stock.Delivered == 100; }));
  stock.Left = 100;
  stock.OnFrame = [&] {
    if (stock.Delivered == 150) stock.Running(false);
  };
  EXPECT_TRUE(WaitFor([&] { return stock.Delivered == 150; }));
  QTest::qWait(50);
  EXPECT_EQ(stock.Delivered, 150);
}

TEST(FrameTurnsScene, APumpInsideAFrameDeliversFurtherFrames) {
  Stage stage;
  FrameStock stock;
  const platform::FrameTurns turns(stock, stage.Clock, stage.Entry, stage.Alarm);
  int duringPump = 0;
  stock.OnFrame = [&] {
    if (stock.Delivered != 1) return;
    QTest::qWait(50);
    duringPump = stock.Delivered - 1;
  };
  stock.Left = 10;
  stock.Running(true);
  EXPECT_TRUE(WaitFor([&] { return stock.Delivered == 10 && duringPump > 0; }));
  EXPECT_EQ(duringPump, 9);
}

TEST(FrameTurnsScene, PumpsInsideFramesNestNoMoreThanSixteenTurns) {
  Stage stage;
  FrameStock stock;
  const platform::FrameTurns turns(stock, stage.Clock, stage.Entry, stage.Alarm);
  int depth = 0;
  int deepest = 0;
  int bottom = 0;
  stock.OnFrame = [&] {
    deepest = std::max(deepest, ++depth);
    const int before = stock.Delivered;
    constexpr int TurnPatienceMs = 200;
    // The frames behind the deepest one need not wait once more.
    if (depth == deepest &&
        !QTest::qWaitFor([&] { return stock.Delivered > before; }, TurnPatienceMs)) {
      bottom = depth;
    }
    --depth;
  };
  stock.Left = 40;
  stock.Running(true);
  EXPECT_TRUE(WaitFor([&] { return stock.Delivered == 40 && depth == 0; }));
  EXPECT_EQ(deepest, 16);
  EXPECT_EQ(bottom, 16);
}

TEST(FrameTurnsScene, AnEndlessStreamLeavesTurnsToTheWindow) {
  Stage stage;
  FrameStock stock;
  const platform::FrameTurns turns(stock, stage.Clock, stage.Entry, stage.Alarm);
  stock.Left = 1'000'000'000;
  stock.Running(true);
  int ticks = 0;
  QTimer window;
  QObject::connect(&window, &QTimer::timeout, [&] { ++ticks; });
  window.start(10);
  EXPECT_TRUE(WaitFor([&] { return ticks >= 15; }));
  stock.Running(false);
  // The window's turns came in the middle of the stream.
  EXPECT_GT(stock.Delivered, 0);
  EXPECT_GT(stock.Left, 0);
}

TEST(GuardScene, AnUnexpectedExceptionEndsTheProgramWithABox) {
  Stage stage;
  QString text;
  QTimer::singleShot(50, qApp, [&] {
    ASSERT_NE(Box(), nullptr);
    text = Box()->Text();
    Box()->accept();
  });
  stage.Entry([] { throw std::runtime_error("broken"); });
  EXPECT_EQ(text, "Run-time error '51':\n\nbroken");
  EXPECT_EQ(stage.Ends, 1);
  bool entered = false;
  stage.Entry([&] { entered = true; });
  EXPECT_FALSE(entered);
}

TEST(SystemLocale, GivesSingleByteSeparators) {
  const auto separators = [](const char* name) {
    const platform::NumberLocale locale = SeparatorsOf(QLocale(QString::fromLatin1(name)));
    return std::string{locale.Decimal, locale.Group};
  };
  EXPECT_EQ(separators("C"), ".,");
  EXPECT_EQ(separators("de_DE"), ",.");
  EXPECT_EQ(separators("fr_FR"), ", ");
  EXPECT_EQ(separators("de_CH"), ".'");
}

TEST(Captions, LoseTheirMnemonics) {
  EXPECT_EQ(PlainCaption("re&al"), "real");
  EXPECT_EQ(PlainCaption("GmbH && Co."), "GmbH & Co.");
  EXPECT_EQ(PlainCaption("end&"), "end");
}

}  // namespace
}  // namespace desktop
