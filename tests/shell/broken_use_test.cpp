// What no merging unit sends, in the hands of a user: the real writers with what reads a recording
// back, the real report, and the real finder.

#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <string>

#include "support/broken_bus.h"
#include "support/scene.h"

namespace {

using support::BrokenBus;
using support::BrokenFrame;
using support::Scene;
using support::SceneEnded;
using support::SineFrame;
using ::testing::HasSubstr;
using ::testing::SizeIs;
using std::chrono_literals::operator""ms;
using Kind = BrokenFrame (BrokenBus::*)();

class BrokenUse : public ::testing::TestWithParam<Kind> {
 protected:
  BrokenFrame Broken() { return (bus_.*GetParam())(); }
  void ReceiveBroken(Scene& scene) {
    const BrokenFrame frame = Broken();
    scene.Capture.ReceiveCut(frame.Bytes, frame.Length);
  }
  /// A recording of 4000 sound frames and more with broken ones between them, from RUN to STOP.
  void Record(Scene& scene, std::size_t format) {
    scene.Start();
    scene.Select(forms::tab::Recorder);
    scene.Calendar.Present = {2024, 3, 9, 14, 5, 7};
    scene.Main.Option2[format].Value = true;
    scene.Main.CWButton3.Value = true;
    scene.Receive(SineFrame(0, 1, 1));
    for (int i = 0; i < 4400; ++i) {
      scene.Receive(SineFrame(i, 1, 1));
      if (i % 4 == 0) ReceiveBroken(scene);
    }
    EXPECT_TRUE(scene.Main.CWButton3.Visible);
    scene.Main.CWButton3.Value = false;
    for (const platform::Message& box : scene.Dialogs.Shown) {
      EXPECT_NE(box.BoxIcon, platform::Icon::Critical) << box.Text;
    }
    EXPECT_FALSE(scene.Capture.Running);
  }
  static std::string Content(const Scene& scene, const std::string& extension) {
    return scene.Files.Stored.at("c:\\StoredData\\SV record 09.03.2024 14-05-07" + extension);
  }

  support::Dice dice_{61850};
  BrokenBus bus_{dice_};
};

TEST_P(BrokenUse, LeavesWholeLinesInATextRecording) {
  Scene scene;
  Record(scene, forms::record_format::Text);
  const std::string text = Content(scene, ".txt");
  ASSERT_TRUE(text.ends_with("\r\n"));
  int lines = 0;
  for (std::size_t at = 0; at < text.size(); ++lines) {
    const std::size_t end = text.find("\r\n", at);
    const std::string line = text.substr(at, end - at);
    ASSERT_EQ(std::count(line.begin(), line.end(), ';'), 9) << line;
    ASSERT_EQ(line.substr(0, line.find(';')), std::to_string(lines));
    at = end + 2;
  }
  EXPECT_EQ(lines, 4000);
}

TEST_P(BrokenUse, LeavesWholeRowsInAWorksheet) {
  Scene scene;
  Record(scene, forms::record_format::Worksheet);
  const std::string sheet = Content(scene, ".xls");
  // 4000 rows of nine cells stand in front of the end mark.
  EXPECT_GE(sheet.size(), 4000U * 9 * 19);
  EXPECT_EQ(sheet.substr(sheet.size() - 4), std::string("\x0A\0\0\0", 4));
}

TEST_P(BrokenUse, LeavesWholeSamplesInAComtradeRecording) {
  Scene scene;
  Record(scene, forms::record_format::Comtrade);
  const std::string data = Content(scene, ".dat");
  EXPECT_EQ(std::count(data.begin(), data.end(), '\n'), 4000);
  EXPECT_EQ(std::count(data.begin(), data.end(), ','), 4000 * 9);
}

TEST_P(BrokenUse, GivesAReportOrTheBoxOfAFrameThatIsTooLong) {
  int reports = 0;
  for (int i = 0; i < 50; ++i) {
    Scene scene;
    scene.Start();
    scene.Select(forms::tab::Report);
    scene.Main.Command2.Value = true;
    const support::FrameBytes first = SineFrame(0, 1, 1);
    scene.Receive(first);
    const BrokenFrame frame = Broken();
    try {
      scene.Capture.ReceiveCut(frame.Bytes, frame.Length);
      ASSERT_LE(frame.Length, first.size());
      EXPECT_TRUE(scene.Main.Command2.Visible);
      EXPECT_TRUE(scene.Main.Command4.Enabled);
      EXPECT_THAT(scene.Main.Label8[13].Caption.Get(), ::testing::StartsWith("00: "));
      EXPECT_THAT(scene.Dialogs.Shown, SizeIs(0));
      ++reports;
    } catch (const SceneEnded&) {
      EXPECT_GT(frame.Length, first.size());
      EXPECT_THAT(scene.LastBox().Text, HasSubstr("Subscript out of range"));
    }
    EXPECT_FALSE(scene.Capture.Running);
  }
  // Nearly all frames with noise behind their end are longer than the first one.
  if (GetParam() != &BrokenBus::Overlong) {
    EXPECT_GT(reports, 0);
  }
}

TEST_P(BrokenUse, ListsEachSenderOfTheFinderOnce) {
  Scene scene;
  scene.Start();
  scene.Select(forms::tab::Setup);
  forms::IDlook& look = scene.App.Windows.IDlook;
  std::multiset<std::string> listed;
  look.Window.ShowModal = [&] {
    scene.Elapse(100ms);
    if (scene.State.PacketLengthPending) scene.Receive(SineFrame(0, 1, 1));
    for (int i = 0; i < 200; ++i) {
      ReceiveBroken(scene);
      scene.Receive(SineFrame(i, 1, 1));
      scene.Elapse(600ms);
    }
    for (const platform::CheckItem& item : look.List1.Items.Get()) listed.insert(item.Text);
    look.Window.Unload();
  };
  scene.Main.Command7.Click();
  EXPECT_EQ(listed.count("MU01"), 1U);
  for (const std::string& id : listed) EXPECT_EQ(listed.count(id), 1U) << id;
  EXPECT_FALSE(scene.State.LookingForID);
  EXPECT_FALSE(scene.Capture.Running);
}

std::string NameOf(const ::testing::TestParamInfo<Kind>& info) {
  static const char* const names[] = {"Cut", "Overlong", "Flipped", "Random"};
  return names[info.index];
}

INSTANTIATE_TEST_SUITE_P(Frames, BrokenUse,
                         ::testing::Values(&BrokenBus::Cut, &BrokenBus::Overlong,
                                           &BrokenBus::Flipped, &BrokenBus::Random),
                         NameOf);

}  // namespace
