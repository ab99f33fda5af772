#include "fuzz/packet/player.h"

#include <array>
#include <chrono>

#include "fuzz/demand.h"

namespace fuzz {

using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""us;
using support::BrokenFrame;
using support::SceneEnded;

namespace {

/// The most frames of a pass through the acts; a ring takes 4000.
constexpr int MostFrames = 12'000;
/// With fewer of them the acts are not played once more.
constexpr std::uint64_t FramesWorthAPass = 400;
/// The deepest acts within pumps, and what comes in there at once.
constexpr int Deepest = 4;
constexpr int FramesInAPump = 50;
constexpr int MostActs = 200;
constexpr int ActsBelowFinder = 24;

constexpr std::array<int, 16> Counts = {1,   2,   3,   5,   8,    20,   64,   100,
                                        200, 400, 401, 800, 1600, 2000, 4000, 4100};
constexpr std::array<std::chrono::microseconds, 8> Gaps = {250us, 208us, 0us, 1000us,
                                                           20ms,  600ms, 1s,  3s};
constexpr std::array<std::chrono::milliseconds, 8> Times = {1ms,    20ms, 100ms, 300ms,
                                                            1000ms, 2s,   5s,    61s};

}  // namespace

struct Player::Depth {
  explicit Depth(int& depth) : Value(depth) { ++Value; }
  Depth(const Depth&) = delete;
  Depth& operator=(const Depth&) = delete;
  ~Depth() { --Value; }
  int& Value;
};

Player::Player(Script script, std::uint64_t leastFrames)
    : script_(script), leastFrames_(leastFrames) {
  dice_ = support::Dice(script_.Word());
  scene_.Dialogs.WhileOpen = [this] { JudgeBox(); };
  scene_.Files.LeaveWindows();
}

void Player::Play() {
  try {
    Open();
    std::uint64_t before = 0;
    do {
      before = Frames();
      frames_ = 0;
      PlayActs();
    } while (Frames() < leastFrames_ && Frames() >= before + FramesWorthAPass);
    Rest();
  } catch (const SceneEnded&) {
    Demand(mayEnd_, "the program ends when it is asked to");
    scene_.App.CloseFiles();
  }
  JudgeRecordings();
}

void Player::PlayActs() {
  Script acts = script_;
  for (int i = 0; i < MostActs && !acts.Ended(); ++i) Perform(acts);
}

void Player::Open() {
  const auto opening = static_cast<Opening>(script_.Below(Openings));
  const std::uint8_t form = script_.Byte();
  scene_.Start();
  if ((form & 1U) != 0) scene_.Main.Text1[forms::setup_field::Content2].Text = "MU02";
  if ((form & 2U) != 0) scene_.Main.Text1[forms::setup_field::Content1].Text = "M\xC3\x9C 7";
  scene_.Main.Option2[form / 4 % forms::record_format::Count].Value = true;
  if (opening == Opening::Nothing) return;
  if (opening == Opening::RealTime) scene_.Main.Check5.Value = 1;
  constexpr std::array<std::size_t, Openings> Buttons = {0, 0, 0, 1, 2, 3, 4};
  Press(Buttons[static_cast<std::size_t>(opening)]);
}

void Player::Perform(Script& script) {
  tally_.NoteAct();
  scene_.Journal.clear();
  scene_.Dialogs.Shown.clear();
  boxesInARow_ = 0;
  switch (static_cast<Act>(script.Below(Acts))) {
    case Act::Frames:
      return PlayFrames(script);
    case Act::RawFrame:
      return PlayRawFrame(script);
    case Act::Press:
      return Press(script.Byte());
    case Act::Tab:
      return GoTo(static_cast<std::int16_t>(1 + script.Below(7)));
    case Act::Elapse:
      return ElapseFor(script);
    case Act::AtPump:
      return PlaceInPump(script);
    case Act::Field:
      return EditField(script);
    case Act::Choice:
      return Choose(script);
    case Act::Finder:
      return OpenFinder(script);
    case Act::Arrivals:
      return Arrive(script);
    case Act::Clock:
      scene_.Clock.Began += std::chrono::seconds(static_cast<std::int16_t>(script.Word()));
      return;
    case Act::Trouble:
      return MakeTrouble(script);
    case Act::Size: {
      const std::int32_t width = script.Word();
      return scene_.Main.Window.TakeSize(width, script.Word());
    }
    case Act::Click:
      return Click(script);
    case Act::Close:
      return Close(script);
  }
}

void Player::PlayFrames(Script& script) {
  Burst burst;
  burst.Sender = script.Byte();
  burst.Kind = static_cast<FrameKind>(script.Below(FrameKinds));
  burst.First = script.Byte();
  burst.Second = script.Byte();
  const int count = script.OneOf(Counts);
  const std::chrono::microseconds gap = script.OneOf(Gaps);
  for (int i = 0; i < count && frames_ < MostFrames; ++i) {
    if (depth_ > 0 && i >= FramesInAPump) return;
    if (!AwaitBurst() && i > 0) return;
    Deliver(burst, static_cast<std::uint32_t>(i));
    if (depth_ > 0) continue;
    scene_.Clock.Advance(gap);
    if (i % 16 == 0 || gap >= 1ms) scene_.Timers.FireDue();
  }
}

/// Lets the pause between two bursts pass; False where nothing runs.
bool Player::AwaitBurst() {
  if (scene_.Capture.Running) return true;
  if (depth_ > 0) return false;
  scene_.Journal.clear();
  tally_.NoteAct();
  scene_.Elapse(1s);
  return scene_.Capture.Running;
}

void Player::Deliver(const Burst& burst, std::uint32_t n) {
  ++frames_;
  const Depth deeper(depth_);
  tally_.Deliver(maker_.Make(burst, n, memory_[depth_]));
}

void Player::PlayRawFrame(Script& script) {
  const std::size_t length = script.Word();
  const auto bytes = script.Take(script.Byte());
  ++frames_;
  const Depth deeper(depth_);
  tally_.Deliver(FrameMaker::Raw(bytes, length, memory_[depth_]));
}

void Player::ElapseFor(Script& script) {
  const std::chrono::milliseconds time = script.OneOf(Times);
  if (depth_ == 0) scene_.Elapse(time);
}

void Player::PlaceInPump(Script& script) {
  const int pump = 1 + static_cast<int>(script.Below(12));
  if (depth_ >= Deepest) return;
  const auto taken = script.Take(8);
  const std::string bytes(taken.begin(), taken.end());
  scene_.Events.AtPump(pump, [this, bytes] {
    if (over_ || depth_ >= Deepest) return;
    const Depth deeper(depth_);
    Script nested({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    Perform(nested);
  });
}

void Player::OpenFinder(Script& script) {
  forms::IDlook& look = scene_.App.Windows.IDlook;
  if (look.Window.Loaded || depth_ >= Deepest) return;
  GoTo(forms::tab::Setup);
  look.Window.ShowModal = [&] {
    for (int i = 0; i < ActsBelowFinder && !script.Ended() && look.Window.Loaded; ++i) {
      PerformBelowFinder(script);
    }
    tally_.NoteAct();
    look.Command1.Click();
  };
  AsUser([&] { scene_.Main.Command7.Click(); });
}

/// The window of the finder keeps the user from all that is below it.
void Player::PerformBelowFinder(Script& script) {
  tally_.NoteAct();
  platform::CheckList& list = scene_.App.Windows.IDlook.List1;
  switch (script.Below(5)) {
    case 0:
      return PlayFrames(script);
    case 1:
      return PlayRawFrame(script);
    case 2: {
      const auto count = list.Items.Get().size();
      const bool checked = script.Yes();
      if (count > 0) list.Turn(static_cast<std::int32_t>(script.Below(count)), checked);
      return;
    }
    default:
      if (depth_ == 0) scene_.Elapse(600ms);
  }
}

void Player::Arrive(Script& script) {
  const std::size_t count = script.Below(100);
  Burst burst;
  burst.Sender = script.Byte();
  burst.Kind = static_cast<FrameKind>(script.Below(FrameKinds));
  support::FrameBytes memory;
  for (std::uint32_t i = 0; i < count; ++i) {
    const BrokenFrame frame = maker_.Make(burst, i, memory);
    scene_.Capture.Arrive({frame.Bytes.begin(), frame.Bytes.end()});
  }
  tally_.ExpectArrivals();
  Press(script.Byte());
}

void Player::JudgeBox() {
  static const support::FrameBytes late = support::SvFrame("MU01").Bytes();
  tally_.NoteAct();
  tally_.Deliver({late, late.size()}, true);
  ++boxesInARow_;
  if (scene_.Journal.back().starts_with("timed box")) return;
  const platform::Message& box = scene_.LastBox();
  const bool reports = box.Text.starts_with("Debug error");
  if (reports) {
    Demand(tally_.TooLongForReport(),
           "only a report that has no room ends the program: " + box.Text);
    mayEnd_ = true;
  } else if (box.Title.starts_with("unknown")) {
    // Currents have no scale for amperes beyond all measure, and a length has its bounds.
    const bool required = box.Text.find("Division by zero") < box.Text.size() ||
                          box.Text.find("Overflow") < box.Text.size();
    Demand(required || troubled_, "an unknown error: " + box.Text);
  }
  const bool tired = boxesInARow_ > 6;
  if (box.BoxButtons == platform::Buttons::OkStop) {
    scene_.Dialogs.Answers.push_back(tired || dice_.OneIn(2) ? platform::Answer::Stop
                                                             : platform::Answer::Ok);
  } else if (box.BoxButtons == platform::Buttons::YesNo && !tired && dice_.OneIn(2)) {
    scene_.Dialogs.Answers.push_back(platform::Answer::No);
  }
}

}  // namespace fuzz
