#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "fuzz/packet/acts.h"
#include "fuzz/packet/frame_maker.h"
#include "fuzz/packet/frame_tally.h"
#include "fuzz/script.h"
#include "support/broken_bus.h"
#include "support/scene.h"

namespace fuzz {

/// Plays an input to the whole program: a bus, a user, a clock and a computer, in whatever order.
/// The program must come to rest behind it, and what it has recorded must be whole.
class Player {
 public:
  /// The acts are played over and over until about so many frames have come, as long as each time
  /// brings some.
  Player(Script script, std::uint64_t leastFrames);

  void Play();
  /// Frames that came in while capture ran.
  std::uint64_t Frames() const { return scene_.State.Counters.Frames; }

 private:
  /// What nests inside what: an act in the pump of another one.
  struct Depth;

  void Open();
  void PlayActs();
  void Perform(Script& script);
  void PerformBelowFinder(Script& script);
  void PlayFrames(Script& script);
  void PlayRawFrame(Script& script);
  bool AwaitBurst();
  void Deliver(const Burst& burst, std::uint32_t n);
  void Press(std::size_t button);
  void GoTo(std::int16_t tab);
  void ElapseFor(Script& script);
  void PlaceInPump(Script& script);
  void EditField(Script& script);
  void Choose(Script& script);
  void ChooseOfRun(Script& script);
  void OpenFinder(Script& script);
  void Arrive(Script& script);
  void MakeTrouble(Script& script);
  void MakeDiskTrouble(Script& script);
  void Click(Script& script);
  void Close(Script& script);

  void JudgeBox();
  void Rest();
  void JudgeRest();
  void JudgeRecordings();
  void AsUser(const std::function<void()>& handler);

  support::Dice dice_{1};
  support::Scene scene_;
  FrameMaker maker_{dice_};
  FrameTally tally_{scene_};
  Script script_;
  std::uint64_t leastFrames_;
  /// Memory for the frames of each depth, since one is valid until its handler returns.
  std::map<int, support::FrameBytes> memory_;
  int depth_ = 0;
  int frames_ = 0;
  int boxesInARow_ = 0;
  bool over_ = false;
  bool mayEnd_ = false;
  /// The computer fails, or the user has typed what is no setting.
  bool troubled_ = false;
  bool diskFailed_ = false;
};

}  // namespace fuzz
