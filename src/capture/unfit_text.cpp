#include "capture/unfit_text.h"

#include "platform/stream_format.h"

namespace packetroutines {

namespace {

/// Channels of the frames whose samples the scan looks for.
bool IsSearched(std::size_t channels) {
  return channels == 4 || channels == 8 || channels == 12;
}

/// The channels of a mask as the views name them, A to H.
std::string Letters(std::uint32_t channels) {
  std::string letters;
  for (std::size_t k = 0; k < platform::channels::Count; ++k) {
    if ((channels & 1U << k) == 0) continue;
    if (!letters.empty()) letters += ", ";
    letters += static_cast<char>('A' + k);
  }
  return letters;
}

}  // namespace

std::string UnfitText::Doubled(std::size_t stream, const sv::TrackTotals& ofLastSecond) const {
  if (ofLastSecond.Doubled == 0 && ofLastSecond.Late == 0) return {};
  std::string text = "Of the last second's " + Number(ofLastSecond.Samples) + " samples of \"" +
                     settings_.FilterContent[stream] + "\" ";
  if (ofLastSecond.Doubled > 0) text += Number(ofLastSecond.Doubled) + " came twice";
  if (ofLastSecond.Late > 0) {
    text += (ofLastSecond.Doubled > 0 ? " and " : "") + Number(ofLastSecond.Late) +
            " came out of order";
  }
  return text +
         (ofLastSecond.Doubled > 0 ? ": a doubled network, or a mirror of both directions?" : ".");
}

std::string UnfitText::Of(std::size_t stream, const StreamLook& look,
                          std::optional<std::uint32_t> rate) const {
  const std::string name = "\"" + settings_.FilterContent[stream] + "\"";
  std::string text;
  const auto add = [&](const std::string& sentence) {
    if (sentence.empty()) return;
    if (!text.empty()) text += " ";
    text += sentence;
  };
  if (look.Why != sv::Fault::None) {
    add(name + " has no whole structure: " + sv::Words(look.Why) + ".");
    return text;
  }
  if (look.Asdus > 1) {
    add(name + " sends " + std::to_string(look.Asdus) +
        " samples (ASDUs) a frame, of which one is read.");
  }
  add(Location(name, look));
  const std::uint32_t assumed = AssumedRate(settings_);
  if (rate && *rate != assumed) {
    add(name + " sends " + Number(*rate) + " samples a second, and a block assumes " +
        Number(assumed) + " at the frequency under 'Setup'.");
  }
  if (look.Simulated) add(name + " has the simulation bit set.");
  if (look.Invalid != 0) {
    add("The quality of " + name + " is invalid for " + Letters(look.Invalid) + ".");
  }
  return text;
}

std::string UnfitText::Location(const std::string& name, const StreamLook& look) const {
  if (!IsSearched(look.Channels)) {
    return name + " has " + std::to_string(look.Channels) +
           " channels a sample; 4, 8 or 12 are searched for.";
  }
  if (!look.Located) {
    return "The " + std::to_string(look.Channels) + " channels of " + name +
           " stand at the frame's end, where the search does not go.";
  }
  if (look.WellLocated) return {};
  return "The search took samples and counter of " + name + " to be elsewhere (samples at byte " +
         std::to_string(look.FoundAt) + ") than they are (at " + std::to_string(look.SamplesAt) +
         "): its values are not measured ones.";
}

std::string UnfitText::Number(std::uint64_t count) const {
  return numbers_.General(static_cast<double>(count));
}

}  // namespace packetroutines
