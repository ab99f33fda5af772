#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "adapters/capture_file.h"
#include "desktop/widgets/quiet_line.h"
#include "support/scene.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// A user who drags files from elsewhere to the window.
class FileDrops : public WindowScene {
 protected:
  QString File(const char* name) { return home_.filePath(name); }
  /// Writes a tenth of a second of a station MU01 to a file.
  QString Bay() {
    adapter_tests::PcapFile file;
    for (int i = 0; i < 400; ++i) {
      const auto frame = support::SineFrame(i, 100, 10);
      file.Add(0, static_cast<std::uint32_t>(i) * 250, {frame.begin(), frame.end()});
    }
    file.Save(File("bay.pcap").toStdString());
    return File("bay.pcap");
  }

  /// Drags to a widget and lets go there. False where it does not take what is dragged.
  static bool Drop(QWidget& target, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    const QPoint middle = target.rect().center();
    QDragEnterEvent enter(middle, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted()) return false;
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
    QDropEvent drop(middle, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&target, &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    return drop.isAccepted();
  }
  bool DropOnWindow(const QString& file) {
    return Drop(program_->Window(), {QUrl::fromLocalFile(file)});
  }
  QString Chosen() { return Find<QComboBox>("Combo1").currentText(); }
};

TEST_F(FileDrops, PlayWhatIsDropped) {
  const QString bay = Bay();
  Start();
  ASSERT_TRUE(DropOnWindow(bay));
  ASSERT_TRUE(WaitFor([this] { return Chosen().startsWith("bay.pcap"); }));
  Type(Member("Text1", 12), "MU01");
  ClickTab(forms::tab::Values);
  Click("CWButton4");
  EXPECT_TRUE(WaitFor([this] { return Reading(0).startsWith("100."); }))
      << Reading(0).toStdString();
  EXPECT_TRUE(QFile::exists(bay));
  EXPECT_FALSE(Stored("Name of used Networkadapter").contains("bay"));

  program_.reset();
  Start();
  EXPECT_EQ(Find<QComboBox>("Combo1").findText("bay", Qt::MatchContains), -1);
}

TEST_F(FileDrops, AreTakenAlsoOnAFieldThatWouldWriteThemDown) {
  const QString bay = Bay();
  Start();
  ClickTab(forms::tab::Setup);
  auto& field = Find<QLineEdit>(Member("Text1", 12));
  const QString before = field.text();
  ASSERT_TRUE(Drop(field, {QUrl::fromLocalFile(bay)}));
  ASSERT_TRUE(WaitFor([this] { return Chosen().startsWith("bay.pcap"); }));
  EXPECT_EQ(field.text(), before);
}

TEST_F(FileDrops, SayWhatIsWrongWithThem) {
  Start();
  ClickTab(forms::tab::Values);
  auto& line = Find<QuietLine>(Member("QuietLine", 0));
  ASSERT_TRUE(DropOnWindow(home_.path()));
  EXPECT_TRUE(WaitFor([&] { return line.text().contains("is a folder"); }));
  ASSERT_TRUE(Drop(program_->Window(), {QUrl("https://example.org/bay.pcap")}));
  EXPECT_TRUE(WaitFor([&] { return line.text().contains("no file of this computer"); }));
  ASSERT_TRUE(
      Drop(program_->Window(), {QUrl::fromLocalFile(File("a")), QUrl::fromLocalFile(File("b"))}));
  EXPECT_TRUE(WaitFor([&] { return line.text().contains("one capture file at a time"); }));
  EXPECT_TRUE(Chosen().startsWith("Simulated"));
}

TEST_F(FileDrops, AreNotTakenBehindADialog) {
  const QString bay = Bay();
  Start();
  bool taken = true;
  OnDialog([&](QDialog& dialog) {
    taken = DropOnWindow(bay);
    dialog.close();
  });
  ClickTab(forms::tab::Setup);
  Click("Command7");
  EXPECT_FALSE(taken);
}

TEST_F(FileDrops, LeaveTextToTheFields) {
  Start();
  ClickTab(forms::tab::Setup);
  QMimeData data;
  data.setText("MU7");
  auto& field = Find<QLineEdit>(Member("Text1", 12));
  QDragEnterEvent enter(field.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(&field, &enter);
  QDropEvent drop(field.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(&field, &drop);
  EXPECT_TRUE(field.text().contains("MU7"));
}

}  // namespace
}  // namespace desktop
