#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPicture>
#include <QPushButton>
#include <vector>

#include "desktop/binding/graph_view.h"
#include "desktop/look/look.h"
#include "desktop/look/picture.h"
#include "desktop/widgets/quiet_line.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// Prints of the window that go to a PDF file in the data path.
class PrintingWindow : public WindowScene {
 protected:
  void StartWithData(int tab) {
    Start();
    ASSERT_TRUE(QDir(home_.path()).mkpath("data"));
    Program().Config.Settings.StoragePath = home_.filePath("data").toStdString();
    // The last printer is the PDF file, whatever others the computer has.
    Form().Combo2.ListIndex = Form().Combo2.ListCount() - 1;
    ClickTab(tab);
  }
  QStringList Files() const {
    return QDir(home_.filePath("data")).entryList({"*.pdf"}, QDir::Files);
  }
  /// What a drawing for paper looks like, four dots to its unit.
  static QImage OnPaper(const platform::Picture& picture) {
    constexpr int Fine = 4;
    QImage paper(picture.Width * Fine, picture.Height * Fine, QImage::Format_RGB32);
    paper.fill(Qt::gray);
    const QPicture& drawing = *DrawingOf(picture);
    paper.setDotsPerMeterX(qRound(drawing.logicalDpiX() / 0.0254));
    paper.setDotsPerMeterY(qRound(drawing.logicalDpiY() / 0.0254));
    QPainter painter(&paper);
    painter.scale(Fine, Fine);
    painter.drawPicture(0, 0, drawing);
    return paper;
  }
  /// What stands left of the vertical axis on the upper half of the paper.
  static QRect LeftmostDigits(const QImage& paper) {
    QRect ink;
    bool met = false;
    for (int x = 0; x < paper.width() / 2; ++x) {
      bool empty = true;
      for (int y = 0; y < paper.height() / 2; ++y) {
        if (paper.pixelColor(x, y).lightness() > 200) continue;
        ink |= QRect(x, y, 1, 1);
        empty = false;
      }
      // The digits end where the first empty column behind them comes.
      if (met && empty) break;
      met = met || !empty;
    }
    return {ink.left(), 0, ink.width(), 0};
  }
  void RunReport() {
    Click("Command2");
    ASSERT_TRUE(WaitFor([&] { return Form().Command4.Enabled.Get(); }));
  }
};

TEST_F(PrintingWindow, AReportBecomesAFileThatTheStatusBarNames) {
  StartWithData(forms::tab::Report);
  RunReport();
  Click("Command4");
  ASSERT_EQ(Files().size(), 1);
  EXPECT_TRUE(Files()[0].startsWith("SV report ")) << Files()[0].toStdString();
  auto& panel = Find<QLabel>(Member("StatusBar1.Panels", 2));
  EXPECT_TRUE(WaitFor([&] { return panel.text() == "Printed to " + Files()[0]; }));
  EXPECT_EQ(panel.toolTip(), "shows actual choosen standard printer\n" +
                                 QDir::toNativeSeparators(home_.filePath("data/" + Files()[0])));
}

TEST_F(PrintingWindow, TheNameOfAFileFitsTheStatusBarInEverySize) {
  StartWithData(forms::tab::Waveforms);
  Click("Command1");
  auto& panel = Find<QLabel>(Member("StatusBar1.Panels", 2));
  ASSERT_TRUE(WaitFor([&] { return panel.text().startsWith("Printed to SV waveforms "); }));
  for (const QSize size :
       {QSize(1024, 768), QSize(1280, 800), QSize(1920, 1080), QSize(2560, 1440)}) {
    ResizeFrame(size);
    QTest::qWait(50);
    EXPECT_LE(panel.fontMetrics().horizontalAdvance(panel.text()), panel.width()) << size.width();
  }
}

TEST_F(PrintingWindow, APathThatIsMissingIsNamedOnTheQuietLineAndInNoBox) {
  StartWithData(forms::tab::Report);
  RunReport();
  Program().Config.Settings.StoragePath = home_.filePath("gone").toStdString();
  Click("Command4");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  auto& line = Find<QuietLine>(Member("QuietLine", 4));
  EXPECT_TRUE(WaitFor([&] { return line.isVisible() && !line.text().isEmpty(); }));
  EXPECT_TRUE(line.text().startsWith("The report could not be printed: "))
      << line.text().toStdString();
  EXPECT_TRUE(line.text().contains(home_.filePath("gone")));
}

TEST_F(PrintingWindow, TheGraphStandsOnWhiteForThePageAlone) {
  StartWithData(forms::tab::Waveforms);
  Click("Command1");
  ASSERT_EQ(Files().size(), 1);
  EXPECT_TRUE(Files()[0].startsWith("SV waveforms "));
  EXPECT_TRUE(Form().CWGraph1.ScreenLook);
  const QColor screen = QColor::fromRgba(Form().CWGraph1.Image().Pixels.at(0));
  EXPECT_EQ(screen, look::Page);
  Form().CWGraph1.ScreenLook = false;
  const QImage print = OnPaper(Form().CWGraph1.Image());
  EXPECT_EQ(print.pixelColor(0, 0), QColor(Qt::white));
  EXPECT_EQ(print.pixelColor(print.width() / 2, print.height() - 1), QColor(Qt::white));
  Form().CWGraph1.ScreenLook = true;
}

TEST_F(PrintingWindow, TheGraphIsPrintedAlikeFromEveryWindow) {
  StartWithData(forms::tab::Waveforms);
  std::vector<QRect> inks;
  for (const QSize size : {QSize(1024, 768), QSize(2048, 1536)}) {
    ResizeFrame(size);
    QTest::qWait(50);
    Find<GraphView>("CWGraph1").xAxis->setRange(0, 399);
    Find<GraphView>("CWGraph1").yAxis->setRange(-1, 1);
    Form().CWGraph1.ScreenLook = false;
    const platform::Picture print = Form().CWGraph1.Image();
    Form().CWGraph1.ScreenLook = true;
    EXPECT_TRUE(print.Pixels.empty());
    // 180 mm in the unit in which 13 are 9 points.
    EXPECT_NEAR(print.Width, 180 / (9 / 72.0 * 25.4 / 13), 1);
    EXPECT_NEAR(1.0 * print.Height / print.Width,
                1.0 * Form().CWGraph1.Height / Form().CWGraph1.Width, 0.01);
    inks.push_back(LeftmostDigits(OnPaper(print)));
  }
  // The digits of the vertical axis are as large as those of the other window.
  EXPECT_EQ(inks[0].size(), inks[1].size());
  EXPECT_EQ(inks[0].left(), inks[1].left());
}

TEST_F(PrintingWindow, TheGraphOnTheScreenIsTheSameBehindAPrint) {
  StartWithData(forms::tab::Waveforms);
  ResizeFrame({1600, 1200});
  QTest::qWait(100);
  const QImage before = Find<GraphView>("CWGraph1").grab().toImage();
  Click("Command1");
  ASSERT_EQ(Files().size(), 1);
  QTest::qWait(100);
  EXPECT_EQ(Find<GraphView>("CWGraph1").grab().toImage(), before);
}

TEST_F(PrintingWindow, TheRangeOfTheTimeAxisIsToldToTheProgram) {
  StartWithData(forms::tab::Waveforms);
  Find<GraphView>("CWGraph1").xAxis->setRange(12.5, 300);
  EXPECT_EQ(Form().CWGraph1.XAxis.Minimum.Get(), 12.5);
  EXPECT_EQ(Form().CWGraph1.XAxis.Maximum.Get(), 300.0);
}

class CopiedGraph : public PrintingWindow {
 protected:
  /// Closes the box that tells of the copy.
  void CloseBox() {
    OnDialog([this](QDialog& dialog) {
      title_ = dialog.windowTitle();
      dialog.accept();
    });
  }
  QString title_;
};

TEST_F(CopiedGraph, IsOnTheClipboardAfterAPressOfTheRightButton) {
  StartWithData(forms::tab::Waveforms);
  CloseBox();
  QTest::mouseClick(&Find<QPushButton>("Command1"), Qt::RightButton);
  EXPECT_EQ(title_, "Success");
  const QImage copy = QApplication::clipboard()->image();
  const auto& graph = Find<GraphView>("CWGraph1");
  EXPECT_EQ(copy.size(), graph.size() * graph.devicePixelRatioF());
  EXPECT_EQ(copy.pixelColor(0, 0), look::Page);
  EXPECT_TRUE(Files().isEmpty());
}

TEST_F(CopiedGraph, IsOnTheClipboardByTheMenuKeyToo) {
  StartWithData(forms::tab::Waveforms);
  QApplication::clipboard()->clear();
  CloseBox();
  auto& print = Find<QPushButton>("Command1");
  QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
  QApplication::sendEvent(&print, &key);
  EXPECT_FALSE(QApplication::clipboard()->image().isNull());
}

TEST_F(CopiedGraph, IsNotMadeWhileTheButtonIsLocked) {
  StartWithData(forms::tab::Waveforms);
  QApplication::clipboard()->clear();
  Form().Command1.Enabled = false;
  QTest::mouseClick(&Find<QPushButton>("Command1"), Qt::RightButton);
  EXPECT_TRUE(QApplication::clipboard()->image().isNull());
}

}  // namespace
}  // namespace desktop
