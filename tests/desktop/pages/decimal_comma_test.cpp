// Recordings of the whole program where numbers have a decimal comma. The test program must have
// been started in such a locale: the system's is read once.

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <cstring>

#include "desktop/services/system_locale.h"
#include "desktop/widgets/run_button.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// RMS in A of the first simulated stream.
constexpr double SimulatedCurrent = 400;

class DecimalComma : public WindowScene {
 protected:
  void SetUp() override {
    if (SeparatorsOf(QLocale::system()).Decimal != ',') {
      GTEST_SKIP() << "not started with LC_ALL=de_DE.UTF-8";
    }
    Start();
    ClickTab(forms::tab::Setup);
    Type(Member("Text1", 12), "VORNIK-SIM-1");
    ClickTab(forms::tab::Recorder);
  }

  /// Records until the first ring is on disk.
  void Record(std::size_t format) {
    Click(Member("Option2", static_cast<int>(format)));
    Click("CWButton3");
    auto& button = Find<RunButton>("CWButton3");
    ASSERT_TRUE(WaitFor([&] { return button.isVisible(); }));
    OnDialog([](QDialog& dialog) { dialog.reject(); });
    Click("CWButton3");
  }
  QString Place(const QString& extension) {
    const QString name = QString::fromStdString(Program().Acquisition.State.RecordFileName);
    return home_.filePath("StoredData/" + name.chopped(4) + extension);
  }
  static QByteArray Bytes(const QString& place) {
    QFile file(place);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << place.toStdString();
    return file.readAll();
  }
  static QList<QByteArray> Lines(const QString& place) {
    QList<QByteArray> lines = Bytes(place).split('\n');
    lines.removeLast();
    for (QByteArray& line : lines) line.chop(1);
    return lines;
  }
};

TEST_F(DecimalComma, StandsOnThePageAndInTheLogButNotInATextRecording) {
  Record(forms::record_format::Text);
  // 0.9 s, or some tenths more where the press of STOP was late.
  const QString progress = Find<QLabel>(Member("Label10", 3)).text();
  static const QRegularExpression Tenths(QStringLiteral("^[0-9]+(,[0-9])?s / "));
  EXPECT_TRUE(Tenths.match(progress).hasMatch()) << progress.toStdString();
  const QList<QByteArray> lines = Lines(Place(".txt"));
  ASSERT_GE(lines.size(), 4000);
  int fractions = 0;
  for (const QByteArray& line : lines) {
    ASSERT_FALSE(line.contains(',')) << line.toStdString();
    ASSERT_EQ(line.count(';'), 9) << line.toStdString();
    fractions += line.contains('.') ? 1 : 0;
  }
  EXPECT_GT(fractions, 3000);
  const QFileInfo data(Place(".txt"));
  const QString log = data.path() + "/Errorlog " + data.fileName();
  EXPECT_TRUE(Bytes(log).contains("captured samples   : 100,0 %\r\n")) << Bytes(log).toStdString();
  EXPECT_TRUE(Form().CWGraph2.Visible);
  // The quick view reads the points back.
  EXPECT_NEAR(Form().CWGraph2.Plots[0].Y.Get()[1], SimulatedCurrent, 0.01);
}

TEST_F(DecimalComma, StandsNowhereInAComtradeRecording) {
  Record(forms::record_format::Comtrade);
  const QRegularExpression form("^\\d+,\\d+(\\.25|\\.5|\\.75)?(,-?\\d+\\.\\d{3}){8}$");
  const QList<QByteArray> lines = Lines(Place(".dat"));
  ASSERT_GE(lines.size(), 4000);
  for (const QByteArray& line : lines) {
    ASSERT_TRUE(form.match(QString::fromLatin1(line)).hasMatch()) << line.toStdString();
  }
  const QList<QByteArray> configuration = Lines(Place(".cfg"));
  ASSERT_EQ(configuration.size(), 17);
  EXPECT_EQ(configuration[12].left(5), "4000,");
}

TEST_F(DecimalComma, LeavesTheNumbersOfAWorksheetAlone) {
  Record(forms::record_format::Worksheet);
  const QByteArray sheet = Bytes(Place(".xls"));
  int numbers = 0;
  double largest = 0;
  for (qsizetype at = 0; at + 4 <= sheet.size();) {
    const auto word = [&](qsizetype from) {
      return static_cast<unsigned char>(sheet[from]) | static_cast<unsigned char>(sheet[from + 1])
                                                           << 8;
    };
    constexpr int NumberRecord = 3;
    constexpr qsizetype Column = 6;
    constexpr qsizetype Value = 11;
    if (word(at) == NumberRecord) {
      ++numbers;
      double value = 0;
      std::memcpy(&value, sheet.constData() + at + Value, sizeof value);
      if (word(at + Column) == 1) largest = std::max(largest, value);
    }
    at += 4 + word(at + 2);
  }
  EXPECT_EQ(numbers % 36000, 0);
  EXPECT_GT(numbers, 0);
  EXPECT_NEAR(largest, std::sqrt(2) * SimulatedCurrent, 0.01 * SimulatedCurrent);
}

}  // namespace
}  // namespace desktop
