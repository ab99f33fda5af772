// Where the texts stand on the printed pages, as another program reads them from the PDF file.

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

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
    Program().Settings.StoragePath = home_.filePath("data").toStdString();
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
    for (const Word& word : words) {
      if (word.Text != text) continue;
      if (std::abs(word.X - x) < 0.5 && std::abs(word.Y - y) < 0.5) return;
      ADD_FAILURE() << text.toStdString() << " at " << word.X << ", " << word.Y;
      return;
    }
    ADD_FAILURE() << "no " << text.toStdString();
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
  ExpectAt(words, "Report", 15, 18);
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
  ExpectAt(words, "Vornik", 205, 180);
}

}  // namespace
}  // namespace desktop
