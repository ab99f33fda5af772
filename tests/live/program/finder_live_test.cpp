// The stream finder on a virtual wire.

#include <QElapsedTimer>
#include <QPushButton>
#include <iostream>
#include <optional>
#include <string>
#include <utility>

#include "live/program/finder_scene.h"
#include "live/publisher.h"

namespace desktop {
namespace {

using live::Publisher;

class FinderOnTheWire : public FinderScene {
 protected:
  /// A slow sender may stay unmet for a long time.
  static constexpr int PatienceOfASearch = 80'000;

  /// Closes the box that comes on top of the finder and waits until the finder has gone with it.
  /// Gives the words of the box.
  static QString CloseBoxOver(const QDialog& finder) {
    QString words;
    QTimer look;
    look.callOnTimeout([&] {
      auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (box == nullptr || box == &finder) return;
      look.stop();
      EXPECT_TRUE(finder.isVisible());
      for (const QLabel* label : box->findChildren<QLabel*>()) words += label->text();
      box->reject();
    });
    look.start(20);
    EXPECT_TRUE(WaitFor([&] { return !finder.isVisible(); }));
    return words;
  }
};

TEST_F(FinderOnTheWire, ListsSevenSendersAndRunShowsTheFirstOneChecked) {
  const Publisher six(
      "--duration 115 --shuffled --stream id=FEEDER-10,currents=400:410:420:2 "
      "--stream id=BAY-2,tag=4:0,rate=2000,currents=150:151:152:1 --stream id=bay-2,rate=1000 "
      "--stream id=MU04,rate=1000 --stream id=T1,rate=800 "
      "--stream id=STATION-OF-A-LONG-NAME,tag=4:7,rate=1000");
  const QStringList sixIds{"BAY-2", "FEEDER-10", "MU04", "STATION-OF-A-LONG-NAME", "T1", "bay-2"};
  // Two senders that come later. One's ID is part of another, the other one's frames are longer
  // than any that was there when the finder began.
  std::optional<Publisher> late;
  const QStringList part{"EEDER-1"};
  const char* lateArguments =
      "--duration 110 --shuffled --stream id=EEDER-1,rate=2000 "
      "--stream id=STATION-OF-A-NAME-LONGER-STILL,tag=4:7";
  WaitForFrames();

  bool heldUp = false;
  QStringList listed;
  QStringList checked;
  QElapsedTimer search;
  search.start();
  Search([&](QDialog& finder) {
    QListWidget& list = ListOf(finder);
    const auto* count = finder.findChild<QLabel*>("IDlook.FrameCount");
    const auto tooLong = [count] { return count->text().contains("left out"); };
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return tooLong() || WereLookedAt(sixIds); }, PatienceOfASearch));
    heldUp = tooLong();
    if (heldUp) return;
    late.emplace(lateArguments);
    EXPECT_TRUE(WaitFor([&] { return WereLookedAt(part); }));
    std::cout << "Seven senders were met in " << static_cast<double>(search.elapsed()) / 1000
              << " s, by " << lookedAt_.size() << " frames.\n";
    const auto isTold = [&] {
      return count->text().startsWith(QString::number(lookedAt_.size()) + " frames were") &&
             count->text().endsWith("RUN on a view measures the length anew.");
    };
    EXPECT_TRUE(QTest::qWaitFor(isTold, PatienceMs * 3)) << count->text().toStdString();
    listed = Texts(list);
    EXPECT_EQ(Told(listed), Told(Expected()));
    Check(list, "BAY-2");
    Check(list, "FEEDER-10");
    for (const QString& id : listed) {
      if (id == "BAY-2" || id == "FEEDER-10") checked << id;
    }
    QTest::mouseClick(finder.findChild<QPushButton*>("IDlook.Command1"), Qt::LeftButton);
    EXPECT_FALSE(finder.isVisible());
  });
  if (heldUp) GTEST_SKIP() << "this machine held the senders up while the length was measured";

  listed.sort();
  EXPECT_EQ(Told(listed), Told(sixIds));
  ASSERT_EQ(checked.size(), 2);
  EXPECT_EQ(Field(12), checked[0]);
  EXPECT_EQ(Field(14), checked[1]);
  for (const int view : {0, 2, 4}) {
    EXPECT_EQ(Station(view), checked[0]);
    EXPECT_EQ(Station(view + 1), checked[1]);
  }

  ClickTab(forms::tab::Values);
  Run();
  const bool feederFirst = checked[0] == "FEEDER-10";
  EXPECT_TRUE(WaitForNumber(0, feederFirst ? 400 : 150)) << Number(0);
  EXPECT_TRUE(WaitForNumber(1, feederFirst ? 410 : 151)) << Number(1);
}

TEST_F(FinderOnTheWire, IsClosedByTheDialogWhereNobodySends) {
  QString words;
  Search([&](QDialog& finder) { words = CloseBoxOver(finder); });

  EXPECT_TRUE(words.contains("No data received!")) << words.toStdString();
  EXPECT_TRUE(words.contains("- run 'Find streams' on tab 'Setup'")) << words.toStdString();
  EXPECT_TRUE(lookedAt_.isEmpty());
  EXPECT_EQ(Field(12), "");
  EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);
  EXPECT_FALSE(Program().Acquisition.State.LookingForID);
  EXPECT_TRUE(Program().Config.Settings.SetupDone);
}

TEST_F(FinderOnTheWire, KeepsWhatIsCheckedWhenTheBusFallsSilent) {
  std::optional<Publisher> bus(std::in_place, "--duration 60 --stream id=MU-A");
  WaitForFrames();
  QString words;
  Search([&](QDialog& finder) {
    QListWidget& list = ListOf(finder);
    EXPECT_TRUE(WaitFor([&] { return list.count() == 1; }));
    Check(list, "MU-A");
    bus.reset();
    words = CloseBoxOver(finder);
  });

  EXPECT_TRUE(words.contains("No data received!")) << words.toStdString();
  EXPECT_EQ(Field(12), "MU-A");
  EXPECT_EQ(Field(14), "");
  // A lone stream stands in both choices of a view.
  for (int choice = 0; choice < 6; ++choice) EXPECT_EQ(Station(choice), "MU-A") << choice;
  EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);
}

}  // namespace
}  // namespace desktop
