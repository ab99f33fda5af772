// What the packet event does with a complete block of the first stream.

#include "capture/packet_dispatcher.h"
#include "capture/record_progress.h"

namespace packetroutines {

using platform::Flow;

namespace {

/// Pause between a block of a live view and the restart of capture, in ms.
constexpr std::int32_t BlockPause = 100;

}  // namespace

void PacketDispatcher::CompleteBlock(bool signalOk) {
  const std::uint32_t station = state_.StationChanges;
  const PageVisit visit(state_);
  // A view that was chosen in one of the pumps, and runs already, has gathered nothing yet.
  const auto wants = [&](bool RunFields::*mode) { return state_.*mode && !visit.Over(); };
  const auto current = [&] { return signalOk && state_.StationChanges == station; };
  run_(
      [&] {
        frameIndex_[0] = 0;
        parts_.Builder.KeepBlock();
        Advance(streams_.BlockCount);
      },
      [&] { services_.Events.Pump(); },
      [&] {
        if (wants(&RunFields::LookingForScope)) ShowBlock(current, [&] { PlotBlock(); });
      },
      [&] {
        if (wants(&RunFields::LookingForValues) && !state_.RealTimeMode) {
          BlockForValues(current);
        }
      },
      [&] {
        // The real-time value was shown frame by frame.
        if (wants(&RunFields::LookingForValues) && state_.RealTimeMode) {
          parts_.Waiting.BlockShown();
        }
      },
      [&] {
        if (wants(&RunFields::LookingForRecording)) BlockForRecording();
      },
      [&] {
        if (wants(&RunFields::LookingForPhases)) {
          ShowBlock(current, [&] { upper_.Views->UpdatePhases(); });
        }
      });
}

template <typename Current, typename Show>
void PacketDispatcher::ShowBlock(Current current, Show show) {
  run_([&] { return StopCapture(); },
       [&] {
         if (!current()) return;
         show();
         parts_.Waiting.BlockShown();
       },
       [&] { services_.Events.Pump(); },
       [&] {
         parts_.Run.RestartPause(BlockPause);
         parts_.Run.Restart();
       });
}

void PacketDispatcher::PlotBlock() {
  upper_.Views->PlotBlock(state_.BlockCount == 1 ? "Auto" : "Manuell");
}

template <typename Current>
void PacketDispatcher::BlockForValues(Current current) {
  run_([&] { ShowBlock(current, [&] { upper_.Views->CalculateValues(); }); },
       [&] {
         // The check box may have been ticked in the pump.
         if (state_.RealTimeMode) upper_.Views->ClearValues();
       });
}

void PacketDispatcher::BlockForRecording() {
  run_([&] {
    const auto samples = static_cast<double>(state_.BlockCount) * present_.BaseSamples;
    controls_.Recorder.Label10[forms::record_line::Progress].Caption =
        RecordProgress(numbers_, samples);
    parts_.Waiting.BlockShown();
  });
}

}  // namespace packetroutines
