// A recording onto a file system of two megabytes, which the scene mounts for itself.

#include <sys/statvfs.h>

#include <QDialog>
#include <QDir>
#include <QFile>
#include <string>

#include "desktop/widgets/run_button.h"
#include "live/wire.h"
#include "window_scene.h"

namespace desktop {
namespace {

class FullDisk : public WindowScene {
 protected:
  static constexpr int FillMs = 30'000;

  void SetUp() override {
    const std::string reason = live::WhyNoWire();
    if (!reason.empty()) GTEST_SKIP() << reason;
    QDir().mkpath(Folder());
    const std::string refused =
        live::Run("mount -t tmpfs -o size=2m tmpfs " + Folder().toStdString());
    if (!refused.empty()) GTEST_SKIP() << refused;
    mounted_ = true;
    // There is room for two rings and a part of the third.
    QFile other(Folder() + "/other");
    ASSERT_TRUE(other.open(QFile::WriteOnly));
    other.write(QByteArray(1'300'000, 'x'));
    other.close();
    Start();
    ClickTab(forms::tab::Setup);
    Type(Member("Text1", 12), "VORNIK-SIM-1");
    ClickTab(forms::tab::Recorder);
  }
  void TearDown() override {
    program_.reset();
    if (mounted_) live::Run("umount " + Folder().toStdString());
  }

  QString Folder() const { return home_.filePath("StoredData"); }
  QString Place(const QString& extension = {}) {
    QString name = QString::fromStdString(Program().Acquisition.State.RecordFileName);
    if (!extension.isEmpty()) name = name.chopped(4) + extension;
    return Folder() + "/" + name;
  }
  QByteArray Bytes(const QString& place) {
    QFile file(place);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << place.toStdString();
    return file.readAll();
  }
  bool NothingIsFree() const {
    struct statvfs system {};
    return statvfs(Folder().toUtf8().constData(), &system) == 0 && system.f_bfree == 0;
  }
  RunButton& Button() { return Find<RunButton>("CWButton3"); }

  /// Records until the box comes, and looks at the program while it stands.
  void RecordUntilFull(std::size_t format) {
    Click(Member("Option2", static_cast<int>(format)));
    Click("CWButton3");
    OnDialog([this](QDialog& dialog) {
      box_ = dialog.property("text").toString();
      title_ = dialog.windowTitle();
      EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);
      EXPECT_FALSE(Program().Acquisition.State.LookingForRecording);
      EXPECT_FALSE(Form().Timer1.Enabled);
      EXPECT_TRUE(Button().Position()) << "the stop comes behind the box";
      OnDialog([this](QDialog& another) {
        further_ = another.property("text").toString();
        another.reject();
      });
      dialog.reject();
    });
    ASSERT_TRUE(QTest::qWaitFor([this] { return !box_.isEmpty(); }, FillMs));
    ASSERT_TRUE(WaitFor([this] { return Form().Option2[0].Enabled.Get(); }));
  }
  void ExpectStoppedWithTheBox() {
    EXPECT_EQ(title_, "Attention");
    EXPECT_EQ(box_,
              "Disk full.\nPlease check the disk path, if you can free some disk space.\n"
              "Recording ist stopped.");
    EXPECT_EQ(further_, "") << "a second box";
    EXPECT_TRUE(NothingIsFree());
    EXPECT_FALSE(Button().Position());
    EXPECT_TRUE(Button().isEnabled());
    EXPECT_TRUE(Button().isVisible());
    EXPECT_FALSE(Program().Acquisition.State.CaptureRunning);
  }
  /// The lines up to the one that the disk had no room for; each begins with its number.
  qsizetype WholeLines(const QByteArray& bytes, char separator) {
    const QList<QByteArray> lines = bytes.split('\n');
    for (qsizetype k = 0; k + 1 < lines.size(); ++k) {
      EXPECT_TRUE(lines[k].endsWith('\r')) << k;
      EXPECT_EQ(lines[k].count(separator), 9) << k;
    }
    return lines.size() - 1;
  }
  /// The rings that the page told before the disk was full.
  qsizetype RingsTold() {
    const QString words = QString::fromStdString(Form().OnDisk[0].Caption);
    return words.section(' ', 2, 2).toLongLong();
  }

  bool mounted_ = false;
  QString title_;
  QString box_;
  QString further_;
};

constexpr qsizetype Ring = 4000;

TEST_F(FullDisk, StopsATextRecordingWithABoxAndKeepsWhatReachedTheDisk) {
  ASSERT_NO_FATAL_FAILURE(RecordUntilFull(forms::record_format::Text));
  ExpectStoppedWithTheBox();
  const QByteArray bytes = Bytes(Place());
  const qsizetype lines = WholeLines(bytes, ';');
  EXPECT_GE(RingsTold(), 2);
  EXPECT_GE(lines, RingsTold() * Ring);
  EXPECT_LT(lines, (RingsTold() + 1) * Ring);
  for (qsizetype k = 0; k < lines; k += 1000) {
    EXPECT_TRUE(bytes.contains("\n" + QByteArray::number(k) + ";") || k == 0) << k;
  }
  // There is no room for a log either, and nothing says so.
  EXPECT_EQ(Bytes(Folder() + "/Errorlog " + QFileInfo(Place()).fileName()), "");
  EXPECT_TRUE(Find<QWidget>("Command9").isVisible());
}

TEST_F(FullDisk, StopsAComtradeRecordingWithABoxAndEndsItsConfiguration) {
  ASSERT_NO_FATAL_FAILURE(RecordUntilFull(forms::record_format::Comtrade));
  ExpectStoppedWithTheBox();
  const qsizetype lines = WholeLines(Bytes(Place()), ',');
  EXPECT_GE(RingsTold(), 2);
  EXPECT_GE(lines, RingsTold() * Ring);
  EXPECT_LT(lines, (RingsTold() + 1) * Ring);
  const QByteArray configuration = Bytes(Place(".cfg"));
  EXPECT_EQ(configuration.count("\r\n"), 17) << configuration.toStdString();
  EXPECT_TRUE(configuration.endsWith("ASCII\r\n1000\r\n"));
  EXPECT_FALSE(Find<QWidget>("Command9").isVisible());
}

TEST_F(FullDisk, RecordsAgainWhenThereIsRoom) {
  ASSERT_NO_FATAL_FAILURE(RecordUntilFull(forms::record_format::Text));
  const QString full = Place();
  for (const QString& name : QDir(Folder()).entryList(QDir::Files))
    QFile::remove(Folder() + "/" + name);
  ASSERT_TRUE(WaitFor([this] { return !NothingIsFree(); }));
  QTest::qWait(1000);
  Click("CWButton3");
  ASSERT_TRUE(WaitFor([this] { return Button().isVisible() && Button().Position(); }));
  Click("CWButton3");
  EXPECT_NE(Place(), full);
  EXPECT_EQ(WholeLines(Bytes(Place()), ';') % Ring, 0);
  EXPECT_EQ(Bytes(Place()).left(2), "0;");
}

}  // namespace
}  // namespace desktop
