#include "desktop/services/print_page.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <iterator>

#include "base/failure.h"
#include "desktop/look/look.h"
#include "desktop/look/picture.h"
#include "desktop/services/qt_print_surface.h"

namespace desktop {
namespace {

/// Dots of the played paper to a millimetre.
constexpr int Dots = 10;

QImage BlankPaper() {
  QImage paper(210 * Dots, 297 * Dots, QImage::Format_RGB32);
  paper.setDotsPerMeterX(Dots * 1000);
  paper.setDotsPerMeterY(Dots * 1000);
  paper.fill(Qt::white);
  return paper;
}

constexpr QRectF WholePaper(0, 0, 210, 297);

QImage Printed(const PrintPage& page, const QRectF& room = WholePaper) {
  QImage paper = BlankPaper();
  QPainter painter(&paper);
  page.Paint(painter, room);
  return paper;
}

/// The smallest rectangle round all that is not white, in millimetres.
QRectF Ink(const QImage& paper) {
  QRect ink;
  for (int y = 0; y < paper.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(paper.constScanLine(y));
    const auto* end = line + paper.width();
    const auto isInk = [](QRgb dot) { return qGray(dot) < 200; };
    const auto* first = std::find_if(line, end, isInk);
    if (first == end) continue;
    const auto* last =
        std::find_if(std::make_reverse_iterator(end), std::make_reverse_iterator(first), isInk)
            .base();
    ink |= QRect(static_cast<int>(first - line), y, static_cast<int>(last - first), 1);
  }
  return {QPointF(ink.topLeft()) / Dots, QSizeF(ink.size()) / Dots};
}

/// What is printed fills a place, in millimetres.
void ExpectInk(const QImage& paper, const QRectF& place) {
  const QRectF ink = Ink(paper);
  EXPECT_NEAR(ink.left(), place.left(), 0.15);
  EXPECT_NEAR(ink.top(), place.top(), 0.15);
  EXPECT_NEAR(ink.width(), place.width(), 0.2);
  EXPECT_NEAR(ink.height(), place.height(), 0.2);
}

TEST(PrintPage, StandsATextWithItsUpperLeftCornerAtItsPlace) {
  const QFont font = PrintPage::Font("Verdana", 36, false, false);
  PrintPage page;
  page.AddText({80, 40}, "HH", font, Qt::black);
  const QRectF ink = Ink(Printed(page));
  const QFontMetricsF metrics(font);
  const double unit = 25.4 / 7200;
  EXPECT_NEAR(ink.left(), 80 + metrics.leftBearing(u'H') * unit, 0.2);
  EXPECT_NEAR(ink.bottom(), 40 + metrics.ascent() * unit, 0.2);
  EXPECT_NEAR(ink.height(), metrics.capHeight() * unit, 0.3);
  EXPECT_NEAR(ink.right(),
              80 + PrintPage::TextWidth("HH", font) - metrics.rightBearing(u'H') * unit, 0.2);
}

TEST(PrintPage, PrintsAFontInItsSizeInPoints) {
  const QFont font = PrintPage::Font("Courier New", 10, false, false);
  // A letter of a fixed pitch font is 0.6 of its size wide, and 10 points are 3.53 mm.
  EXPECT_NEAR(PrintPage::TextWidth(QString(80, u'x'), font), 80 * 0.6 * 10 / 72 * 25.4, 2);
  EXPECT_EQ(PrintPage::TextWidth("iiii", font), PrintPage::TextWidth("WWWW", font));
  EXPECT_NEAR(PrintPage::LineHeight(font), 10 / 72.0 * 25.4 * 1.165, 0.2);
}

TEST(PrintPage, FillsARectangleWithAPicture) {
  QImage picture(3, 2, QImage::Format_RGB32);
  picture.fill(Qt::red);
  PrintPage page;
  page.AddPicture({15, 20, 180, 97.5}, picture);
  const QImage paper = Printed(page);
  ExpectInk(paper, {15, 20, 180, 97.5});
  EXPECT_EQ(paper.pixelColor(1000, 600), QColor(Qt::red));
}

TEST(PrintPage, IsMovedOffAnEdgeThatCannotBePrintedOn) {
  QImage picture(2, 2, QImage::Format_RGB32);
  picture.fill(Qt::red);
  PrintPage page;
  page.AddPicture({15, 10, 150, 100}, picture);
  ExpectInk(Printed(page, QRectF(QPointF(20, 12.7), QPointF(205, 290))), {20, 12.7, 150, 100});
  // Where there is less room than the page takes, it is made smaller as well.
  ExpectInk(Printed(page, QRectF(QPointF(20, 12.7), QPointF(120, 290))),
            {20, 12.7, 100, 100 * 100.0 / 150});
}

TEST(PrintPage, FillsARectangleWithADrawingWhateverItsSize) {
  QPicture drawing;
  QPainter painter(&drawing);
  painter.fillRect(0, 0, 400, 100, Qt::red);
  painter.fillRect(200, 0, 200, 100, Qt::blue);
  painter.end();
  PrintPage page;
  page.AddDrawing({15, 20, 180, 97.5}, drawing, {400, 100});
  const QImage paper = Printed(page);
  ExpectInk(paper, {15, 20, 180, 97.5});
  EXPECT_EQ(paper.pixelColor(1000, 600), QColor(Qt::red));
  EXPECT_EQ(paper.pixelColor(1100, 600), QColor(Qt::blue));
}

TEST(PrintPage, NarrowsATextThatWouldLeaveTheRoomAndLeavesTheOthers) {
  const QFont font = PrintPage::Font("Verdana", 10, true, false);
  PrintPage page;
  page.AddText({80, 40}, QString(60, u'H'), font, Qt::black);
  ASSERT_GT(PrintPage::TextWidth(QString(60, u'H'), font), 125);
  const QRectF room(5, 5, 200, 287);
  const QRectF ink = Ink(Printed(page, room));
  EXPECT_NEAR(ink.left(), 80, 0.5);
  EXPECT_LE(ink.right(), 205.1);
  EXPECT_GT(ink.right(), 204);
  page.AddText({15, 80}, QStringLiteral("H"), font, Qt::black);
  EXPECT_NEAR(Ink(Printed(page, room)).left(), 15, 0.5);
}

TEST(PrintPage, DoesNotCountTheBlanksAtATextsEnd) {
  const QFont font = PrintPage::Font("Verdana", 10, true, false);
  PrintPage page;
  page.AddText({80, 40}, QString(20, u'H') + QString(200, u' '), font, Qt::black);
  EXPECT_NEAR(Ink(Printed(page)).width(), PrintPage::TextWidth(QString(20, u'H'), font), 1);
}

TEST(PrintPage, IsMadeSmallerWhereSomethingHasNoPlace) {
  QImage picture(3, 2, QImage::Format_RGB32);
  picture.fill(Qt::red);
  PrintPage page;
  page.AddPicture({15, 20, 205, 100}, picture);
  page.AddText({15, 200}, QStringLiteral("H"), PrintPage::Font("Verdana", 36, true, false),
               Qt::black);
  const QRectF ink = Ink(Printed(page, {5, 5, 200, 287}));
  const double reduction = 205.0 / 220;
  EXPECT_NEAR(ink.left(), 15 * reduction, 0.2);
  EXPECT_NEAR(ink.right(), 205, 0.2);
  EXPECT_NEAR(ink.top(), 20 * reduction, 0.2);
}

TEST(PrintPage, GivesATextThatThePaperWouldSwallowAnEdge) {
  const auto dark = [](const QColor& colour) {
    PrintPage page;
    page.AddText({20, 20}, QStringLiteral("------"), PrintPage::Font("Verdana", 20, false, false),
                 colour);
    const QImage paper = Printed(page);
    const QRect area = QRect(20, 20, 40, 15);
    int count = 0;
    for (int y = area.top() * Dots; y < area.bottom() * Dots; ++y) {
      for (int x = area.left() * Dots; x < area.right() * Dots; ++x) {
        count += paper.pixelColor(x, y) == QColor(Qt::black) ? 1 : 0;
      }
    }
    return count;
  };
  for (const QColor& light : {QColor(0, 255, 255), QColor(0, 255, 0), QColor(255, 255, 0)}) {
    EXPECT_GT(dark(light), 100) << light.name().toStdString();
  }
  EXPECT_EQ(dark(Qt::red), 0);
}

TEST(PrintPage, LeavesAColourThatStandsOutAsItIs) {
  PrintPage page;
  page.AddText({20, 20}, QStringLiteral("H"), PrintPage::Font("Verdana", 36, false, false),
               Qt::red);
  const QImage paper = Printed(page);
  const QPointF leg = Ink(paper).bottomLeft() + QPointF(0.8, -3);
  EXPECT_EQ(paper.pixelColor((leg * Dots).toPoint()), QColor(Qt::red));
}

TEST(PictureOfTheProgram, BecomesAnImageAndBack) {
  const platform::Picture picture{3, 2, {1, 0xFF000002, 0x80FF0003, 4, 5, 0xFFFFFFFF}};
  EXPECT_EQ(PictureOf(ImageOf(picture)), picture);
  EXPECT_TRUE(PictureOf(QImage()).Empty());
  EXPECT_TRUE(ImageOf({}).isNull());
}

class Noon : public platform::Calendar {
 public:
  platform::LocalTime At(std::chrono::seconds) const override { return Now(); }
  platform::LocalTime Now() const override { return {2024, 3, 9, 14, 5, 7}; }
  std::string GeneralText(const platform::LocalTime&) const override { return {}; }
  std::string MonthName(std::int32_t) const override { return {}; }
};

class PdfFile : public ::testing::Test {
 protected:
  PdfFile() {
    surface_.DataPath = [this] { return Folder().toStdString(); };
  }
  QString Folder() const { return folder_.filePath("data"); }
  std::string Print(platform::PageOrientation orientation = platform::PageOrientation::Portrait) {
    surface_.Orientation(orientation);
    surface_.DocumentName("SV report");
    surface_.FontName("Verdana");
    surface_.CurrentX(15);
    surface_.CurrentY(10);
    surface_.Print("first");
    std::string file;
    surface_.EndDoc([&file](const platform::SentPage& sent) { file = sent.File; });
    return file;
  }
  static QByteArray Content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder_;
  QtPrinters printers_{{"Office"}, ""};
  Noon noon_;
  QtPrintSurface surface_{printers_, noon_};
};

TEST_F(PdfFile, IsNamedAfterTheDocumentTheDateAndTheTime) {
  QDir(folder_.path()).mkdir("data");
  const std::string path = Print();
  EXPECT_EQ(path, (Folder() + "/SV report 09.03.2024 14-05-07.pdf").toStdString());
  EXPECT_TRUE(Content(QString::fromStdString(path)).startsWith("%PDF-"));
}

TEST_F(PdfFile, NeverOverwritesAnOlderOne) {
  QDir(folder_.path()).mkdir("data");
  const QString first = QString::fromStdString(Print());
  const QByteArray before = Content(first);
  EXPECT_EQ(Print(), (Folder() + "/SV report 09.03.2024 14-05-07 (2).pdf").toStdString());
  EXPECT_EQ(Print(), (Folder() + "/SV report 09.03.2024 14-05-07 (3).pdf").toStdString());
  EXPECT_EQ(Content(first), before);
}

TEST_F(PdfFile, HasTheOrientationOfItsPage) {
  QDir(folder_.path()).mkdir("data");
  const auto size = [this](platform::PageOrientation orientation) {
    const QByteArray pdf = Content(QString::fromStdString(Print(orientation)));
    static const QRegularExpression box(R"(/MediaBox \[0 0 ([\d.]+) ([\d.]+)\])");
    const auto match = box.match(QString::fromLatin1(pdf));
    return QSizeF(match.captured(1).toDouble(), match.captured(2).toDouble());
  };
  const QSizeF portrait = size(platform::PageOrientation::Portrait);
  EXPECT_NEAR(portrait.width(), 595, 1);
  EXPECT_NEAR(portrait.height(), 842, 1);
  EXPECT_EQ(size(platform::PageOrientation::Landscape), portrait.transposed());
}

TEST_F(PdfFile, ThatCannotBeWrittenIsAFailureThatNamesIt) {
  try {
    Print();
    FAIL();
  } catch (const platform::Failure& failure) {
    EXPECT_EQ(failure.Number(), platform::failure::PrinterError);
    EXPECT_NE(failure.Text().find(Folder().toStdString()), std::string::npos) << failure.Text();
  }
}

TEST_F(PdfFile, DropsAPageThatWasBegunAndNotEnded) {
  QDir(folder_.path()).mkdir("data");
  const QByteArray once = Content(QString::fromStdString(Print()));
  surface_.Orientation(platform::PageOrientation::Portrait);
  surface_.Print(std::string(2000, 'x'));
  const QByteArray again = Content(QString::fromStdString(Print()));
  EXPECT_LT(std::abs(once.size() - again.size()), 50);
}

TEST_F(PdfFile, KeepsItsPicturesWithoutALoss) {
  QDir(folder_.path()).mkdir("data");
  QImage noise(64, 64, QImage::Format_RGB32);
  for (int y = 0; y < 64; ++y) {
    for (int x = 0; x < 64; ++x) noise.setPixel(x, y, qRgb(x * 4, y * 4, (x * y) % 256));
  }
  surface_.Orientation(platform::PageOrientation::Landscape);
  surface_.DocumentName("SV waveforms");
  surface_.PaintPicture(PictureOf(noise), 15, 20, 60, 60);
  std::string file;
  surface_.EndDoc([&file](const platform::SentPage& sent) { file = sent.File; });
  EXPECT_FALSE(Content(QString::fromStdString(file)).contains("DCTDecode"));
  EXPECT_TRUE(Content(QString::fromStdString(file)).contains("/Subtype /Image"));
}

TEST_F(PdfFile, IsNotForAPrinterThatIsGone) {
  QDir(folder_.path()).mkdir("data");
  printers_.MakeCurrent(0);
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", "");
  EXPECT_THROW(Print(), platform::Failure);
  qputenv("PATH", path);
  EXPECT_TRUE(QDir(Folder()).isEmpty());
}

TEST_F(PdfFile, MeasuresATextInItsPresentFont) {
  surface_.FontName("Verdana");
  surface_.FontSize(10);
  const double plain = surface_.TextWidth("Harlengard");
  surface_.FontBold(true);
  EXPECT_GT(surface_.TextWidth("Harlengard"), plain);
  surface_.FontSize(20);
  EXPECT_GT(surface_.TextWidth("Harlengard"), 1.9 * plain);
}

}  // namespace
}  // namespace desktop
