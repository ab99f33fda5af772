#include <gmock/gmock.h>

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>

#include "desktop/look/casing.h"
#include "desktop/look/scale.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// The path of stored data, from the first start on.
class DataPath : public WindowScene {
 protected:
  QLineEdit& Field() { return Find<QLineEdit>(Member("Text1", 3)); }
  QString FolderOfTheDialog() {
    QString folder;
    OnDialog([&](QDialog& dialog) {
      if (auto* folders = qobject_cast<QFileDialog*>(&dialog)) {
        folder = folders->directory().path();
      }
      dialog.reject();
    });
    Click("Command3");
    return folder;
  }
};

TEST_F(DataPath, OfANewUserOpensTheRecorderAtTheFirstClick) {
  Start();
  ClickTab(forms::tab::Recorder);

  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Recorder);
  const QString folder = home_.filePath("StoredData");
  EXPECT_TRUE(QDir(folder).exists());
  auto& shown = Find<QLabel>(Member("Label10", 1));
  EXPECT_TRUE(WaitFor([&] {
    return shown.text() == folder + "/SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')";
  })) << shown.text().toStdString();
  EXPECT_EQ(Field().text(), folder);
}

TEST_F(DataPath, WithAStoredDriveBecomesTheDefault) {
  Store("Path of stored data", "c:\\StoredData");
  Start();

  EXPECT_EQ(Field().text(), home_.filePath("StoredData"));
  EXPECT_TRUE(
      WaitFor([&] { return Stored("Path of stored data") == home_.filePath("StoredData"); }));
}

TEST_F(DataPath, OpensTheDialogForFolders) {
  ASSERT_TRUE(QDir(home_.path()).mkpath("records/bay 1"));
  Store("Path of stored data", home_.filePath("records/bay 1"));
  Start();
  ClickTab(forms::tab::Setup);

  EXPECT_EQ(FolderOfTheDialog(), home_.filePath("records/bay 1"));
}

TEST_F(DataPath, ThatIsMissingOpensTheDialogInTheHome) {
  Store("Path of stored data", home_.filePath("gone"));
  Start();
  ClickTab(forms::tab::Setup);

  EXPECT_EQ(FolderOfTheDialog(), home_.path());
}

TEST_F(DataPath, ThatIsLongShowsItsEndUntilItIsEdited) {
  const QString path = "/" + QString(300, 'a') + "/records";
  Store("Path of stored data", path);
  Start();
  ClickTab(forms::tab::Setup);
  ASSERT_GT(Field().fontMetrics().horizontalAdvance(path), Field().width());

  EXPECT_EQ(Field().cursorPosition(), path.size());
  Field().setFocus();
  QTest::keyClick(&Field(), Qt::Key_Home);
  EXPECT_EQ(Field().cursorPosition(), 0);
  QTest::keyClick(&Field(), Qt::Key_Tab);
  EXPECT_EQ(Field().cursorPosition(), path.size());
}

/// The first column of a field's picture that holds words, and the rows of it that do.
struct FirstInk {
  int Column = 0;
  int Top = 0;
};

FirstInk FirstInkOf(QWidget& field) {
  const QImage picture = field.grab().toImage();
  const QColor ground = picture.pixelColor(field.width() - 5, field.height() / 2);
  for (int x = 4; x < picture.width(); ++x) {
    for (int y = 5; y < picture.height() - 5; ++y) {
      if (look::Contrast(picture.pixelColor(x, y), ground) > 2) return {x, y};
    }
  }
  return {};
}

TEST_F(DataPath, ThatIsLongBeginsWithDotsUntilItIsEdited) {
  Store("Path of stored data", "/" + QString(300, 'l') + "/records");
  Start();
  ClickTab(forms::tab::Setup);
  for (const QSize size : {QSize(1024, 768), QSize(1920, 1080)}) {
    ResizeFrame(size);
    QTest::qWait(30);
    Find<QWidget>("Combo1").setFocus();
    const FirstInk dots = FirstInkOf(Field());
    EXPECT_GT(dots.Top, Field().height() / 2) << "dots stand on the line";
    EXPECT_LE(dots.Column, look::Scaled(11)) << "where a text of a field begins";
    Field().setFocus();
    Field().setCursorPosition(40);
    EXPECT_LT(FirstInkOf(Field()).Top, Field().height() / 2) << "the letters themselves";
  }
}

TEST_F(DataPath, ThatFitsIsShownAsItIs) {
  Store("Path of stored data", "l/records");
  Start();
  ClickTab(forms::tab::Setup);
  EXPECT_LT(FirstInkOf(Field()).Top, Field().height() / 2);
}

TEST_F(DataPath, IsToldWholeInTheTip) {
  const QString path = "/" + QString(300, 'a') + "/records";
  Store("Path of stored data", path);
  Start();
  ClickTab(forms::tab::Setup);

  const QString hint = "hint: use content of clipboard to get exact path";
  EXPECT_EQ(Field().toolTip(), hint + "\n" + path);
  Type(Member("Text1", 3), "/records");
  EXPECT_EQ(Field().toolTip(), hint + "\n/records");
  Type(Member("Text1", 3), "");
  EXPECT_EQ(Field().toolTip(), hint);
  EXPECT_EQ(Form().Text1[3].ToolTipText, "hint: use content of clipboard to get exact path");
}

}  // namespace
}  // namespace desktop
