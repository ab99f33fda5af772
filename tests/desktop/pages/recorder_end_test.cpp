#include <QDir>
#include <QFile>

#include "window_scene.h"

namespace desktop {
namespace {

/// The ends of a recording that find something else than its files closed and in their place.
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

TEST_F(RecorderEnd, LeavesTheProgramRunningWhereItsFolderIsGone) {
  Start();
  GoMeasure();
  ClickTab(RecorderTab);
  Click("Option2(0)");
  Click("CWButton3");
  ASSERT_TRUE(WaitFor([this] { return Form().CWButton3.Visible.Get(); }));
  ASSERT_TRUE(QDir(QString::fromStdString(Program().Settings.StoragePath)).removeRecursively());

  Click("CWButton3");

  EXPECT_TRUE(WaitFor([this] { return Form().Option2[0].Enabled.Get(); }));
  const std::string& line = Form().NotStored.Caption;
  EXPECT_NE(line.find("stream 1: not stored since "), std::string::npos) << line;
  EXPECT_NE(line.find("Log and quick view are left out: Path not found."), std::string::npos)
      << line;
  EXPECT_FALSE(Form().CWButton3.Value);
  ClickTab(ValuesTab);
  EXPECT_EQ(Form().TabStrip1.SelectedTab, ValuesTab) << "no box stands, and the program goes on";
}

}  // namespace
}  // namespace desktop
