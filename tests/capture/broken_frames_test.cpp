// Frames of each kind that no merging unit sends, in every mode and with changes of the tab
// between. A count of the test's own tells which blocks must be complete.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "support/broken_bus.h"
#include "support/scene.h"

namespace {

using support::BrokenBus;
using support::BrokenFrame;
using support::Dice;
using support::Scene;
using support::SceneEnded;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""us;

constexpr int FramesAKind = 100'000;
/// Few of them hold what completes a block, and each mode is to meet some.
constexpr int FramesOfNoise = 1'000'000;

/// What the frames of a run are for.
enum class Use { Views, Recording, Other };

/// The blocks that a run must have completed, told from the frames that it got.
class BlockTally {
 public:
  std::array<int, 2> Blocks{};

  void BeginRun(Use use) {
    use_ = use;
    length_.reset();
    Blocks = {};
    BeginBurst();
  }
  void BeginBurst() { located_ = {}; }
  bool Located() const { return located_[0] || located_[1]; }
  bool TooLong(const BrokenFrame& frame) const { return length_ && frame.Length > *length_; }

  void Take(const BrokenFrame& frame) {
    const bool counts = length_ && !TooLong(frame) && use_ != Use::Other;
    if (!length_) length_ = frame.Length;
    if (!counts) return;
    const std::string_view text(reinterpret_cast<const char*>(frame.Bytes.data()),
                                frame.Bytes.size());
    if (Holds(text, "MU01") && !First()) return;
    if (Holds(text, "MU02")) Second();
  }

 private:
  static bool Holds(std::string_view text, std::string_view id) {
    const auto at = text.find(id);
    return at != std::string_view::npos && at > 0;
  }
  /// False where the frame fills the ring and goes no further.
  bool First() {
    if (!located_[0]) row_[0] = cell_[0] = 0;
    located_[0] = true;
    return Advance(0);
  }
  void Second() {
    if (!located_[1]) row_[0] = cell_[1] = 0;
    located_[1] = true;
    if (use_ == Use::Recording) Advance(1);
  }
  bool Advance(std::size_t stream) {
    ++row_[stream];
    if (use_ == Use::Recording && ++cell_[stream] == 4000) {
      row_[stream] = cell_[stream] = 0;
      return false;
    }
    if (row_[stream] == 400) {
      row_[stream] = 0;
      ++Blocks[stream];
    }
    return true;
  }

  Use use_ = Use::Other;
  std::optional<std::size_t> length_;
  std::array<bool, 2> located_{};
  std::array<int, 2> row_{};
  std::array<int, 2> cell_{};
};

struct Mode {
  const char* Name;
  std::int16_t Tab;
  platform::CWButton forms::Main::*Button;
  bool packetroutines::AcquisitionState::*Flag;
  Use FramesUse;
  /// The most frames of a run.
  int Frames;
};

using forms::Main;
using State = packetroutines::AcquisitionState;

/// What has no button yet is switched on behind a start of the Values view.
constexpr std::array<Mode, 8> Modes = {{
    {"values", forms::tab::Values, &Main::CWButton4, &State::LookingForValues, Use::Views, 4000},
    {"real-time value", forms::tab::Values, &Main::CWButton4, &State::LookingForValues, Use::Views,
     100},
    {"phasors", forms::tab::Phasor, &Main::CWButton2, &State::LookingForPhases, Use::Views, 3000},
    {"fixed scales", forms::tab::Phasor, &Main::CWButton2, &State::LookingForPhases, Use::Views,
     3000},
    {"scope", forms::tab::Waveforms, &Main::CWButton1, &State::LookingForScope, Use::Views, 4000},
    {"recording", forms::tab::Values, &Main::CWButton4, &State::LookingForRecording, Use::Recording,
     9000},
    {"report", forms::tab::Values, &Main::CWButton4, &State::ReportRequested, Use::Other, 3},
    {"finder", forms::tab::Values, &Main::CWButton4, &State::LookingForID, Use::Other, 20},
}};

/// A program that gets broken frames until they are used up: a run of each mode in turn.
class BrokenFrames : public testing::Test {
 protected:
  void Receive(BrokenFrame (BrokenBus::*kind)(), int frames = FramesAKind) {
    while (received_ < frames && !HasFailure()) {
      mode_ = &Modes[static_cast<std::size_t>(++run_) % Modes.size()];
      SCOPED_TRACE(mode_->Name + (" in run " + std::to_string(run_)));
      try {
        if (!scene_) StartProgram();
        BeginRun();
        RunOn(kind);
        ExpectRest(run_ % 16 == 0 ? 60s : 1s);
      } catch (const SceneEnded&) {
        EXPECT_TRUE(mayEnd_);
        scene_.reset();
      }
    }
    if (scene_) ExpectRest(60s);
    int blocks = 0;
    for (const Mode& mode : Modes) {
      EXPECT_GT(taken_[Index(mode)], 0) << mode.Name;
      blocks += blocks_[Index(mode)];
      // The frames of some shuffled runs leave one of the modes without a block.
      if (mode.FramesUse != Use::Other && IsBurst(mode) && !GTEST_FLAG_GET(shuffle)) {
        EXPECT_GT(blocks_[Index(mode)], 0) << mode.Name;
      }
    }
    EXPECT_GT(blocks, 0);
  }

 private:
  static std::size_t Index(const Mode& mode) {
    return static_cast<std::size_t>(&mode - Modes.data());
  }
  bool Is(const char* name) const { return std::string_view(mode_->Name) == name; }
  static bool IsBurst(const Mode& mode) { return std::string_view(mode.Name) != "real-time value"; }

  void StartProgram() {
    scene_ = std::make_unique<Scene>();
    scene_->Start();
    scene_->Main.Text1[14].Text = "MU02";
    scene_->Dialogs.WhileOpen = [this] { JudgeBox(); };
    tally_ = {};
  }

  void BeginRun() {
    scene_->Select(mode_->Tab);
    // The run buttons of the last view are given back.
    scene_->Elapse(1s);
    scene_->Main.Check5.Value = Is("real-time value") ? 1 : 0;
    scene_->Main.Check6.Value = Is("fixed scales") ? 0 : 1;
    scene_->Journal.clear();
    scene_->Dialogs.Shown.clear();
    scene_->PhasorPicture.Calls.clear();
    left_ = false;
    mayEnd_ = false;
    (scene_->Main.*mode_->Button).Value = true;
    State& state = scene_->State;
    state.LookingForValues = false;
    state.*mode_->Flag = true;
    tally_.BeginRun(mode_->FramesUse);
    before_ = {state.BlockCount, state.BlockCount2};
    EXPECT_TRUE(state.CaptureRunning);
    // A recording is left behind its frames alone.
    if (mode_->FramesUse == Use::Recording || dice_.OneIn(2)) return;
    scene_->Events.AtPump(static_cast<int>(1 + dice_.Below(12)), [this, run = run_] {
      if (run == run_ && !left_) Leave();
    });
  }

  void RunOn(BrokenFrame (BrokenBus::*kind)()) {
    for (int i = 0; i < mode_->Frames && !left_ && IsRunning() && !HasFailure(); ++i) {
      Deliver((bus_.*kind)());
    }
    if (!left_) Leave();
  }

  /// Lets the pause behind a block pass; False where the run is over.
  bool IsRunning() {
    scene_->Clock.Advance(250us);
    if (received_ % 64 == 0) scene_->Timers.FireDue();
    if (scene_->Capture.Running) return true;
    scene_->Elapse(1s);
    tally_.BeginBurst();
    return scene_->Capture.Running && !left_;
  }

  void Deliver(const BrokenFrame& frame) {
    ++received_;
    ++taken_[Index(*mode_)];
    tooLong_ = tally_.TooLong(frame);
    scene_->Capture.ReceiveCut(frame.Bytes, frame.Length);
    if (left_) return;
    const int blocks = tally_.Blocks[0];
    tally_.Take(frame);
    blocks_[Index(*mode_)] += tally_.Blocks[0] - blocks;
    const State& state = scene_->State;
    const bool sound = state.BlockCount - before_[0] == tally_.Blocks[0] &&
                       state.BlockCount2 - before_[1] == tally_.Blocks[1] &&
                       state.ChannelCount % 4 == 0 && state.ChannelCount <= 12 &&
                       state.ValueOffset[0] >= 0 && state.ValueOffset[1] >= 0;
    if (!sound) {
      ADD_FAILURE() << "frame " << received_ << " of " << frame.Length << " bytes: blocks "
                    << state.BlockCount - before_[0] << ", " << state.BlockCount2 - before_[1]
                    << " instead of " << tally_.Blocks[0] << ", " << tally_.Blocks[1];
    }
  }

  void Leave() {
    left_ = true;
    scene_->Select(static_cast<std::int16_t>(1 + dice_.Below(7)));
  }

  void JudgeBox() {
    if (scene_->Journal.back().starts_with("timed box")) {
      EXPECT_FALSE(tally_.Located()) << "no data";
      return;
    }
    const std::string& text = scene_->LastBox().Text;
    // A report has room for a frame of the expected length, and currents have no scale for
    // amperes beyond all measure.
    const bool room = Is("report") && tooLong_ && text.find("Subscript out of range") < text.size();
    const bool scale = Is("phasors") && text.find("Division by zero") < text.size();
    EXPECT_TRUE(room || scale) << text;
    mayEnd_ = room || scale;
    if (scale) ++blocks_[Index(*mode_)];
    // The second box would come back as long as the user stays.
    if (!room) throw SceneEnded();
  }

  void ExpectRest(std::chrono::milliseconds time) {
    const BrokenFrame late = bus_.Flipped();
    const std::array<bool, 2> known = scene_->State.OffsetsKnown;
    scene_->Capture.ReceiveCut(late.Bytes, late.Length);
    EXPECT_EQ(scene_->State.OffsetsKnown, known);
    scene_->Journal.clear();
    scene_->Elapse(time);

    const support::Journal& journal = scene_->Journal;
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "start"), 0);
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "timed box Attention"), 0);
    EXPECT_FALSE(scene_->Capture.Running || scene_->State.CaptureRunning);
    for (const Mode& mode : Modes) EXPECT_FALSE(scene_->State.*mode.Flag) << mode.Name;
    for (const platform::Shape& indicator : scene_->Main.Shape12) EXPECT_FALSE(indicator.Visible);
    EXPECT_FALSE(scene_->Main.Timer2.Enabled || scene_->Main.Timer3.Enabled);
    EXPECT_EQ(scene_->Block.SignalValues.Rows(), 400);
    for (const double value : scene_->State.RmsValues) EXPECT_TRUE(std::isfinite(value));
  }

  Dice dice_ = support::FreshDice(61850);
  BrokenBus bus_{dice_};
  std::unique_ptr<Scene> scene_;
  BlockTally tally_;
  const Mode* mode_ = nullptr;
  int run_ = -1;
  int received_ = 0;
  std::array<std::int32_t, 2> before_{};
  bool left_ = false;
  bool tooLong_ = false;
  bool mayEnd_ = false;
  std::array<int, Modes.size()> taken_{};
  std::array<int, Modes.size()> blocks_{};
};

TEST_F(BrokenFrames, ThatEndTooEarly) {
  Receive(&BrokenBus::Cut);
}

TEST_F(BrokenFrames, ThatAreTooLong) {
  Receive(&BrokenBus::Overlong);
}

TEST_F(BrokenFrames, WithBitsTurnedRound) {
  Receive(&BrokenBus::Flipped);
}

TEST_F(BrokenFrames, OfNoise) {
  Receive(&BrokenBus::Random, FramesOfNoise);
}

}  // namespace
