#include <QDir>
#include <QFile>

#include "window_scene.h"

namespace desktop {
namespace {

/// The end of the program while a worksheet is open.
class RecorderEnd : public WindowScene {
 protected:
  QByteArray EndOf(const QString& pattern) {
    const QDir folder(QString::fromStdString(Program().Settings.StoragePath));
    const QStringList files = folder.entryList({pattern}, QDir::Files);
    if (files.size() != 1) return {};
    QFile file(folder.filePath(files[0]));
    return file.open(QIODevice::ReadOnly) ? file.readAll().right(4) : QByteArray();
  }
  const QByteArray endOfSheet_ = QByteArray::fromHex("0a000000");
};

TEST_F(RecorderEnd, FinishesTheSheetsThatAreStillOpen) {
  Start();
  GoMeasure();
  ClickTab(RecorderTab);
  Click("Option2(1)");
  Click("CWButton3");
  ASSERT_TRUE(WaitFor([this] {
    return !EndOf("1_SV record*.xls").isEmpty() && !EndOf("2_SV record*.xls").isEmpty();
  }));
  EXPECT_NE(EndOf("2_SV record*.xls"), endOfSheet_);

  program_->EndSession();

  EXPECT_EQ(exitCode_, 0);
  EXPECT_EQ(EndOf("1_SV record*.xls"), endOfSheet_);
  EXPECT_EQ(EndOf("2_SV record*.xls"), endOfSheet_);
}

}  // namespace
}  // namespace desktop
