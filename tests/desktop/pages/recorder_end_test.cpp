#include <QDir>
#include <QFile>

#include "window_scene.h"

namespace desktop {
namespace {

/// How a recording ends: by STOP, with the program while a worksheet is open, or with files that
/// are not in their place any more.
class RecorderEnd : public WindowScene {
 protected:
  QByteArray EndOf(const QString& pattern) {
    const QDir folder(QString::fromStdString(Program().Config.Settings.StoragePath));
    const QStringList files = folder.entryList({pattern}, QDir::Files);
    if (files.size() != 1) return {};
    QFile file(folder.filePath(files[0]));
    return file.open(QIODevice::ReadOnly) ? file.readAll().right(4) : QByteArray();
  }
  const QByteArray endOfSheet_ = QByteArray::fromHex("0a000000");
};

TEST_F(RecorderEnd, IsPressedByTheKeyThatPressedRun) {
  Start();
  GoMeasure();
  ClickTab(forms::tab::Recorder);
  auto& button = Find<QAbstractButton>("CWButton3");
  button.setFocus();
  const auto pressSpace = [this] {
    QWidget* focused = program_->Window().focusWidget();
    QTest::keyClick(focused != nullptr ? focused : &program_->Window(), Qt::Key_Space);
  };

  pressSpace();
  ASSERT_TRUE(Form().CWButton3.Value);
  ASSERT_FALSE(button.isVisible());
  // A key that comes too early reaches nothing.
  pressSpace();
  ASSERT_TRUE(Form().CWButton3.Value);
  EXPECT_EQ(program_->Window().focusWidget(), nullptr);
  ASSERT_TRUE(WaitFor([&] { return button.isVisible(); })) << "the first ring is on disk";
  pressSpace();

  EXPECT_FALSE(Form().CWButton3.Value);
}

TEST_F(RecorderEnd, LeavesTheFocusWhereTheUserHasPutItMeanwhile) {
  Start();
  ClickTab(forms::tab::Recorder);
  Find<QWidget>("CWButton3").setFocus();
  Form().CWButton3.Visible = false;
  auto& field = Find<QWidget>(Member("Text3", 2));
  field.setFocus();

  Form().CWButton3.Visible = true;

  EXPECT_TRUE(field.hasFocus());
}

TEST_F(RecorderEnd, FinishesTheSheetsThatAreStillOpen) {
  Start();
  GoMeasure();
  ClickTab(forms::tab::Recorder);
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
  ClickTab(forms::tab::Recorder);
  Click("Option2(0)");
  Click("CWButton3");
  ASSERT_TRUE(WaitFor([this] { return Form().CWButton3.Visible.Get(); }));
  ASSERT_TRUE(
      QDir(QString::fromStdString(Program().Config.Settings.StoragePath)).removeRecursively());

  Click("CWButton3");

  EXPECT_TRUE(WaitFor([this] { return Form().Option2[0].Enabled.Get(); }));
  const std::string& line = Form().NotStored.Caption;
  EXPECT_NE(line.find("stream 1: not stored since "), std::string::npos) << line;
  EXPECT_NE(line.find("Log and quick view are left out: Path not found."), std::string::npos)
      << line;
  EXPECT_FALSE(Form().CWButton3.Value);
  ClickTab(forms::tab::Values);
  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Values)
      << "no box stands, and the program goes on";
}

}  // namespace
}  // namespace desktop
