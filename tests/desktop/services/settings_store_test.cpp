#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include "config/stored_settings.h"
#include "desktop/services/qt_settings_store.h"

namespace desktop {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class WrittenBoxes : public platform::Dialogs {
 public:
  platform::Answer Show(const platform::Message& message) override {
    Texts.push_back(message.Text);
    return platform::Answer::Ok;
  }
  void ShowTimed(const platform::TimedMessage& message) override { Texts.push_back(message.Text); }

  std::vector<std::string> Texts;
};

/// A store in a folder of its own, which a file in the place of its folder makes unwritable.
class SettingsStore : public testing::Test {
 protected:
  SettingsStore() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home_.path());
  }

  QString Folder() const { return home_.filePath("Vornik"); }
  QString FileName() const { return home_.filePath("Vornik/Vornik.conf"); }
  void Block() {
    QDir(Folder()).removeRecursively();
    EXPECT_TRUE(QFile(Folder()).open(QIODevice::WriteOnly));
  }
  void Unblock() { EXPECT_TRUE(QFile::remove(Folder())); }
  void Put(const QByteArray& text) {
    EXPECT_TRUE(QDir().mkpath(Folder()));
    QFile file(FileName());
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  QByteArray Held() const {
    QFile file(FileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  void Set(const char* key, const char* text) { store.Set("Vornik", "INI", key, text); }
  std::string Get(const char* key) { return store.Get("Vornik", "INI", key, "absent"); }
  /// What the exit tells of settings that it cannot write.
  std::string TellAtExit() {
    testing::internal::CaptureStderr();
    store.SyncQuietly();
    return testing::internal::GetCapturedStderr();
  }
  bool WaitForBoxes(std::size_t count) {
    return QTest::qWaitFor([&] { return boxes.Texts.size() >= count; }, 8000);
  }
  /// Lets the window be idle.
  static void Idle() { QTest::qWait(50); }

  QTemporaryDir home_;
  WrittenBoxes boxes;
  QtSettingsStore store{boxes};
};

TEST_F(SettingsStore, ShowsNoBoxOnTheWayOut) {
  Block();
  Set("Frequency", "60");

  EXPECT_EQ(TellAtExit(), "The settings can't be saved: " + FileName().toStdString() + "\n");
  EXPECT_THAT(boxes.Texts, IsEmpty());
  EXPECT_EQ(Get("Frequency"), "60");
}

TEST_F(SettingsStore, IsReportedOnceWhileItCannotBeWritten) {
  Block();
  Set("Frequency", "60");
  EXPECT_TRUE(WaitForBoxes(1));
  Set("Frequency", "50");
  Idle();

  EXPECT_THAT(boxes.Texts, testing::ElementsAre(HasSubstr("Vornik.conf")));
}

TEST_F(SettingsStore, ThatIsWrittenAgainIsNotComplainedOf) {
  Block();
  Set("Frequency", "60");
  ASSERT_TRUE(WaitForBoxes(1));
  Unblock();
  Set("Filterstring", "and vlan 7");
  Idle();

  EXPECT_THAT(Held(), testing::AllOf(HasSubstr("Frequency=60"), HasSubstr("and vlan 7")));
  EXPECT_EQ(TellAtExit(), "");
}

TEST_F(SettingsStore, IsReportedAnewAfterItCouldBeWrittenInBetween) {
  Block();
  Set("Frequency", "60");
  ASSERT_TRUE(WaitForBoxes(1));
  Unblock();
  Set("Frequency", "50");
  Idle();
  Block();
  Set("Frequency", "16.7");

  EXPECT_TRUE(WaitForBoxes(2));
}

TEST_F(SettingsStore, WaitsWithItsReportUntilTheBoxThatStandsIsGone) {
  Block();
  Set("Frequency", "60");
  store.Hold();
  Set("Frequency", "50");
  Idle();
  EXPECT_THAT(boxes.Texts, IsEmpty());

  store.Release();

  EXPECT_TRUE(WaitForBoxes(1));
}

TEST_F(SettingsStore, IsWrittenOnTheWayOutAlsoBehindABox) {
  Block();
  Set("Frequency", "60");
  store.Hold();
  EXPECT_THAT(TellAtExit(), HasSubstr("Vornik.conf"));

  store.Release();
  Idle();

  EXPECT_THAT(boxes.Texts, IsEmpty());
}

TEST_F(SettingsStore, OfADamagedFileIsWrittenWithoutAComplaint) {
  Put("[INI\nno equals sign\n\x01=%zz\n");
  ASSERT_EQ(Get("Frequency"), "absent");
  Set("Frequency", "60");
  Idle();

  EXPECT_THAT(Held(), HasSubstr("Frequency=60"));
  EXPECT_THAT(boxes.Texts, IsEmpty());
  EXPECT_EQ(TellAtExit(), "");
}

TEST_F(SettingsStore, OfAFileThatIsDamagedMeanwhileIsWrittenOnTheWayOutWithoutAComplaint) {
  Put("[INI]\nFrequency=50\n");
  ASSERT_EQ(Get("Frequency"), "50");
  Put("[INI\nno equals sign, and longer than before\n\x01=%zz\n");
  Set("Frequency", "60");

  // The first attempt reads the damage.
  EXPECT_EQ(TellAtExit(), "");

  EXPECT_THAT(Held(), HasSubstr("Frequency=60"));
}

TEST_F(SettingsStore, OfADamagedFileReportsARealFailure) {
  Put("[INI\nno equals sign\n");
  Get("Frequency");
  Block();
  Set("Frequency", "60");

  EXPECT_TRUE(WaitForBoxes(1));
  EXPECT_THAT(TellAtExit(), HasSubstr("Vornik.conf"));
}

TEST_F(SettingsStore, DoesNotWriteATextThatIsUnchanged) {
  Put("[INI]\nFrequency=60\n");
  ASSERT_EQ(Get("Frequency"), "60");
  Block();
  Set("Frequency", "60");
  Idle();

  // Nothing was tried, or it would have failed.
  EXPECT_THAT(boxes.Texts, IsEmpty());
}

TEST_F(SettingsStore, WritesATextThatIsNewOrChanged) {
  Put("[INI]\nFrequency=60\n");
  ASSERT_EQ(Get("Frequency"), "60");
  Set("Frequency", "50");
  Set("Internal Delay", "500");
  Idle();

  EXPECT_THAT(Held(), testing::AllOf(HasSubstr("Frequency=50"), HasSubstr("Delay=500")));
}

TEST_F(SettingsStore, BringsAllBackWhereItsFileWasRemoved) {
  Set("Frequency", "60");
  Idle();
  ASSERT_TRUE(QFile::remove(FileName()));
  Set("Filterstring", "and vlan 7");
  Idle();
  Set("Frequency", "60");
  Idle();

  EXPECT_THAT(Held(), testing::AllOf(HasSubstr("Frequency=60"), HasSubstr("and vlan 7")));
}

TEST_F(SettingsStore, TellsItsPlace) {
  EXPECT_EQ(store.Place("Vornik"), FileName().toStdString());
}

/// A program with settings of its own in memory, on the file that lies below a folder. Each gets
/// there by another path, since what shares a path in one process shares its memory too.
struct Instance {
  explicit Instance(const QString& folder) {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
    File.LoadSettings();
  }
  void Save() {
    File.SaveSettings();
    Store.SyncQuietly();
  }

  WrittenBoxes Boxes;
  QtSettingsStore Store{Boxes};
  platform::NumberText Numbers;
  config::Settings Settings;
  subroutines::StoredSettings File{Store, Numbers, Settings};
};

TEST(TwoInstances, OnOneFileKeepEachOthersChanges) {
  const QTemporaryDir home;
  const auto link = [&](const char* name) {
    QString path = home.filePath(name);
    EXPECT_TRUE(QFile::link(home.filePath("real"), path));
    return path;
  };
  ASSERT_TRUE(QDir(home.path()).mkdir("real"));
  Instance first(link("first"));
  first.Save();
  Instance second(link("second"));

  first.Settings.FilterString = "and vlan 7";
  first.Save();
  second.Settings.BaseFrequency = 16.7F;
  second.Save();

  const Instance third(link("third"));
  EXPECT_EQ(third.Settings.FilterString, "and vlan 7");
  EXPECT_EQ(third.Settings.BaseFrequency, 16.7F);
  EXPECT_EQ(second.Settings.FilterString, "");
}

TEST(TwoInstances, OnOneFileLeaveItToTheLastChangeOfAKey) {
  const QTemporaryDir home;
  ASSERT_TRUE(QDir(home.path()).mkdir("real"));
  ASSERT_TRUE(QFile::link(home.filePath("real"), home.filePath("other")));
  Instance first(home.filePath("real"));
  first.Save();
  Instance second(home.filePath("other"));

  first.Settings.FilterString = "and vlan 7";
  first.Save();
  second.Settings.FilterString = "and vlan 12";
  second.Save();

  EXPECT_TRUE(QFile::link(home.filePath("real"), home.filePath("third")));
  EXPECT_EQ(Instance(home.filePath("third")).Settings.FilterString, "and vlan 12");
}

}  // namespace
}  // namespace desktop
