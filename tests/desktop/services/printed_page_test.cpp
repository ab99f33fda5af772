// What the printed pages look like, as another program draws them from the PDF file.

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>
#include <cstdlib>

#include "desktop/look/look.h"
#include "desktop/services/print_page.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// Dots of the drawn page to a millimetre.
constexpr int Dots = 10;

class PrintedPage : public WindowScene {
 protected:
  void SetUp() override {
    tool_ = QStandardPaths::findExecutable("pdftoppm");
    if (tool_.isEmpty()) GTEST_SKIP() << "pdftoppm (poppler-utils) is not on this computer";
  }

  /// Prints the Waveforms view to a file and draws that.
  void PrintWaveforms() {
    Start();
    ASSERT_TRUE(QDir(home_.path()).mkpath("data"));
    Program().Config.Settings.StoragePath = home_.filePath("data").toStdString();
    // The last printer is the PDF file, whatever others the computer has.
    Form().Combo2.ListIndex = Form().Combo2.ListCount() - 1;
    ClickTab(forms::tab::Waveforms);
    Click("Command1");
    const QDir folder(home_.filePath("data"));
    const QStringList files = folder.entryList({"*.pdf"}, QDir::Files);
    ASSERT_EQ(files.size(), 1);
    QProcess drawing;
    drawing.start(tool_, {"-r", "254", "-png", "-singlefile", folder.filePath(files[0]),
                          folder.filePath("page")});
    ASSERT_TRUE(drawing.waitForFinished());
    page_ = QImage(folder.filePath("page.png")).convertToFormat(QImage::Format_RGB32);
    ASSERT_NEAR(page_.width(), 297 * Dots, 2);
    ASSERT_NEAR(page_.height(), 210 * Dots, 2);
  }
  static QRect DotsOf(const QRectF& millimetres) {
    return QRectF(millimetres.topLeft() * Dots, millimetres.size() * Dots).toRect();
  }
  int CountOf(const QRectF& area, const QColor& colour) const {
    const auto near = [](int one, int other) { return std::abs(one - other) < 24; };
    const QRect dots = DotsOf(area) & page_.rect();
    int count = 0;
    for (int y = dots.top(); y <= dots.bottom(); ++y) {
      for (int x = dots.left(); x <= dots.right(); ++x) {
        const QColor dot = page_.pixelColor(x, y);
        count += near(dot.red(), colour.red()) && near(dot.green(), colour.green()) &&
                         near(dot.blue(), colour.blue())
                     ? 1
                     : 0;
      }
    }
    return count;
  }
  /// The smallest rectangle round all that stands in an area, in millimetres.
  QRectF Ink(const QRectF& area) const {
    QRect ink;
    const QRect dots = DotsOf(area) & page_.rect();
    for (int y = dots.top(); y <= dots.bottom(); ++y) {
      for (int x = dots.left(); x <= dots.right(); ++x) {
        if (page_.pixelColor(x, y) != QColor(Qt::white)) ink |= QRect(x, y, 1, 1);
      }
    }
    return {QPointF(ink.topLeft()) / Dots, QSizeF(ink.size()) / Dots};
  }
  /// The left end of the dashes, which is the same in all rows.
  double DashLeft() {
    const QFont font = PrintPage::Font("Verdana", 10, false, false);
    double widest = 0;
    for (const platform::CheckBox& channel : Form().Check2) {
      widest =
          std::max(widest, PrintPage::TextWidth(QString::fromStdString(channel.Caption), font));
    }
    return 205 + widest + 5;
  }

  QString tool_;
  QImage page_;
};

TEST_F(PrintedPage, HasTheDashesOfTheLegendInTheOrderAndTheColoursOfTheChannels) {
  PrintWaveforms();
  for (std::size_t i = 0; i < 8; ++i) {
    const double top = 46 + 8 * static_cast<double>(i);
    const QRectF dashes(DashLeft(), top, 25, 5);
    EXPECT_GT(CountOf(dashes, look::ColourOf(Form().CWGraph1.Plots[i].LineColor)), 40) << i;
    EXPECT_NEAR(Ink(dashes).left(), DashLeft(), 0.6) << i;
    // The name stands left of them in black.
    EXPECT_GT(CountOf({205, top, DashLeft() - 206, 5}, Qt::black), 40) << i;
  }
}

TEST_F(PrintedPage, UnderlinesTheHeadingOfTheLegendAlone) {
  PrintWaveforms();
  const auto longestRun = [this](double top) {
    const QRect dots = DotsOf({204, top, 40, 7});
    int longest = 0;
    for (int y = dots.top(); y <= dots.bottom(); ++y) {
      int run = 0;
      for (int x = dots.left(); x <= dots.right(); ++x) {
        run = page_.pixelColor(x, y).lightness() < 128 ? run + 1 : 0;
        longest = std::max(longest, run);
      }
    }
    return longest / static_cast<double>(Dots);
  };
  const double width = PrintPage::TextWidth("Legend:", PrintPage::Font("Verdana", 10, true, false));
  EXPECT_NEAR(longestRun(38), width, 1);
  EXPECT_LT(longestRun(30), width / 2);
}

TEST_F(PrintedPage, HasTheLogoAtItsPlace) {
  PrintWaveforms();
  const QRectF logo = Ink({240, 170, 57, 40});
  EXPECT_GE(logo.left(), 249.8);
  EXPECT_GE(logo.top(), 179.8);
  EXPECT_LE(logo.right(), 280.2);
  EXPECT_LE(logo.bottom(), 185.9);
  EXPECT_GT(logo.width(), 15);
}

TEST_F(PrintedPage, HasTheGraphAtItsPlace) {
  PrintWaveforms();
  const QRectF place(15, 20, 180, 195.0 * Form().CWGraph1.Height / Form().CWGraph1.Width);
  const QRectF graph = Ink({0, 20, 204, 190});
  EXPECT_TRUE(place.adjusted(-0.3, -0.3, 0.3, 0.3).contains(graph))
      << graph.left() << " " << graph.top() << " " << graph.right() << " " << graph.bottom();
  EXPECT_GT(graph.width(), 170);
  EXPECT_GT(graph.height(), place.height() - 12);
}

}  // namespace
}  // namespace desktop
