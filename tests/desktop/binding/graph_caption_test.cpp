#include <QPainter>
#include <QPicture>

#include "desktop/binding/graph_view.h"
#include "desktop/look/picture.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// The words below the axis of the recorder's graph, as they are painted.
class GraphCaption : public WindowScene {
 protected:
  static constexpr const char* Words = "x * 400 samples; ";

  void Show() {
    platform::CWGraph& graph = Form().CWGraph2;
    for (platform::Plot& plot : graph.Plots) plot.Y = std::vector<double>(21, 400);
    graph.XAxis.Caption = std::string(Words);
    graph.XAxis.Minimum = 0;
    graph.XAxis.Maximum = 20;
    graph.SecondsPerPoint = 0.1;
    graph.YAxis.ScaleNow();
    graph.Visible = true;
    QTest::qWait(80);
  }
  GraphView& Graph() { return Find<GraphView>("CWGraph2"); }
  /// The lowest rows of a picture that hold ink, around a column; the gap of an "i" is none.
  static QRect LowestInk(const QImage& picture, int middle, int reach) {
    QRect ink;
    int empty = 0;
    for (int y = picture.height() - 1; y >= 0 && empty < 4; --y) {
      bool met = false;
      for (int x = middle - reach; x <= middle + reach; ++x) {
        if (picture.pixelColor(x, y).lightness() > 150) continue;
        ink |= QRect(x, y, 1, 1);
        met = true;
      }
      if (!ink.isNull()) empty = met ? 0 : empty + 1;
    }
    return ink;
  }
};

TEST_F(GraphCaption, IsWholeInEveryWindow) {
  Start();
  ClickTab(forms::tab::Recorder);
  Show();
  for (const QSize size : {QSize(1024, 768), QSize(1920, 1080), QSize(2560, 1440),
                           QSize(3840, 2160), QSize(1024, 768)}) {
    ResizeFrame(size);
    ClickTab(forms::tab::Recorder);
    Show();
    const QRect words = QFontMetrics(Graph().xAxis->labelFont()).tightBoundingRect(Words);
    const QRect ink = LowestInk(Graph().grab().toImage(), Graph().axisRect()->center().x(),
                                words.width() / 2 + 2);
    EXPECT_GE(ink.height(), words.height() - 2) << size.width();
    EXPECT_LE(ink.height(), words.height() + 2) << size.width();
    EXPECT_LT(ink.bottom(), Graph().height() - 1) << size.width();
    EXPECT_EQ(Graph().xAxis->labelFont().pixelSize(), QApplication::font().pixelSize());
  }
}

TEST_F(GraphCaption, IsWholeOnPaperFromEveryWindow) {
  Start();
  ClickTab(forms::tab::Recorder);
  for (const QSize size : {QSize(1024, 768), QSize(2560, 1440)}) {
    ResizeFrame(size);
    ClickTab(forms::tab::Recorder);
    Show();
    Form().CWGraph2.ScreenLook = false;
    const platform::Picture print = Form().CWGraph2.Image();
    const QPicture& drawing = *DrawingOf(print);
    QImage paper(print.Width, print.Height, QImage::Format_RGB32);
    paper.fill(Qt::white);
    paper.setDotsPerMeterX(qRound(drawing.logicalDpiX() / 0.0254));
    paper.setDotsPerMeterY(qRound(drawing.logicalDpiY() / 0.0254));
    QPainter painter(&paper);
    painter.drawPicture(0, 0, drawing);
    painter.end();
    QFont texts = QApplication::font();
    texts.setPixelSize(13);
    const QRect words = QFontMetrics(texts).tightBoundingRect(Words);
    const QRect ink = LowestInk(paper, print.Width / 2, words.width() / 2);
    EXPECT_GE(ink.height(), words.height() - 2) << size.width();
    EXPECT_LE(ink.height(), words.height() + 2) << size.width();
    EXPECT_LT(ink.bottom(), print.Height - 1) << size.width();
  }
}

}  // namespace
}  // namespace desktop
