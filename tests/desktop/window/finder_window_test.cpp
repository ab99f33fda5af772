#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include "desktop/widgets/message_dialog.h"
#include "window_scene.h"

namespace desktop {
namespace {

/// The stream finder in the window, on the two stations of the simulated bus.
class FinderWindow : public WindowScene {
 protected:
  void GoSetup() {
    Store("Internal Delay", "0");
    Start();
    ClickTab(forms::tab::Setup);
  }
  /// Opens the finder and works in it once it lists as many senders.
  void Search(int senders, std::function<void(QDialog&, QListWidget&)> work) {
    OnDialog([senders, work = std::move(work)](QDialog& dialog) {
      auto* list = dialog.findChild<QListWidget*>("IDlook.List1");
      EXPECT_TRUE(WaitFor([&] { return list->count() >= senders; }));
      work(dialog, *list);
      dialog.reject();
    });
    Click("Command7");
  }
};

TEST_F(FinderWindow, ShowsItsTextsInItsColour) {
  GoSetup();
  Search(0, [](QDialog& dialog, QListWidget& list) {
    EXPECT_EQ(dialog.windowTitle(), "Find streams");
    EXPECT_EQ(list.toolTip(), "List of all senders still found sending");
    const auto says = [&dialog](const char* label, const char* text) {
      return WaitFor([&] { return dialog.findChild<QLabel*>(label)->text() == text; });
    };
    EXPECT_TRUE(
        says("IDlook.Label1", "Wait until as minimum one stream is found. Mark it as relevant."));
    EXPECT_TRUE(says("IDlook.FrameCount", "No frame was looked at yet."));
    EXPECT_EQ(dialog.findChild<QPushButton*>("IDlook.Command1")->text(), "&OK");
    const QImage picture = dialog.grab().toImage();
    EXPECT_EQ(picture.pixelColor(4, picture.height() - 4), QColor(147, 201, 254));
  });
}

TEST_F(FinderWindow, IsUsedByKeysAloneWhileItsListGrows) {
  GoSetup();
  QString checked;
  Search(1, [&](QDialog& dialog, QListWidget& list) {
    EXPECT_EQ(QApplication::focusWidget(), &list);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(list.currentRow(), 0);
    checked = list.item(0)->text();
    EXPECT_TRUE(WaitFor([&] { return list.count() == 2; }));
    // The one that came in has not moved the user.
    EXPECT_EQ(list.currentRow(), 0);
    EXPECT_EQ(list.item(0)->checkState(), Qt::Checked);
    EXPECT_EQ(list.item(1)->checkState(), Qt::Unchecked);
    EXPECT_EQ(QApplication::focusWidget(), &list);
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_TRUE(checked.startsWith("VORNIK-SIM-")) << checked.toStdString();
  EXPECT_EQ(Find<QLineEdit>(Member("Text1", 12)).text(), checked);
  EXPECT_EQ(Find<QLineEdit>(Member("Text1", 14)).text(), "");
  EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);
}

TEST_F(FinderWindow, TakesBothStationsByTheMouse) {
  GoSetup();
  Search(2, [](QDialog&, QListWidget& list) {
    for (int row = 0; row < 2; ++row) list.item(row)->setCheckState(Qt::Checked);
  });
  const QStringList fields{Find<QLineEdit>(Member("Text1", 12)).text(),
                           Find<QLineEdit>(Member("Text1", 14)).text()};
  EXPECT_EQ(QSet<QString>(fields.begin(), fields.end()),
            QSet<QString>({"VORNIK-SIM-1", "VORNIK-SIM-2"}));
}

TEST_F(FinderWindow, RefusesAThirdCheckWithABoxOnTopOfIt) {
  GoSetup();
  Search(0, [this](QDialog& dialog, QListWidget& list) {
    Program().Windows.IDlook.List1.Items =
        std::vector<platform::CheckItem>{{"A", true}, {"B", true}, {"C", false}};
    QString title;
    const QWidget* owner = nullptr;
    QTimer::singleShot(200, &dialog, [&] {
      auto* box = qobject_cast<MessageDialog*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      title = box->windowTitle();
      owner = box->parentWidget();
      box->accept();
    });
    list.setCurrentRow(2);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(title, "Attention");
    EXPECT_EQ(owner, &dialog);
    EXPECT_EQ(list.item(2)->checkState(), Qt::Unchecked);
    EXPECT_EQ(list.item(1)->checkState(), Qt::Checked);
  });
}

TEST_F(FinderWindow, DoesNotHoldUpTheEndOfTheSession) {
  GoSetup();
  Search(1, [this](QDialog& dialog, QListWidget&) {
    program_->EndSession();
    // The process would be gone by now; here its dialog has to be taken down by hand.
    dialog.done(QDialog::Rejected);
  });
  EXPECT_EQ(exitCode_, 0);
  EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);
  EXPECT_FALSE(Program().Acquisition.State.LookingForID);
}

}  // namespace
}  // namespace desktop
