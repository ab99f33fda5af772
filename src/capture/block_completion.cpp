// What the packet event does with a complete block of the first stream.

#include "capture/packet_dispatcher.h"

namespace packetroutines {

using platform::Flow;

namespace {

/// Pause between a block of a live view and the restart of capture, in ms.
constexpr std::int32_t BlockPause = 100;
/// Samples a second of the recording's time display, whatever the base frequency is.
constexpr double DisplayRate = 4000;

}  // namespace

Flow PacketDispatcher::CompleteBlock(bool signalOk) {
  const std::uint32_t station = state_.StationChanges;
  const auto current = [&] { return signalOk && state_.StationChanges == station; };
  return Run([&] { frameIndex_[0] = 0; }, [&] { Advance(state_.BlockCount); },
             [&] {
               if (!signalOk) ++state_.Counters.SilentBlocks;
             },
             [&] { services_.Events.Pump(); },
             [&] {
               return state_.LookingForScope ? ShowBlock(current, [&] { PlotBlock(); })
                                             : Flow::Next;
             },
             [&] {
               return state_.LookingForValues && !state_.RealTimeMode ? BlockForValues(current)
                                                                      : Flow::Next;
             },
             [&] {
               // The real-time value was shown frame by frame.
               if (state_.LookingForValues && state_.RealTimeMode) consumers_.Views.BlockShown();
             },
             [&] { return state_.LookingForRecording ? BlockForRecording() : Flow::Next; },
             [&] {
               return state_.LookingForPhases
                          ? ShowBlock(current, [&] { consumers_.Views.UpdatePhases(); })
                          : Flow::Next;
             });
}

template <typename Current, typename Show>
Flow PacketDispatcher::ShowBlock(Current current, Show show) {
  return Run([&] { capture_.StopCapture(); },
             [&] {
               if (!current()) return;
               show();
               consumers_.Views.BlockShown();
             },
             [&] { services_.Events.Pump(); },
             [&] {
               controls_.Timers.Timer2.Interval = BlockPause;
               controls_.Timers.Timer2.Enabled = true;
             });
}

void PacketDispatcher::PlotBlock() {
  consumers_.Views.PlotBlock(state_.BlockCount == 1 ? "Auto" : "Manuell");
}

template <typename Current>
Flow PacketDispatcher::BlockForValues(Current current) {
  return Run([&] { return ShowBlock(current, [&] { consumers_.Views.CalculateValues(); }); },
             [&] {
               // The check box may have been ticked in the pump.
               if (state_.RealTimeMode) consumers_.Views.ClearValues();
             });
}

Flow PacketDispatcher::BlockForRecording() {
  return Run([&] {
    const auto samples = static_cast<double>(state_.BlockCount) * present_.BaseSamples;
    controls_.Recorder.Label10[forms::record_line::Progress].Caption =
        services_.Numbers.General(samples / DisplayRate) + "s / " +
        services_.Numbers.General(samples) + " samples";
    consumers_.Views.BlockShown();
  });
}

}  // namespace packetroutines
