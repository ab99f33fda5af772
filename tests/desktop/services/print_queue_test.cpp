#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "desktop/services/qt_print_surface.h"
#include "platform/failure.h"

namespace desktop {
namespace {

class NoDate : public platform::Calendar {
 public:
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
  void Print() {
    surface_.Orientation(platform::PageOrientation::Landscape);
    surface_.DocumentName("SV waveforms");
    surface_.FontName("Verdana");
    surface_.Print("first");
    surface_.EndDoc();
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
};

TEST_F(PrintQueue, GetsThePageWithItsPrinterAndItsName) {
  QueueDoes("echo \"$1 $2 $3 $4 $5 $6\" > $FOLDER/words; /bin/cat \"$7\" > $FOLDER/page");

  Print();

  EXPECT_EQ(Left("words"), "-d Office -t SV waveforms -o media=A4\n");
  EXPECT_TRUE(Left("page").startsWith("%PDF-"));
  EXPECT_TRUE(Left("page").contains("/MediaBox [0 0 842"));
}

TEST_F(PrintQueue, ThatRefusesThePageIsAFailureWithItsReason) {
  QueueDoes("echo 'lp: Destination \"Office\" is not accepting jobs.' >&2; exit 1");
  try {
    Print();
    FAIL() << "the refusal went unnoticed";
  } catch (const platform::Failure& failure) {
    EXPECT_EQ(failure.Number(), platform::failure::PrinterError);
    EXPECT_EQ(failure.Text(),
              "\"Office\" refused the page (lp: Destination \"Office\" is not accepting jobs.)");
  }
}

TEST_F(PrintQueue, WithoutItsCommandIsAskedByTheToolkit) {
  // There is no such printer; the toolkit knows.
  EXPECT_THROW(Print(), platform::Failure);
}

}  // namespace
}  // namespace desktop
