#include <QAccessible>
#include <QLabel>

#include "desktop/widgets/read_out_card.h"
#include "waveforms_scene.h"

namespace desktop {
namespace {

/// The line and the card that read the samples of a stopped view.
class Cursor : public WaveformsScene {
 protected:
  void Hover(QPoint place) {
    // A move that goes nowhere is none.
    QTest::mouseMove(&Graph(), place + QPoint(1, 0));
    QTest::mouseMove(&Graph(), place);
  }
  void Leave() {
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&Graph(), &leave);
  }
  QWidget& Card() { return *Graph().findChild<ReadOutCard*>("ReadOut"); }
  QWidget& Line() { return *Graph().findChild<QWidget*>("CursorLine"); }
  bool Shown() { return Card().isVisible() && Line().isVisible(); }
  QString Told() {
    return QAccessible::queryAccessibleInterface(&Graph())->text(QAccessible::Description);
  }
  int Column(double sample) { return qRound(Graph().xAxis->coordToPixel(sample)); }
  void Press(Qt::Key key) { QTest::keyClick(&Graph(), key); }
};

TEST_F(Cursor, ReadsTheSampleUnderTheMouse) {
  ShowBlock();
  Hover(QPoint(Column(100), Middle().y()));
  ASSERT_TRUE(Shown());
  EXPECT_EQ(Line().geometry().center().x(), Column(100));
  EXPECT_EQ(Line().height(), Graph().axisRect()->height());
  EXPECT_TRUE(Told().startsWith("sample 100, 25.00 ms: Current Sensor A ")) << Told().toStdString();
  const QString value = Form().CWGraph1.ReadPoint(100)->Values[5].Text.c_str();
  EXPECT_TRUE(Told().contains("Voltage Sensor B " + value)) << Told().toStdString();

  Leave();
  EXPECT_FALSE(Shown());
  EXPECT_FALSE(Told().startsWith("sample"));
}

TEST_F(Cursor, ItsCardFlipsToTheOtherSideAndStaysInTheGraph) {
  ShowBlock();
  for (const QSize size : {QSize(1024, 768), QSize(1920, 1080), QSize(3840, 2160)}) {
    ResizeFrame(size);
    QTest::qWait(50);
    for (const int sample : {0, 5, 150, 200, 250, 390, 398}) {
      Hover(QPoint(Column(sample), Middle().y()));
      ASSERT_TRUE(Shown()) << sample;
      EXPECT_FALSE(Card().geometry().intersects(Line().geometry())) << sample;
      EXPECT_TRUE(Graph().axisRect()->rect().contains(Card().geometry())) << sample;
    }
    Hover(QPoint(Column(390), Middle().y()));
    EXPECT_LT(Card().geometry().right(), Line().x());
    Hover(QPoint(Column(10), Middle().y()));
    EXPECT_GT(Card().x(), Line().x());
  }
}

TEST_F(Cursor, LeavesARunningGraphAlone) {
  ShowBlock();
  Hover(Middle());
  ASSERT_TRUE(Shown());
  Form().CWButton1.Value = true;
  EXPECT_FALSE(Shown());
  Hover(Middle() + QPoint(40, 0));
  Press(Qt::Key_Right);
  EXPECT_FALSE(Shown());
}

TEST_F(Cursor, IsAwayWhileAButtonOfTheMouseIsDown) {
  ShowBlock();
  Hover(Middle());
  QTest::mousePress(&Graph(), Qt::LeftButton, {}, Middle());
  EXPECT_FALSE(Shown());
  QTest::mouseMove(&Graph(), Middle() + QPoint(60, 0));
  EXPECT_FALSE(Shown());
  QTest::mouseRelease(&Graph(), Qt::LeftButton, {}, Middle() + QPoint(60, 0));
  Hover(Middle());
  EXPECT_TRUE(Shown());
}

TEST_F(Cursor, IsMovedByTheKeysToo) {
  ShowBlock();
  Graph().setFocus();
  Press(Qt::Key_Right);
  ASSERT_TRUE(Shown());
  EXPECT_TRUE(Told().startsWith("sample 200, ")) << "the middle of what shows";
  Press(Qt::Key_Right);
  EXPECT_TRUE(Told().startsWith("sample 201, "));
  Press(Qt::Key_PageDown);
  EXPECT_TRUE(Told().startsWith("sample 211, "));
  Press(Qt::Key_PageUp);
  Press(Qt::Key_PageUp);
  Press(Qt::Key_Left);
  EXPECT_TRUE(Told().startsWith("sample 190, ")) << Told().toStdString();
  for (int i = 0; i < 30; ++i) Press(Qt::Key_PageUp);
  EXPECT_TRUE(Told().startsWith("sample 0, "));
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Shown());
}

TEST_F(Cursor, IsReachedByTheTabulatorBeforeTheControls) {
  ShowBlock();
  Find<QWidget>("TabStrip1").setFocus();
  QTest::keyClick(&program_->Window(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), &Graph());
  QTest::keyClick(&program_->Window(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), &Find<QWidget>("CWButton1"));
}

TEST_F(Cursor, FollowsTheCurvesAndTheAxes) {
  ShowBlock();
  Click(Member("Check2", 0));
  Graph().setFocus();
  Press(Qt::Key_Right);
  EXPECT_FALSE(Told().contains("Current Sensor A"));
  EXPECT_TRUE(Told().contains("Current Sensor B"));
  Form().Check2[1].Value = 0;
  EXPECT_FALSE(Told().contains("Current Sensor B")) << Told().toStdString();
  Graph().xAxis->setRange(150, 250);
  Graph().replot();
  EXPECT_EQ(Line().geometry().center().x(), Column(200));
  Graph().xAxis->setRange(0, 50);
  Graph().replot();
  EXPECT_FALSE(Shown()) << "what is out of sight is not read";
}

TEST_F(Cursor, IsNoPartOfTheCopiedGraph) {
  ShowBlock();
  const auto copy = Form().CWGraph1.Image();
  Hover(Middle());
  ASSERT_TRUE(Shown());
  EXPECT_EQ(Form().CWGraph1.Image(), copy);
}

TEST_F(Cursor, TheTimeStandsAboveTheSamples) {
  ShowBlock();
  QCPAxis& time = *Graph().xAxis2;
  EXPECT_TRUE(time.visible());
  EXPECT_DOUBLE_EQ(time.range().upper, Graph().xAxis->range().upper / 4000);
  EXPECT_TRUE(time.tickVectorLabels().contains("20 ms"))
      << time.tickVectorLabels().join("|").toStdString();
}

}  // namespace
}  // namespace desktop
