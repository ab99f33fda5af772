// Where the texts stand on the printed pages, as another program reads them from the PDF file.

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <algorithm>

#include "desktop/services/print_page.h"
#include "window_scene.h"

namespace desktop {
namespace {

constexpr double MillimetresOfPoint = 25.4 / 72;

/// A word of a page and its upper left corner, in millimetres.
struct Word {
  QString Text;
  double X = 0;
  double Y = 0;
};

class PdfText : public WindowScene {
 protected:
  void SetUp() override {
    tool_ = QStandardPaths::findExecutable("pdftotext");
    if (tool_.isEmpty()) GTEST_SKIP() << "pdftotext (poppler-utils) is not on this computer";
  }

  void StartWithData(int tab) {
    Start();
    ASSERT_TRUE(QDir(home_.path()).mkpath("data"));
    Program().Config.Settings.StoragePath = home_.filePath("data").toStdString();
    // The last printer is the PDF file, whatever others the computer has.
    Form().Combo2.ListIndex = Form().Combo2.ListCount() - 1;
    ClickTab(tab);
  }
  /// The words of the one file that was printed, in their order.
  QList<Word> Words() {
    const QDir folder(home_.filePath("data"));
    const QStringList files = folder.entryList({"*.pdf"}, QDir::Files);
    EXPECT_EQ(files.size(), 1);
    QProcess reader;
    reader.start(tool_, {"-bbox", folder.filePath(files.value(0)), "-"});
    reader.waitForFinished();
    static const QRegularExpression line(
        R"re(<word xMin="([0-9.]+)" yMin="([0-9.]+)"[^>]*>([^<]*)</word>)re");
    QList<Word> words;
    auto matches = line.globalMatch(QString::fromUtf8(reader.readAllStandardOutput()));
    while (matches.hasNext()) {
      const auto match = matches.next();
      words.push_back({match.captured(3), match.captured(1).toDouble() * MillimetresOfPoint,
                       match.captured(2).toDouble() * MillimetresOfPoint});
    }
    return words;
  }
  static void ExpectAt(const QList<Word>& words, const QString& text, double x, double y) {
    std::string elsewhere;
    for (const Word& word : words) {
      if (word.Text != text) continue;
      if (std::abs(word.X - x) < 0.5 && std::abs(word.Y - y) < 0.5) return;
      elsewhere += " " + std::to_string(word.X) + "," + std::to_string(word.Y);
    }
    ADD_FAILURE() << text.toStdString() << " is not at " << x << "," << y << " but at" << elsewhere;
  }
  /// The first word of a text, as the page has it; nothing where the text does not begin with one.
  static QString FirstWord(const std::string& text) {
    if (text.starts_with(' ')) return {};
    return QString::fromStdString(text).simplified().section(u' ', 0, 0).toHtmlEscaped();
  }

 private:
  QString tool_;
};

TEST_F(PdfText, OfAReportStandsInItsRows) {
  StartWithData(6);
  Click("Command2");
  ASSERT_TRUE(WaitFor([&] { return Form().Command4.Enabled.Get(); }));
  Click("Command4");
  const QList<Word> words = Words();
  ExpectAt(words, "Vornik:", 15, 10);
  ExpectAt(words, "Report", 15, 18);
  // What is printed behind another text stands behind it.
  const QFont heading = PrintPage::Font("Verdana", 10, true, false);
  ExpectAt(words, "dated", 15 + PrintPage::TextWidth("Report of received sample set;  ", heading),
           18);
  for (std::size_t row = 0; row <= 20; ++row) {
    const double y = 40 + 7 * static_cast<double>(row);
    const QString title = FirstWord(Form().Label7[row].Caption);
    const QString value = FirstWord(Form().Label8[row].Caption);
    // The dump lines from the third on take the whole width.
    if (row < 15 && !title.isEmpty()) ExpectAt(words, title, 15, y);
    if (!value.isEmpty()) ExpectAt(words, value, row < 15 ? 80 : 15, y);
  }
  const auto printed = [&words](const char* text) {
    return std::any_of(words.begin(), words.end(),
                       [text](const Word& word) { return word.Text == QLatin1String(text); });
  };
  EXPECT_TRUE(printed("70:"));
  EXPECT_FALSE(printed("80:"));
  EXPECT_FALSE(printed("90:"));
  ExpectAt(words, "Vornik", 15, 250);
  ExpectAt(words, "Used", 15, 40);
  ExpectAt(words, "Ethertype:", 15, 61);
  // Which of the two units was met is not said; one of them tags its frames.
  ExpectAt(words, QString::fromStdString(Form().Label8[3].Caption), 80, 61);
  ExpectAt(words, "Complete", 15, 124);
  ExpectAt(words, "00:", 80, 131);
  ExpectAt(words, "20:", 15, 145);
}

TEST_F(PdfText, OfTheWaveformsStandsBesideTheGraph) {
  StartWithData(4);
  Click("Command1");
  const QList<Word> words = Words();
  ExpectAt(words, "Print-out", 15, 10);
  ExpectAt(words, "shown", 205, 30);
  ExpectAt(words, "Legend:", 205, 38);
  // All channels are shown, one below the other; their names begin alike.
  for (int channel = 0; channel < 8; ++channel) {
    ExpectAt(words, channel < 4 ? "Current" : "Voltage", 205, 46 + 8 * channel);
  }
  // In the order of the channels: what tells them apart is the last word of a name.
  for (std::size_t channel = 0; channel < 8; ++channel) {
    const QString last =
        QString::fromStdString(Form().Check2[channel].Caption).section(u' ', -1).toHtmlEscaped();
    const double top = 46 + 8 * static_cast<double>(channel);
    EXPECT_TRUE(std::any_of(words.begin(), words.end(), [&](const Word& word) {
      return word.Text == last && word.X > 205 && std::abs(word.Y - top) < 0.5;
    })) << last.toStdString();
  }
  ExpectAt(words, "Vornik", 205, 180);
}

}  // namespace
}  // namespace desktop
