#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "adapters/system_capture_layer.h"
#include "platform/loop/loop.h"
#include "platform/loop/waiting_queue.h"
#include "shell/application.h"
#include "support/fake_platform.h"
#include "support/real_files.h"
#include "system/calendar.h"
#include "system/computer_files.h"

namespace host {
namespace {

using namespace std::chrono_literals;

/// The whole program without a window: no toolkit, no screen, no printer, and time that passes as
/// fast as the program waits.
class ProgramWithoutAWindow : public testing::Test {
 protected:
  static constexpr std::int16_t ValuesTab = 2;
  static constexpr std::int16_t RecorderTab = 5;

  ProgramWithoutAWindow() { store_.Texts["Path of stored data"] = folder_.Path(); }

  void RunFor(std::chrono::milliseconds time) {
    bool over = false;
    platform::QueueAlarm end(queue_);
    end.Rings = [&] { over = true; };
    end.Set(time);
    queue_.RunUntil([&] { return over; });
  }
  /// What a user does comes in as it does from a window.
  void Do(const std::function<void()>& action) { guard_(action); }
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  support::TemporaryFolder folder_;
  support::Journal journal_;
  support::ManualClock clock_;
  support::FakeDialogs dialogs_{journal_};
  std::optional<int> exitCode_;
  platform::RunningProgram program_{[this] { app_.CloseFiles(); },
                                    [this](int code) { exitCode_ = code; }};
  platform::Guard guard_{dialogs_, program_};
  platform::WaitingQueue queue_{clock_, guard_,
                                [this](std::chrono::nanoseconds time) { clock_.Advance(time); }};
  platform::QueueAlarm forTimers_{queue_};
  platform::QueueAlarm forFrames_{queue_};
  adapters::SystemCaptureLayer capture_{
      clock_, {}, [] { return std::vector<adapters::NetworkInterface>(); }};
  platform::Loop loop_{{clock_, capture_, guard_, forTimers_, forFrames_}};
  support::FakeStore store_;
  adapters::Windows1252 code_;
  platform::NumberText numbers_;
  ComputerFiles files_;
  support::FakeLinks links_;
  Calendar calendar_;
  formroutines::Application app_{{loop_.Timers, queue_, dialogs_, program_, store_, capture_, code_,
                                  numbers_, files_, links_, calendar_}};
};

TEST_F(ProgramWithoutAWindow, MeasuresRecordsAndEnds) {
  Do([this] { app_.Load(); });
  forms::Main& main = app_.Windows.Main;
  EXPECT_TRUE(dialogs_.Shown.empty()) << "no screen is asked for, and no printer";
  Do([&] {
    main.Text1[12].Text = "VORNIK-SIM-1";
    main.Text1[14].Text = "VORNIK-SIM-2";
    main.TabStrip1.SelectedTab = ValuesTab;
    main.CWButton4.Value = true;
  });
  RunFor(2s);
  EXPECT_NE(main.Label5[0].Caption.Get(), "") << "a reading";
  Do([&] { main.CWButton4.Value = false; });
  RunFor(2s);

  Do([&] {
    main.TabStrip1.SelectedTab = RecorderTab;
    main.CWButton3.Value = true;
  });
  RunFor(3s);
  Do([&] { main.CWButton3.Value = false; });
  RunFor(2s);
  EXPECT_TRUE(dialogs_.Shown.empty());

  std::set<char> streams;
  for (const std::string& name : Files()) {
    if (name.find("_SV record") == std::string::npos) continue;
    streams.insert(name.front());
    const std::string text = support::BytesOf(folder_.File(name));
    EXPECT_GE(std::count(text.begin(), text.end(), '\n'), 8000) << name;
  }
  EXPECT_EQ(streams, (std::set<char>{'1', '2'}));
  Do([&] { app_.EndSession(); });
  EXPECT_EQ(exitCode_, 0);
}

TEST_F(ProgramWithoutAWindow, DoesNothingWithWhatItsFaceLacks) {
  Do([this] { app_.Load(); });
  forms::Main& main = app_.Windows.Main;
  EXPECT_FALSE(main.Command1.Enabled) << "there is nothing to print on";
  EXPECT_EQ(main.StatusBar1.Panels[forms::status_panel::Printer].Text, "Standard printer:  ");

  Do([&] { main.Command1.MouseDown(platform::mouse_button::Right); });
  Do([&] { main.Command3.Click(); });

  EXPECT_TRUE(dialogs_.Shown.empty()) << "nothing was copied, so nothing is said";
  EXPECT_EQ(app_.Config.Settings.StoragePath, folder_.Path());
  EXPECT_FALSE(exitCode_);
}

}  // namespace
}  // namespace host
