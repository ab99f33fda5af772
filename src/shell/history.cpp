// The revision history that the program shows.

#include "shell/history.h"

#include <iterator>

namespace history {

namespace {

constexpr std::size_t MostLines = 201;

constexpr std::string_view Lines[] = {
    "Vornik 2.3.5, 2026-11-21",
    "- frames from network interfaces, capture files and a simulated process bus",
    "- RMS and DC values of eight channels, block by block or in real time",
    "- ten number formats, units and channel names of your own",
    "- phasor diagram with magnitudes and angles against voltage A",
    "- waveforms with pan, zoom, autoscaling and single samples",
    "- one or two streams, chosen by their station ID",
    "- Setup takes effect at once and is kept from run to run",
};
static_assert(std::size(Lines) <= MostLines);

}  // namespace

std::string HistoryText() {
  return HistoryText(Lines);
}

std::string HistoryText(std::span<const std::string_view> lines) {
  std::string text;
  for (const std::string_view line : lines) {
    if (!line.empty()) text.append(line).append("\r\n");
  }
  return text;
}

}  // namespace history
