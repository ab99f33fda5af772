#include "capture/waiting_text.h"

#include "config/setup_view.h"
#include "platform/stream_format.h"

namespace packetroutines {

using platform::Presence;

namespace {

constexpr const char* MeasuresAnew = ": RUN measures the length anew";

}  // namespace

bool WaitingText::IsChosen(std::size_t stream) const {
  const std::string& content = settings_.FilterContent[stream];
  return !content.empty() && content != config::NoContent;
}

std::string WaitingText::Waiting(std::size_t stream, const RunCounters& came) const {
  const std::string frames = came.Frames == 0   ? "no frame came in"
                             : came.Frames == 1 ? "1 frame came in"
                                                : Number(came.Frames) + " frames came in";
  if (!IsChosen(stream)) return NoneChosen(frames);
  return "Waiting for " + Quoted(stream) + ": " + frames +
         (came.Frames == 0 ? "" : Whereabouts(stream, came)) + ".";
}

std::string WaitingText::NoneChosen(const std::string& came) const {
  const std::string none = "No station is chosen: " + came + ". ";
  // The choice on a page may stand on a station whose filter has been emptied.
  if (!IsChosen(1)) return none + "See 'Packet content filter' under 'Setup'.";
  return none + "Choose " + Quoted(1) +
         (state_.LookingForRecording ? " on 'Values'." : " on this page.");
}

/// What became of the frames. Only what is not zero is named, but for the frames of the station.
std::string WaitingText::Whereabouts(std::size_t stream, const RunCounters& came) const {
  const StreamCounters& own = came.Streams[stream];
  if (own.HeldId == 0) return NoneHeld(own, came);
  std::string text = ", " + Number(own.HeldId) + " held this ID";
  if (came.TooLong > 0) {
    text += ", " + Number(came.TooLong) + (came.TooLong == 1 ? " was" : " were") +
            " longer than expected";
    if (own.TooLong > 0) text += MeasuresAnew;
  }
  return text + Obstacle(stream, came);
}

std::string WaitingText::NoneHeld(const StreamCounters& own, const RunCounters& came) const {
  if (own.TooLong > 0) {
    return std::string(", those with this ID are longer than expected") + MeasuresAnew;
  }
  std::string text = ", none held this ID";
  if (own.SetLength > 0) {
    text = came.Frames == 1 ? ", it held this ID and was spent on the length"
                            : ", only the first held this ID and was spent on the length";
  }
  if (came.TooLong > 0) {
    text += ", " + Number(came.TooLong) + (came.TooLong == 1 ? " was" : " were") +
            " longer than expected";
  }
  return text;
}

/// What keeps frames that hold the ID from being a block that is shown.
std::string WaitingText::Obstacle(std::size_t stream, const RunCounters& came) const {
  const StreamCounters& own = came.Streams[stream];
  if (present_.BaseSamples == 0) return ", no block ends with 0 'Samplings' under 'Setup'";
  if (own.NotLocated > 0) {
    const bool all = own.NotLocated == own.HeldId;
    return (all ? ", their samples" : ", the samples of " + Number(own.NotLocated)) +
           std::string(" could not be located");
  }
  if (stream != 0) return {};
  if (came.Unread > 0) {
    return ", the values of " + (came.Unread == own.HeldId ? "all" : Number(came.Unread)) +
           " could not be read";
  }
  if (came.SilentBlocks > 0) return ", the signal is silent";
  const auto block = static_cast<std::uint64_t>(present_.BaseSamples);
  return own.HeldId < block ? ", a block takes " + Number(block) : "";
}

std::string WaitingText::NotLocated(std::size_t stream) const {
  return "The samples of " + Quoted(stream) +
         " could not be located: its values are not measured ones.";
}

std::string WaitingText::SharedChannels(const std::array<std::int16_t, 2>& located) const {
  const auto withoutVoltages = [](std::int16_t channels) {
    return channels <= static_cast<std::int16_t>(platform::channels::OfAKind);
  };
  if (withoutVoltages(located[0]) == withoutVoltages(located[1])) return {};
  const std::size_t few = withoutVoltages(located[0]) ? 0 : 1;
  const auto channels = [](std::int16_t count) { return std::to_string(count) + " channels"; };
  return Quoted(0) + " has " + channels(located[0]) + " and " + Quoted(1) + " has " +
         channels(located[1]) + ". Both are read with " + channels(state_.ChannelCount) +
         (withoutVoltages(state_.ChannelCount)
              ? ": no voltages are taken."
              : ": the voltages of " + Quoted(few) + " are not measured ones.");
}

std::string WaitingText::Outage(Presence presence) {
  return presence == Presence::Gone
             ? "The network interface is gone. Please connect it again."
             : "The network interface is switched off. Please switch it on again.";
}

std::string WaitingText::OutageOver(Presence outage) {
  return outage == Presence::Gone ? "The network interface is back."
                                  : "The network interface is on again.";
}

std::string WaitingText::Quoted(std::size_t stream) const {
  return "\"" + settings_.FilterContent[stream] + "\"";
}

std::string WaitingText::Number(std::uint64_t count) const {
  return numbers_.General(static_cast<double>(count));
}

}  // namespace packetroutines
