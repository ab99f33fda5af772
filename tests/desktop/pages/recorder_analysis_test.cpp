#include <qcustomplot.h>

#include <QFile>
#include <QProgressBar>
#include <optional>

#include "desktop/binding/graph_view.h"
#include "desktop/services/qt_shell_links.h"
#include "desktop/widgets/click_label.h"
#include "window_scene.h"

namespace desktop {
namespace {

class RecorderAnalysis : public WindowScene {
 protected:
  void StartAtRecorder() {
    Start();
    ClickTab(forms::tab::Recorder);
  }
};

TEST_F(RecorderAnalysis, ADoubleClickReachesEachLineOfTheRecording) {
  StartAtRecorder();
  for (int i = 0; i < 5; ++i) {
    int clicks = 0;
    Form().Label10[static_cast<std::size_t>(i)].DblClick = [&] { ++clicks; };
    auto& line = Find<ClickLabel>(Member("Label10", i));
    QTest::mouseDClick(&line, Qt::RightButton);
    EXPECT_EQ(clicks, 0) << i;
    QTest::mouseDClick(&line, Qt::LeftButton);
    EXPECT_EQ(clicks, 1) << i;
  }
}

/// Counts the paintings of a widget.
class Paintings : public QObject {
 public:
  explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++Count;
    return false;
  }
  int Count = 0;
};

TEST_F(RecorderAnalysis, TheBarIsPaintedAtOnceWithoutAnEventOfTheQueue) {
  StartAtRecorder();
  auto& bar = Find<QProgressBar>("ProgressBar1");
  EXPECT_FALSE(bar.isVisible());
  Paintings paintings(bar);
  bool handled = false;
  QTimer::singleShot(0, &bar, [&] { handled = true; });

  Form().ProgressBar1.Visible = true;
  Form().ProgressBar1.Value = 40;
  Form().ProgressBar1.Repaint();

  EXPECT_EQ(bar.value(), 40);
  EXPECT_GT(paintings.Count, 0);
  EXPECT_FALSE(handled);
  EXPECT_GT(bar.width(), 100);
}

TEST_F(RecorderAnalysis, TheBarKeepsItsRoom) {
  StartAtRecorder();
  QTest::qWait(50);
  const QRect before = Find<GraphView>("CWGraph2").geometry();
  Form().ProgressBar1.Visible = true;
  QTest::qWait(50);
  EXPECT_EQ(Find<GraphView>("CWGraph2").geometry(), before);
}

TEST_F(RecorderAnalysis, TheGraphShowsTheWordsAndTheEndsOfItsAxis) {
  StartAtRecorder();
  auto& graph = Find<GraphView>("CWGraph2");
  EXPECT_EQ(graph.xAxis->label(), "x * 4000 samples");

  Form().CWGraph2.XAxis.Caption = std::string("x * 400 samples; ");
  Form().CWGraph2.XAxis.Minimum = 0;
  Form().CWGraph2.XAxis.Maximum = 19.5;

  EXPECT_EQ(graph.xAxis->label(), "x * 400 samples; ");
  EXPECT_EQ(graph.xAxis->range().lower, 0);
  EXPECT_EQ(graph.xAxis->range().upper, 19.5);
}

TEST_F(RecorderAnalysis, AnAxisOfOnePointHasALengthAllTheSame) {
  StartAtRecorder();
  Form().CWGraph2.XAxis.Minimum = 0;
  Form().CWGraph2.XAxis.Maximum = -0.5;
  const QCPRange range = Find<GraphView>("CWGraph2").xAxis->range();
  EXPECT_LT(range.lower, 0);
  EXPECT_GT(range.upper, 0);
}

TEST_F(RecorderAnalysis, TheQuickViewHasTheColoursOfTheScope) {
  StartAtRecorder();
  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_EQ(Form().CWGraph2.Plots[i].LineColor, Form().CWGraph1.Plots[i].LineColor.Get()) << i;
    EXPECT_EQ(Form().CWGraph2.Plots[i].PointColor, Form().CWGraph2.Plots[i].LineColor.Get()) << i;
  }
}

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)

/// A desktop whose opener is a script of the test.
class Opener : public testing::Test {
 protected:
  Opener() : path_(qgetenv("PATH")) {
    Write("file.xls", "");
    qputenv("PATH", folder_.path().toUtf8() + ":/bin:/usr/bin");
  }
  ~Opener() override { qputenv("PATH", path_); }

  void Write(const QString& name, const QByteArray& text) {
    QFile file(folder_.filePath(name));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(text);
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  void Answering(const char* script) {
    Write("xdg-open", QByteArray("#!/bin/sh\n") + script + "\n");
  }
  void Begin(const char* name = "file.xls") {
    answer_.reset();
    links_.OpenFile(folder_.filePath(name).toStdString(),
                    [this](std::int32_t code) { answer_ = code; });
  }
  /// What came of opening a file; 0 where no word came.
  std::int32_t Open(const char* name = "file.xls") {
    Begin(name);
    (void)QTest::qWaitFor([this] { return answer_.has_value(); }, 8000);
    return answer_.value_or(0);
  }
  bool Exists(const char* name) const { return QFile::exists(folder_.filePath(name)); }

  QtShellLinks links_;
  std::optional<std::int32_t> answer_;
  QTemporaryDir folder_;

 private:
  QByteArray path_;
};

TEST_F(Opener, TellsThatAFileWasTaken) {
  Answering("echo \"$1\" > \"$0.seen\"");
  EXPECT_GT(Open(), 32);
  QFile seen(folder_.filePath("xdg-open.seen"));
  ASSERT_TRUE(seen.open(QFile::ReadOnly));
  EXPECT_EQ(seen.readAll().trimmed(), folder_.filePath("file.xls").toUtf8());
}

TEST_F(Opener, TellsThatNoViewerKnowsTheFile) {
  for (const char* script : {"exit 3", "exit 4", "exit 1", "kill -9 $$"}) {
    Answering(script);
    EXPECT_EQ(Open(), 31) << script;
  }
}

TEST_F(Opener, TellsThatThereIsNoOpener) {
  qputenv("PATH", folder_.path().toUtf8());
  EXPECT_EQ(Open(), 31);
}

TEST_F(Opener, TellsThatTheFileOrItsFolderIsMissing) {
  Answering("exit 0");
  EXPECT_EQ(Open("other.xls"), 2);
  EXPECT_EQ(Open("nowhere/file.xls"), 3);
  Answering("exit 2");
  EXPECT_EQ(Open(), 2);
}

TEST_F(Opener, TellsOfTheFileItselfAtOnce) {
  Begin("other.xls");
  EXPECT_EQ(answer_, 2);
}

TEST_F(Opener, WaitsForNobody) {
  links_.TakenAfter = std::chrono::hours(1);
  Answering("while ! [ -e \"$0.go\" ]; do sleep 0.02; done; : > \"$0.ended\"; exit 3");
  Begin();
  QTest::qWait(50);
  EXPECT_FALSE(answer_.has_value());
  EXPECT_FALSE(Exists("xdg-open.ended"));
  Write("xdg-open.go", "");
  EXPECT_TRUE(QTest::qWaitFor([this] { return answer_.has_value(); }, 8000));
  EXPECT_EQ(answer_, 31);
}

TEST_F(Opener, TakesALongRunForAViewerHoweverItEnds) {
  links_.TakenAfter = std::chrono::milliseconds(1);
  for (const char* script : {"sleep 0.02; exit 3", "sleep 0.02; kill -9 $$"}) {
    Answering(script);
    EXPECT_GT(Open(), 32) << script;
  }
}

TEST_F(Opener, TellsNothingWhileABoxStands) {
  Answering(": > \"$0.ended\"; exit 3");
  links_.Hold();
  Begin();
  ASSERT_TRUE(QTest::qWaitFor([this] { return Exists("xdg-open.ended"); }, 8000));
  QTest::qWait(100);
  EXPECT_FALSE(answer_.has_value());
  links_.Release();
  EXPECT_FALSE(answer_.has_value()) << "the routine behind the box comes first";
  EXPECT_TRUE(QTest::qWaitFor([this] { return answer_.has_value(); }, 8000));
}

#endif

}  // namespace
}  // namespace desktop
