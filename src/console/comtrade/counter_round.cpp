#include "console/comtrade/counter_round.h"

#include <algorithm>
#include <memory>

#include "platform/controls/progress_bar.h"
#include "recorder/reading/line_reader.h"
#include "recorder/reading/ramp_field.h"

namespace console {

namespace {

/// Counters have 16 bits on the wire.
constexpr std::int64_t MostCounters = 65'536;

}  // namespace

void CounterRound::Take(std::int64_t counter) {
  if (counter == 0) {
    const auto* const round = std::find(sv::StandardRates.begin(), sv::StandardRates.end(),
                                        static_cast<std::uint32_t>(last_ + 1));
    if (round != sv::StandardRates.end()) {
      ++begunAnew_[static_cast<std::size_t>(round - sv::StandardRates.begin())];
    }
  }
  last_ = std::clamp<std::int64_t>(counter, 0, MostCounters - 1);
  greatest_ = std::max(greatest_, last_);
}

std::int32_t CounterRound::Samples() const {
  const auto* const most = std::max_element(begunAnew_.begin(), begunAnew_.end());
  if (*most > 0) {
    return static_cast<std::int32_t>(
        sv::StandardRates[static_cast<std::size_t>(most - begunAnew_.begin())]);
  }
  return static_cast<std::int32_t>(sv::RoundFor(static_cast<std::uint32_t>(greatest_)));
}

std::int32_t LearnRound(platform::FileSystem& files, const std::string& path) {
  const std::unique_ptr<platform::InputFile> file = files.Read(path);
  platform::ProgressBar nobodySees;
  packetroutines::AnalysisPass pass(nobodySees, 0, 0, files.FileSize(path));
  packetroutines::LineReader reader(*file, pass);
  CounterRound round;
  while (!reader.AtEnd()) {
    const std::string_view line = reader.Next();
    if (reader.WasWhole()) round.Take(packetroutines::RampOf(line));
  }
  return round.Samples();
}

}  // namespace console
