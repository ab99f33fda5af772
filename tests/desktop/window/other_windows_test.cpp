#include <QAbstractScrollArea>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <utility>

#include "window_scene.h"

namespace desktop {
namespace {

/// What opens beside the main window.
class OtherWindows : public WindowScene {
 protected:
  /// Works once on the next dialog that selects a folder.
  void OnFolderDialog(std::function<void(QFileDialog&)> work) {
    OnDialog([work = std::move(work)](QDialog& dialog) {
      auto* folders = qobject_cast<QFileDialog*>(&dialog);
      if (folders == nullptr) {
        ADD_FAILURE() << "not the dialog for folders";
        dialog.reject();
        return;
      }
      work(*folders);
    });
  }
  QWidget* DebugWindow() { return program_->Window().findChild<QWidget*>("DebugWindow"); }
};

TEST_F(OtherWindows, AFolderThatTheUserBrowsesToLandsInThePathField) {
  Start();
  ClickTab(forms::tab::Setup);
  ASSERT_TRUE(QDir(home_.path()).mkdir("records"));
  const QString folder = home_.filePath("records");
  QString title;
  bool foldersOnly = false;
  OnFolderDialog([&](QFileDialog& dialog) {
    title = dialog.windowTitle();
    foldersOnly =
        dialog.testOption(QFileDialog::ShowDirsOnly) && dialog.fileMode() == QFileDialog::Directory;
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(folder);
    auto* choose = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
    QTest::mouseClick(choose, Qt::LeftButton);
  });

  Click("Command3");

  EXPECT_EQ(title, QString::fromUtf8("Bitte einen Ordner auswählen"));
  EXPECT_TRUE(foldersOnly);
  EXPECT_EQ(Find<QLineEdit>(Member("Text1", 3)).text(), folder);
  EXPECT_EQ(Program().Config.Settings.StoragePath, folder.toStdString());
  EXPECT_TRUE(WaitFor([&] { return Stored("Path of stored data") == folder; }));
}

TEST_F(OtherWindows, AFolderDialogThatIsCancelledChangesNothing) {
  Start();
  ClickTab(forms::tab::Setup);
  const QString before = Find<QLineEdit>(Member("Text1", 3)).text();
  bool opened = false;
  OnFolderDialog([&](QFileDialog& dialog) {
    opened = true;
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });

  Click("Command3");

  EXPECT_TRUE(opened);
  EXPECT_EQ(Find<QLineEdit>(Member("Text1", 3)).text(), before);
  EXPECT_EQ(Program().Config.Settings.StoragePath, before.toStdString());
}

TEST_F(OtherWindows, TheRevisionHistoryOpensAndCloses) {
  Start();
  QString text;
  bool readOnly = false;
  OnDialog([&](QDialog& dialog) {
    auto* area = dialog.findChild<QPlainTextEdit*>();
    text = area->toPlainText();
    readOnly = area->isReadOnly();
    QTest::mouseClick(dialog.findChild<QAbstractButton*>("cmdOK"), Qt::LeftButton);
  });
  Click("Label4");
  EXPECT_TRUE(text.contains("\n- ")) << text.toStdString();
  EXPECT_TRUE(readOnly);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_FALSE(Program().Windows.Revisionhistory.Window.Loaded);
  bool again = false;
  OnDialog([&](QDialog& dialog) {
    again = true;
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  Click("Label4");
  EXPECT_TRUE(again);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(OtherWindows, TheRevisionHistoryOpensAtItsBeginningEachTime) {
  Start();
  int scrolled = 0;
  OnDialog([&](QDialog& dialog) {
    // Too low for the whole text, so that it scrolls.
    dialog.resize(dialog.width(), 240);
    QTest::qWait(20);
    auto* area = dialog.findChild<QPlainTextEdit*>();
    QScrollBar& bar = *area->verticalScrollBar();
    bar.setValue(bar.maximum());
    scrolled = bar.value();
    QTest::mouseClick(area->viewport(), Qt::LeftButton);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  Click("Label4");
  ASSERT_GT(scrolled, 0);

  int place = -1;
  int cursor = -1;
  int height = 0;
  OnDialog([&](QDialog& dialog) {
    auto* area = dialog.findChild<QPlainTextEdit*>();
    height = dialog.height();
    place = area->verticalScrollBar()->value();
    cursor = area->textCursor().position();
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  Click("Label4");
  EXPECT_EQ(height, 240);
  EXPECT_EQ(place, 0);
  EXPECT_EQ(cursor, 0);
}

TEST_F(OtherWindows, TheDebugWindowStaysAwayAndADoubleClickEmptiesIt) {
  Start();
  EXPECT_EQ(DebugWindow(), nullptr);
  Program().Windows.DebugWindow.Text1.Text = "trace";
  Program().Windows.DebugWindow.Window.Visible = true;
  auto& area = Find<QAbstractScrollArea>("DebugWindow.Text1");
  QTest::mouseDClick(area.viewport(), Qt::LeftButton);
  EXPECT_EQ(Program().Windows.DebugWindow.Text1.Text, "");
}

TEST_F(OtherWindows, TheDebugWindowIsNotBuiltForTheShutDown) {
  Start();
  ClickTab(forms::tab::Exit);
  EXPECT_TRUE(WaitFor([&] { return exitCode_ == 0; }));
  EXPECT_EQ(DebugWindow(), nullptr);
}

TEST_F(OtherWindows, ADebugWindowThatWasLoadedButNeverShownIsUnloadedUnbuilt) {
  Start();
  Program().Windows.DebugWindow.Window.Loaded = true;
  ClickTab(forms::tab::Exit);
  EXPECT_TRUE(WaitFor([&] { return exitCode_ == 0; }));
  EXPECT_FALSE(Program().Windows.DebugWindow.Window.Loaded);
  EXPECT_EQ(DebugWindow(), nullptr);
}

}  // namespace
}  // namespace desktop
