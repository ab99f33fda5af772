#include "recorder/reading/sample_search.h"

#include <limits>
#include <memory>

#include "recorder/reading/line_reader.h"
#include "recorder/reading/ramp_field.h"

namespace packetroutines {

namespace failure = platform::failure;
using platform::Failure;

namespace {

constexpr std::int32_t MostLines = std::numeric_limits<std::int32_t>::max();

}  // namespace

SearchedSamples SearchSamples(platform::FileSystem& files, const std::string& path,
                              AnalysisPass& pass, std::int32_t round,
                              const std::function<void(const MetGap&)>& met) {
  const std::unique_ptr<platform::InputFile> file = files.Read(path);
  LineReader reader(*file, pass);
  SearchedSamples samples{.Gaps = GapSearch(round), .Run = {}};
  GapSearch& gaps = samples.Gaps;
  while (!reader.AtEnd()) {
    const std::string_view line = reader.Next();
    samples.Cut = !reader.WasWhole();
    if (samples.Cut) break;
    if (gaps.Lines() == MostLines) throw Failure(failure::Overflow, "It is too long");
    const std::int32_t ramp = RampOf(line);
    const std::int32_t lost = gaps.Lost();
    gaps.Line(ramp);
    if (gaps.Lost() > lost) met({gaps.Lines(), ramp, gaps.Lost() - lost});
  }
  if (gaps.Lines() == 0) throw Failure(failure::InvalidProcedureCall);
  samples.Run = gaps.Finish();
  return samples;
}

std::string ReasonInTheSamples(const Failure& failure, std::int32_t round) {
  switch (failure.Number()) {
    case failure::SubscriptOutOfRange:
      return "more than two million samples are missing in it, or its counter goes beyond " +
             std::to_string(round - 1);
    case failure::InvalidProcedureCall:
    case failure::Overflow:
      return "it holds a line that is no sample";
    default:
      return {};
  }
}

void WriteCheckLog(LogLines& lines, const std::string& path,
                   const std::optional<platform::LocalTime>& start, const platform::LocalTime& stop,
                   const SearchedSamples& samples, double frequency) {
  lines.Heading({.Path = path,
                 .Frame = {NotKnown, NotKnown, NotKnown},
                 .Start = start,
                 .Stop = stop,
                 .Filters = NotKnown});
  lines.Counts(samples.Gaps, samples.Run, frequency);
  if (samples.Cut) lines.Line("The last line was cut and is not counted");
}

}  // namespace packetroutines
