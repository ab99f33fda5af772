#include "console/commands/checked_recording.h"

#include "base/failure.h"
#include "console/commands/recording_name.h"
#include "console/comtrade/counter_round.h"
#include "platform/stream_format.h"

namespace console {

using packetroutines::MetGap;

namespace {

/// The log counts waves of 80 samples; with this many of them a second its seconds are true.
double WavesASecond(const CheckedRecording& checked) {
  return static_cast<double>(checked.Round) / platform::SamplesAPeriod;
}

void LookThrough(CheckedRecording& checked, platform::FileSystem& files) {
  platform::ProgressBar nobodySees;
  packetroutines::AnalysisPass pass(nobodySees, 0, 0, files.FileSize(checked.Path));
  checked.Samples =
      packetroutines::SearchSamples(files, checked.Path, pass, checked.Round,
                                    [&](const MetGap& gap) { checked.Gaps.push_back(gap); });
}

}  // namespace

CheckedRecording CheckRecording(platform::FileSystem& files, const std::string& path,
                                std::optional<std::int32_t> round) {
  CheckedRecording checked;
  checked.Path = path;
  checked.Start = NameOf(files, path).Start();
  checked.Stop = files.LastWrite(path);
  if (files.FileSize(path) == 0) {
    throw platform::Failure(platform::failure::TypeMismatch, "it is empty");
  }
  try {
    checked.Round = round ? *round : LearnRound(files, path);
    LookThrough(checked, files);
  } catch (const platform::Failure& failure) {
    const std::string reason = packetroutines::ReasonInTheSamples(failure, checked.Round);
    if (reason.empty()) throw;
    throw platform::Failure(failure.Number(), reason);
  }
  return checked;
}

void WriteCheck(const CheckedRecording& checked, platform::OutputFile& log,
                const packetroutines::LogTexts& texts) {
  packetroutines::LogLines lines(log, texts);
  packetroutines::WriteCheckLog(lines, checked.Path, checked.Start, checked.Stop, checked.Samples,
                                WavesASecond(checked));
  for (const MetGap& gap : checked.Gaps) {
    lines.Line("Gap                              : before line " + std::to_string(gap.Line) +
               ", counter " + std::to_string(gap.Counter) +
               "; missing: " + std::to_string(gap.Missing));
  }
}

nlohmann::ordered_json ToJson(const CheckedRecording& checked) {
  const packetroutines::GapSearch& search = checked.Samples.Gaps;
  const packetroutines::LongestRun& run = checked.Samples.Run;
  nlohmann::ordered_json gaps = nlohmann::ordered_json::array();
  for (const MetGap& gap : checked.Gaps) {
    gaps.push_back({{"line", gap.Line}, {"counter", gap.Counter}, {"missing", gap.Missing}});
  }
  nlohmann::ordered_json json{{"file", checked.Path}};
  json["started"] = nullptr;
  if (checked.Start) json["started"] = platform::NumericText(*checked.Start);
  json["lastWrite"] = platform::NumericText(checked.Stop);
  json["round"] = checked.Round;
  json["received"] = search.Lines();
  json["lost"] = search.Lost();
  json["longest"] = {{"samples", run.Longest}, {"firstLine", run.First}, {"lastLine", run.Last}};
  json["lastLineCut"] = checked.Samples.Cut;
  json["gaps"] = std::move(gaps);
  return json;
}

}  // namespace console
