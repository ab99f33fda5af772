#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>
#include <memory>
#include <vector>

#include "base/failure.h"
#include "desktop/services/qt_print_surface.h"

namespace desktop {
namespace {

class NoDate : public platform::Calendar {
 public:
  platform::LocalTime At(std::chrono::seconds) const override { return Now(); }
  platform::LocalTime Now() const override { return {}; }
  std::string GeneralText(const platform::LocalTime&) const override { return {}; }
  std::string MonthName(std::int32_t) const override { return {}; }
};

/// A system printer whose queue is a script of the test's.
class PrintQueue : public ::testing::Test {
 protected:
  PrintQueue() : path_(qgetenv("PATH")) {
    printers_.MakeCurrent(0);
    qputenv("PATH", folder_.path().toLocal8Bit());
  }
  ~PrintQueue() override { qputenv("PATH", path_); }

  /// What the queue does with a job; `$FOLDER` is the scene's own.
  void QueueDoes(const QByteArray& script) {
    QFile command(folder_.filePath("lp"));
    ASSERT_TRUE(command.open(QIODevice::WriteOnly));
    command.write("#!/bin/sh\nFOLDER=" + folder_.path().toLocal8Bit() + "\n" + script + "\n");
    command.close();
    command.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  }
  void Send() {
    surface_.Orientation(platform::PageOrientation::Landscape);
    surface_.DocumentName("SV waveforms");
    surface_.FontName("Verdana");
    surface_.Print("first");
    surface_.EndDoc([this](const platform::SentPage& sent) { told_.push_back(sent); });
  }
  /// Sends a page and waits for what becomes of it.
  void Print() {
    Send();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !told_.empty(); }));
  }
  QByteArray Left(const char* name) {
    QFile file(folder_.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder_;
  QByteArray path_;
  QtPrinters printers_{{"Office"}, ""};
  NoDate calendar_;
  QtPrintSurface surface_{printers_, calendar_};
  std::vector<platform::SentPage> told_;
};

TEST_F(PrintQueue, GetsThePageWithItsPrinterAndItsName) {
  QueueDoes("echo \"$1 $2 $3 $4 $5 $6\" > $FOLDER/words; /bin/cat > $FOLDER/page");

  Print();

  EXPECT_EQ(Left("words"), "-d Office -t SV waveforms -o media=A4\n");
  EXPECT_TRUE(Left("page").startsWith("%PDF-"));
  EXPECT_TRUE(Left("page").contains("/MediaBox [0 0 842"));
  ASSERT_EQ(told_.size(), 1U);
  EXPECT_EQ(told_[0].File, "");
  EXPECT_EQ(told_[0].Refusal, "");
}

TEST_F(PrintQueue, GetsThePageInTheSizeOfItsPrintersPaper) {
  QueueDoes("echo \"$6\" > $FOLDER/words; /bin/cat > $FOLDER/page");
  surface_.PaperOfPrinter = [](const QString& printer) {
    return printer == "Office" ? Paper{QPageSize(QPageSize::Letter), 6.35} : Paper();
  };

  Print();

  EXPECT_EQ(Left("words"), "media=Letter\n");
  EXPECT_TRUE(Left("page").contains("/MediaBox [0 0 792"));
}

TEST_F(PrintQueue, GetsNothingElseThatTheProgramHasOpen) {
  QueueDoes("/bin/ls -l /proc/self/fd > $FOLDER/open");
  const std::unique_ptr<FILE, int (*)(FILE*)> file(
      std::fopen(qPrintable(folder_.filePath("mine")), "w"), std::fclose);
  ASSERT_TRUE(file);

  Print();

  EXPECT_TRUE(Left("open").contains("/open\n"));
  EXPECT_FALSE(Left("open").contains("/mine")) << Left("open").toStdString();
}

TEST_F(PrintQueue, IsNotWaitedFor) {
  QueueDoes("while [ ! -e $FOLDER/go ]; do /bin/sleep 0.01; done");

  Send();
  QTest::qWait(20);

  EXPECT_TRUE(told_.empty());
  QFile go(folder_.filePath("go"));
  ASSERT_TRUE(go.open(QIODevice::WriteOnly));
  ASSERT_TRUE(QTest::qWaitFor([this] { return !told_.empty(); }));
  EXPECT_EQ(told_[0].Refusal, "");
}

TEST_F(PrintQueue, ThatDoesNotAnswerIsGivenUp) {
  QueueDoes("echo $$ > $FOLDER/process; exec /bin/sleep 30");
  surface_.PatienceOfQueue = 200;

  Print();
  QTest::qWait(50);

  ASSERT_EQ(told_.size(), 1U);
  EXPECT_EQ(told_[0].Refusal, "the queue of \"Office\" does not answer");
  const QByteArray process = Left("process").trimmed();
  ASSERT_FALSE(process.isEmpty());
  EXPECT_FALSE(QDir("/proc/" + QString::fromLatin1(process)).exists());
}

TEST_F(PrintQueue, LeavesNoFileOfThePageBehindThatIsOnItsWay) {
  QueueDoes("while [ ! -e $FOLDER/go ]; do /bin/sleep 0.01; done");
  const QStringList before = QDir::temp().entryList({"vornik_*.pdf"});

  Send();
  QTest::qWait(50);

  EXPECT_EQ(QDir::temp().entryList({"vornik_*.pdf"}), before);
}

TEST_F(PrintQueue, ThatTheProgramsEndOvertakesTellsNobody) {
  QueueDoes("while [ ! -e $FOLDER/go ]; do /bin/sleep 0.01; done");
  {
    QtPrintSurface surface(printers_, calendar_);
    surface.Orientation(platform::PageOrientation::Portrait);
    surface.EndDoc([this](const platform::SentPage& sent) { told_.push_back(sent); });
  }
  QTest::qWait(20);
  EXPECT_TRUE(told_.empty());
}

TEST(PaperOfAPrinter, ThatIsNotKnownIsA4WithTheUsualMargins) {
  const Paper paper = PaperOf("no such printer");
  EXPECT_EQ(paper.Size.id(), QPageSize::A4);
  EXPECT_EQ(paper.Room(QPageLayout::Landscape), QRectF(5, 5, 287, 200));
}

TEST_F(PrintQueue, ThatRefusesThePageTellsItsReason) {
  QueueDoes("echo 'lp: Destination \"Office\" is not accepting jobs.' >&2; exit 1");
  Print();
  ASSERT_EQ(told_.size(), 1U);
  EXPECT_EQ(told_[0].Refusal,
            "\"Office\" refused the page (lp: Destination \"Office\" is not accepting jobs.)");
}

TEST_F(PrintQueue, WithoutItsCommandIsAskedByTheToolkit) {
  // There is no such printer; the toolkit knows.
  EXPECT_THROW(Send(), platform::Failure);
}

}  // namespace
}  // namespace desktop
