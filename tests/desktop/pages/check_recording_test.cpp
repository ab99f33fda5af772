#include <QDir>
#include <QFile>

#include "window_scene.h"

namespace desktop {
namespace {

/// A recording that has no log, checked in the window.
class CheckRecording : public WindowScene {
 protected:
  CheckRecording() {
    QDir(home_.path()).mkdir("data");
    Store("Path of stored data", folder_.path());
  }
  void Put(const QString& name, int samples) {
    QFile file(folder_.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (int i = 0; i < samples; ++i) {
      file.write(QStringLiteral("%1;%2;1;1;1;1;1;1;1;1\r\n").arg(i).arg(i % 4000).toUtf8());
    }
  }
  QString Line() { return Find<QLabel>("CheckLine").text(); }

  const QDir folder_{home_.filePath("data")};
};

TEST_F(CheckRecording, IsOfferedOnlyWhereThereIsOne) {
  Start();
  ClickTab(forms::tab::Recorder);
  EXPECT_FALSE(Find<QWidget>("CheckRecording").isVisible());
  EXPECT_FALSE(Find<QWidget>("CheckLine").isVisible());
}

TEST_F(CheckRecording, IsDoneByItsKeyAndByTheButton) {
  Put("1_SV record 09.03.2024 14-05-07.txt", 8000);
  Put("2_SV record 09.03.2024 14-05-07.txt", 4000);
  Put("SV record 08.03.2024 14-05-07.txt", 4000);
  Start();
  ClickTab(forms::tab::Recorder);
  auto& button = Find<QAbstractButton>("CheckRecording");
  ASSERT_TRUE(button.isVisible());
  EXPECT_TRUE(WaitFor([this] { return Line().contains("2_SV record 09.03.2024 14-05-07.txt"); }));
  // The first layout of a page is over.
  QTest::qWait(100);
  const QRect place = Find<QWidget>("CWGraph2").geometry();

  QTest::keyClick(&program_->Window(), Qt::Key_C, Qt::AltModifier);

  EXPECT_TRUE(WaitFor([this] {
    return Line() == "2 files checked: 0 and 0 samples lost. Logs are in the data folder.";
  }));
  EXPECT_TRUE(QFile::exists(folder_.filePath("Checklog 1_SV record 09.03.2024 14-05-07.txt")));
  EXPECT_TRUE(QFile::exists(folder_.filePath("Checklog 2_SV record 09.03.2024 14-05-07.txt")));
  EXPECT_EQ(button.text(), "Open &check log");
  EXPECT_EQ(Find<QWidget>("CWGraph2").geometry(), place) << "nothing else moves";

  ClickTab(forms::tab::Values);
  ClickTab(forms::tab::Recorder);
  EXPECT_TRUE(WaitFor([this] { return Line().startsWith("SV record 08.03.2024"); }));
  Click("CheckRecording");
  EXPECT_TRUE(WaitFor([this] { return Line().startsWith("1 file checked: 0 samples lost."); }));
  EXPECT_FALSE(Find<QWidget>("ProgressBar1").isVisible());
}

}  // namespace
}  // namespace desktop
