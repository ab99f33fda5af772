#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/binding/graph_view.h"
#include "desktop/look/look.h"
#include "desktop/widgets/quiet_line.h"
#include "window_scene.h"

namespace desktop {
namespace {

constexpr int WaveformsTab = 4;
constexpr int ReportTab = 6;

/// Prints of the window that go to a PDF file in the data path.
class PrintingWindow : public WindowScene {
 protected:
  void StartWithData(int tab) {
    Start();
    ASSERT_TRUE(QDir(home_.path()).mkpath("data"));
    Program().Settings.StoragePath = home_.filePath("data").toStdString();
    // The last printer is the PDF file, whatever others the computer has.
    Form().Combo2.ListIndex = Form().Combo2.ListCount() - 1;
    ClickTab(tab);
  }
  QStringList Files() const {
    return QDir(home_.filePath("data")).entryList({"*.pdf"}, QDir::Files);
  }
  void RunReport() {
    Click("Command2");
    ASSERT_TRUE(WaitFor([&] { return Form().Command4.Enabled.Get(); }));
  }
};

TEST_F(PrintingWindow, AReportBecomesAFileWhosePathTheStatusBarTells) {
  StartWithData(ReportTab);
  RunReport();
  Click("Command4");
  ASSERT_EQ(Files().size(), 1);
  EXPECT_TRUE(Files()[0].startsWith("SV report ")) << Files()[0].toStdString();
  EXPECT_TRUE(WaitFor([&] {
    return Find<QLabel>(Member("StatusBar1.Panels", 2)).text() ==
           "Printed to " + home_.filePath("data/" + Files()[0]);
  }));
}

TEST_F(PrintingWindow, APathThatIsMissingIsNamedOnTheQuietLineAndInNoBox) {
  StartWithData(ReportTab);
  RunReport();
  Program().Settings.StoragePath = home_.filePath("gone").toStdString();
  Click("Command4");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  auto& line = Find<QuietLine>(Member("QuietLine", 4));
  EXPECT_TRUE(WaitFor([&] { return line.isVisible() && !line.text().isEmpty(); }));
  EXPECT_TRUE(line.text().startsWith("The report could not be printed: "))
      << line.text().toStdString();
  EXPECT_TRUE(line.text().contains(home_.filePath("gone")));
}

TEST_F(PrintingWindow, TheGraphStandsOnWhiteForThePageAlone) {
  StartWithData(WaveformsTab);
  Click("Command1");
  ASSERT_EQ(Files().size(), 1);
  EXPECT_TRUE(Files()[0].startsWith("SV waveforms "));
  EXPECT_TRUE(Form().CWGraph1.ScreenLook);
  const QColor screen = QColor::fromRgba(Form().CWGraph1.Image().Pixels.at(0));
  EXPECT_EQ(screen, look::Page);
  Form().CWGraph1.ScreenLook = false;
  const platform::Picture print = Form().CWGraph1.Image();
  EXPECT_EQ(QColor::fromRgba(print.Pixels.at(0)), QColor(Qt::white));
  EXPECT_GE(print.Width, 2000);
  Form().CWGraph1.ScreenLook = true;
}

TEST_F(PrintingWindow, TheRangeOfTheTimeAxisIsToldToTheProgram) {
  StartWithData(WaveformsTab);
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
  StartWithData(WaveformsTab);
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
  StartWithData(WaveformsTab);
  QApplication::clipboard()->clear();
  CloseBox();
  auto& print = Find<QPushButton>("Command1");
  QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
  QApplication::sendEvent(&print, &key);
  EXPECT_FALSE(QApplication::clipboard()->image().isNull());
}

TEST_F(CopiedGraph, IsNotMadeWhileTheButtonIsLocked) {
  StartWithData(WaveformsTab);
  QApplication::clipboard()->clear();
  Form().Command1.Enabled = false;
  QTest::mouseClick(&Find<QPushButton>("Command1"), Qt::RightButton);
  EXPECT_TRUE(QApplication::clipboard()->image().isNull());
}

}  // namespace
}  // namespace desktop
