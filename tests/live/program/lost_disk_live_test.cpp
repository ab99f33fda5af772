// A recording onto a file system of its own, which is lost while the recording runs: it becomes
// read-only, or is pulled out.

#include <QDir>
#include <string>

#include "live/wire.h"
#include "window_scene.h"

namespace desktop {
namespace {

class LostDisk : public WindowScene {
 protected:
  void SetUp() override {
    const std::string reason = live::WhyNoWire();
    if (!reason.empty()) GTEST_SKIP() << reason;
    QDir().mkpath(Folder());
    const std::string refused = live::Run("mount -t tmpfs tmpfs " + Folder().toStdString());
    if (!refused.empty()) GTEST_SKIP() << refused;
    mounted_ = true;
    Start();
    GoMeasure();
    ClickTab(forms::tab::Recorder);
  }
  void TearDown() override {
    program_.reset();
    if (mounted_) live::Run("umount " + Folder().toStdString());
  }

  QString Folder() const { return home_.filePath("StoredData"); }
  const std::string& Line() { return Form().NotStored.Caption; }
  /// Records both streams in a format until a ring of each is on disk.
  void Record(const char* format) {
    Click(format);
    Click("CWButton3");
    ASSERT_TRUE(WaitFor([this] {
      return !Form().OnDisk[0].Caption.Get().empty() && !Form().OnDisk[1].Caption.Get().empty();
    }));
  }
  /// Between two rings no text file is open.
  bool BecomesReadOnly() {
    return WaitFor(
        [this] { return live::Run("mount -o remount,ro " + Folder().toStdString()).empty(); });
  }
  void Stop() {
    Click("CWButton3");
    EXPECT_TRUE(WaitFor([this] { return Form().Option2[0].Enabled.Get(); }));
    EXPECT_FALSE(Form().CWButton3.Value);
    EXPECT_FALSE(exitCode_.has_value());
  }

  bool mounted_ = false;
};

TEST_F(LostDisk, ThatBecameReadOnlyLeavesTheProgramRunning) {
  Record("Option2(0)");
  ASSERT_TRUE(BecomesReadOnly());
  Stop();
  EXPECT_NE(Line().find("Log and quick view are left out: Permission denied."), std::string::npos)
      << Line();
  ClickTab(forms::tab::Values);
  EXPECT_EQ(Form().TabStrip1.SelectedTab, forms::tab::Values);
}

TEST_F(LostDisk, ThatIsPulledOutIsToldForAWorksheet) {
  Record("Option2(1)");
  EXPECT_EQ(Line(), "");
  ASSERT_EQ(live::Run("umount -l " + Folder().toStdString()), "");
  mounted_ = false;
  EXPECT_TRUE(WaitFor([this] {
    return Line().find("stream 1: not stored since ") != std::string::npos &&
           Line().find("stream 2: not stored since ") != std::string::npos;
  }));
  EXPECT_NE(Line().find(": File not found; "), std::string::npos) << Line();
  EXPECT_EQ(Form().OnDisk[0].Caption, "");
}

}  // namespace
}  // namespace desktop
