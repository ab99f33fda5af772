#include <gtest/gtest.h>

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include "desktop/qt_settings_store.h"

namespace desktop {
namespace {

class CountedBoxes : public platform::Dialogs {
 public:
  platform::Answer Show(const platform::Message&) override {
    ++Count;
    return platform::Answer::Ok;
  }
  void ShowTimed(const platform::TimedMessage&) override { ++Count; }

  int Count = 0;
};

/// A store whose folder cannot be made, since a file stands in its place.
class UnwritableStore : public testing::Test {
  QTemporaryDir home_;

 protected:
  UnwritableStore() {
    const QString blocked = home_.filePath("blocked");
    QFile file(blocked);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, blocked);
  }
  void Change(const char* text) { store.Set("Vornik", "INI", "Base Frequency", text); }

  CountedBoxes boxes;
  QtSettingsStore store{boxes};
};

TEST_F(UnwritableStore, ShowsNoBoxOnTheWayOut) {
  Change("60");
  store.SyncQuietly();

  EXPECT_EQ(boxes.Count, 0);
  EXPECT_EQ(store.Get("Vornik", "INI", "Base Frequency", "50"), "60");
}

TEST_F(UnwritableStore, IsReportedOnceWhileTheProgramRuns) {
  Change("60");
  EXPECT_TRUE(QTest::qWaitFor([this] { return boxes.Count > 0; }, 8000));
  Change("50");
  QTest::qWait(50);

  EXPECT_EQ(boxes.Count, 1);
}

TEST_F(UnwritableStore, WaitsWithItsReportUntilTheBoxThatStandsIsGone) {
  Change("60");
  store.Hold();
  Change("50");
  QTest::qWait(50);
  EXPECT_EQ(boxes.Count, 0);

  store.Release();
  EXPECT_TRUE(QTest::qWaitFor([this] { return boxes.Count > 0; }, 8000));
}

TEST_F(UnwritableStore, IsWrittenOnTheWayOutAlsoBehindABox) {
  Change("60");
  store.Hold();
  store.SyncQuietly();
  store.Release();
  QTest::qWait(50);

  EXPECT_EQ(boxes.Count, 0);
}

}  // namespace
}  // namespace desktop
