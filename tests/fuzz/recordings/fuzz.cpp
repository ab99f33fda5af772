// Whatever stands in a text recording: log, quick view, check and conversion agree with a plain
// reading of it.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "console/recording_text.h"
#include "fuzz/console_bench.h"
#include "fuzz/recordings/plain_recording.h"
#include "fuzz/script.h"
#include "recorder/reading/analysis_scene.h"
#include "recorder/reading/quick_view_rows.h"

namespace {

using console::ExitCode;
using fuzz::Demand;
using fuzz::PlainRecording;

constexpr std::int32_t LogRound = 4000;
/// The conversion writes each missing sample; more of them would fill the disk.
constexpr std::int32_t MostMissing = 100'000;
constexpr std::size_t MostLines = 20'000;

/// What a byte of the script makes of the next lines of a recording.
constexpr std::uint8_t SoundRuns = 200;

/// A recording that is nearly sound: runs of lines with jumps and odd places between them.
std::string Grown(fuzz::Script& script, std::int64_t round) {
  std::string text;
  std::int64_t counter = script.Word() % round;
  std::size_t lines = 0;
  const auto add = [&](const std::string& behind) {
    text += std::to_string(lines++) + ';' + std::to_string(counter) + behind;
    counter = (counter + 1) % round;
  };
  while (!script.Ended() && lines < MostLines) {
    const std::uint8_t what = script.Byte();
    if (what < SoundRuns) {
      for (int i = 0; i <= what; ++i) {
        add(";533.239;-103.088;-430.151;1.6;58.33036;29.98096;-88.31132;0.08725\r\n");
      }
    } else if (what < 220) {
      counter = (counter + script.Byte()) % round;
    } else if (what < 235) {
      counter = (counter + round - script.Byte() % round) % round;
    } else if (what < 245) {
      add(";1;2;3;4;5;6;7;" + script.Text(script.Below(12)) + "\r\n");
    } else {
      text += script.Text(script.Below(12));
    }
  }
  return text;
}

std::string LabelledCount(const support::AnalysisScene& scene, int line) {
  const std::string text = scene.LogLine(line);
  return text.substr(text.find(": ") + 2);
}

void JudgeLog(const std::string& text, const PlainRecording& plain) {
  support::AnalysisScene scene;
  scene.Recorded(text);
  const bool nothing = scene.BuildRecordLog();
  Demand(nothing == plain.Lines().empty(), "a file without a line has nothing to read");
  const auto counters = plain.Counters();
  if (!counters) return;
  const auto lost = PlainRecording::Lost(*counters, LogRound);
  Demand(scene.HasLog() == (lost.has_value() && !nothing), "a log is written where it can be");
  if (!scene.HasLog()) return;
  Demand(LabelledCount(scene, 11) == std::to_string(counters->size()), "a log counts the lines");
  Demand(LabelledCount(scene, 12) == std::to_string(*lost), "a log counts what is missing");
}

/// A value that is written with digits and a point alone, by the C library.
std::optional<float> PlainValue(const std::string& field) {
  if (field.empty() || field.size() > 15 ||
      field.find_first_not_of("0123456789.", field[0] == '-' ? 1 : 0) != std::string::npos ||
      field.find('.') != field.rfind('.') || field.find_first_of("0123456789") >= field.size()) {
    return std::nullopt;
  }
  return static_cast<float>(std::strtod(field.c_str(), nullptr));
}

void JudgeValues(const std::string& line) {
  subroutines::QuickViewRows rows;
  rows.Rebuild(1);
  try {
    rows.ParseRecordLine(line, 0);
  } catch (const platform::Failure& failure) {
    return Demand(failure.Number() == platform::failure::Overflow, "a value is beyond all bounds");
  }
  for (std::size_t channel = 0; channel < subroutines::QuickViewRows::Channels; ++channel) {
    const int number = static_cast<int>(channel) + 2;
    const bool last = channel == 7;
    const auto field = PlainRecording::Field(line, number);
    // The last one reaches to the end of the line.
    if (!field || (last && PlainRecording::Field(line, number + 1))) continue;
    if (const auto value = PlainValue(*field)) {
      Demand(rows.Column(channel)[0] == *value, "a value is the number that stands there");
    }
  }
}

void JudgeView(const std::string& text, const PlainRecording& plain, std::int32_t samples) {
  support::AnalysisScene scene;
  scene.Present.BaseSamples = samples;
  scene.Recorded(text);
  scene.Recorder.CWGraph2.Visible = false;
  try {
    scene.Analysis.ViewRecording();
  } catch (const platform::Failure& failure) {
    return Demand(failure.Number() == platform::failure::Overflow, "a value is beyond all bounds");
  }
  const bool shown = scene.Recorder.CWGraph2.Visible;
  Demand(shown == !plain.Lines().empty(), "what has a line is shown");
  if (!shown) return;
  const std::size_t lines = plain.Lines().size() + (plain.Rest.empty() ? 0 : 1);
  const auto group = static_cast<std::size_t>(samples);
  const std::vector<double>& points = scene.Recorder.CWGraph2.Plots[0].Y;
  Demand(points.size() == (lines + group - 1) / group, "each group is a point");
}

void JudgeCheck(fuzz::ConsoleBench& bench, const std::string& path, const PlainRecording& plain) {
  const ExitCode code = bench.Order({"check", path, "--json", "--log"});
  const auto counters = plain.Counters();
  if (!counters || code != ExitCode::Done) return;
  const nlohmann::json told = bench.ToldJson().at("recordings").at(0);
  const auto lost = PlainRecording::Lost(*counters, told.at("round").get<std::int32_t>());
  Demand(lost.has_value(), "what is checked can be");
  Demand(told.at("received") == counters->size() && told.at("lost") == *lost,
         "a check counts what is there and what is missing");
  std::int64_t gaps = 0;
  for (const nlohmann::json& gap : told.at("gaps")) gaps += gap.at("missing").get<std::int64_t>();
  Demand(gaps == *lost, "the gaps are what is missing");
}

/// The number in front of these words in the notes of a conversion.
std::int64_t Noted(const std::string& notes, const std::string& words) {
  const std::size_t at = notes.find(words);
  if (at == std::string::npos) return 0;
  const std::size_t begin = notes.rfind(": ", at) + 2;
  return std::atoll(notes.c_str() + begin);
}

void JudgeConversion(fuzz::ConsoleBench& bench, const std::string& path,
                     const PlainRecording& plain, std::uint8_t form) {
  const auto counters = plain.Counters();
  const auto missing = counters ? PlainRecording::Lost(*counters, 65536) : std::nullopt;
  if (!missing || *missing > MostMissing) return;
  constexpr std::array<std::array<const char*, 2>, 5> Forms = {{{"comtrade-1999", "--binary"},
                                                                {"comtrade-2013", "--binary32"},
                                                                {"comtrade-2013", "--float"},
                                                                {"cff", "--binary"},
                                                                {"comtrade-1999", ""}}};
  const auto& [to, kind] = Forms[form % Forms.size()];
  std::vector<std::string> words = {"convert", path, "--to", to, "--force"};
  if (*kind != '\0') words.emplace_back(kind);
  words.insert(words.end(), {"--start", "2026-11-21 18:04:09", "--round", "4000"});
  if (bench.Order(words) != ExitCode::Done || *kind != '\0') return;
  const std::string notes = bench.NotesText();
  const auto lines = static_cast<std::int64_t>(plain.Lines().size());
  const std::int64_t samples = lines + Noted(notes, " lost by the counter") -
                               Noted(notes, " doubled, and") - Noted(notes, " sent before");
  const std::string data = support::BytesOf(bench.File("recording.dat"));
  Demand(std::count(data.begin(), data.end(), '\n') == samples, "each sample is converted once");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::ConsoleBench bench;
  fuzz::Script script({data, size});
  const std::uint8_t form = script.Byte();
  const std::int64_t round = form < 128 ? LogRound : 4800;
  const std::string text = script.Yes() ? Grown(script, round) : script.Rest();
  const PlainRecording plain(text);
  JudgeLog(text, plain);
  for (const std::string& line : plain.Lines()) JudgeValues(line);
  JudgeView(text, plain, form % 7 + 1);
  const std::string path = bench.File("recording.txt");
  console::WriteFile(path, text);
  JudgeCheck(bench, path, plain);
  JudgeConversion(bench, path, plain, form);
  bench.Clear();
  return 0;
}
