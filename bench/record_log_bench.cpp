// What follows a text recording, beside a count of the same file's lines as `wc -l` makes it. The
// argument is the number of lines; all figures are of one file in the page cache.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstring>
#include <numbers>
#include <string>
#include <vector>

#include "bench_platform.h"
#include "recorder/reading/record_analysis.h"
#include "recorder/writing/writing.h"
#include "support/real_files.h"

namespace {

constexpr std::int32_t LinesOfAnHour = 3600 * 4000;
constexpr const char* Name = "SV record 09.03.2024 14-05-07.txt";

/// The lines of one second without their counter: sines of 80 samples in thousandths.
std::vector<std::string> SecondOfLines() {
  std::vector<std::string> lines;
  const platform::NumberText numbers;
  for (int i = 0; i < 4000; ++i) {
    std::string& line = lines.emplace_back(";" + std::to_string(i));
    for (int channel = 0; channel < 8; ++channel) {
      const double turn = i / 80.0 - channel % 4 / 3.0;
      const double value = (channel < 4 ? 400 : 63) * std::sin(2 * std::numbers::pi * turn);
      line += ';' + numbers.General(std::round(value * 1000) / 1000);
    }
    line += "\r\n";
  }
  return lines;
}

/// A recording in a folder of its own, and what reads it back.
class Recording {
 public:
  explicit Recording(std::int32_t lines) {
    settings_.StoragePath = folder_.Path();
    settings_.FileFormat = "TXT";
    state_.RecordFileName = Name;
    present_.BaseSamples = 4000;
    frame_.Redim(200);
    frame_.Copy(std::vector<std::uint8_t>(150));
    const std::vector<std::string> second = SecondOfLines();
    const auto file = files_.Create(Path());
    std::string block;
    for (std::int32_t i = 0; i < lines; ++i) {
      block += std::to_string(i) + second[static_cast<std::size_t>(i % 4000)];
      if (i % 4000 != 3999 && i + 1 != lines) continue;
      file->Write(block);
      block.clear();
    }
    file->Close();
  }

  std::string Path() const { return folder_.File(Name); }
  std::int64_t Bytes() const { return files_.FileSize(Path()); }
  void BuildRecordLog() {
    bool nothing = false;
    analysis_.BuildRecordLog(nothing);
  }
  void ViewRecording() { analysis_.ViewRecording(); }

 private:
  support::TemporaryFolder folder_;
  support::RealFiles files_;
  bench::BenchPlatform played_;
  adapters::Windows1252 code_;
  platform::NumberText numbers_;
  config::Settings settings_;
  config::RunSettings present_;
  packetroutines::AcquisitionState state_;
  packetroutines::RecordRings rings_;
  packetroutines::PacketBytes frame_;
  forms::RecorderControls recorder_;
  packetroutines::RecorderServices platform_{
      .Usual = {played_.Events, played_.Dialogs, played_.Runtime},
      .Code = code_,
      .Numbers = numbers_,
      .Files = files_,
      .Calendar = played_.Calendar,
      .Pointer = played_.Pointer,
      .Links = played_.Links,
      .Timers = played_.Timers,
      .Sleep = played_.Sleep,
      .Sync = nullptr};
  packetroutines::Writing writing_{recorder_, settings_, present_, state_, rings_, platform_};
  packetroutines::RecordAnalysis analysis_{
      {settings_, present_, state_, writing_.Formats, writing_.Open, platform_}, frame_, recorder_};
};

Recording& RecordingOf(std::int64_t lines) {
  static std::int64_t made = 0;
  static std::unique_ptr<Recording> recording;
  if (made != lines) {
    recording.reset();
    recording = std::make_unique<Recording>(static_cast<std::int32_t>(lines));
    made = lines;
  }
  return *recording;
}

std::int64_t CountLineFeeds(const std::string& path) {
  std::array<char, std::size_t{256} * 1024> piece{};
  std::int64_t count = 0;
  const int file = ::open(path.c_str(), O_RDONLY);
  for (ssize_t bytes = 0; (bytes = ::read(file, piece.data(), piece.size())) > 0;) {
    const char* at = piece.data();
    const char* const end = at + bytes;
    while ((at = static_cast<const char*>(std::memchr(at, '\n', end - at))) != nullptr) {
      ++count;
      ++at;
    }
  }
  ::close(file);
  return count;
}

void Tell(benchmark::State& state, const Recording& recording) {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["MB_resident_peak"] = static_cast<double>(usage.ru_maxrss) / 1024;
  state.SetBytesProcessed(state.iterations() * recording.Bytes());
}

void LineFeeds(benchmark::State& state) {
  const Recording& recording = RecordingOf(state.range(0));
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(CountLineFeeds(recording.Path()));
  Tell(state, recording);
}

/// The command itself, with its start.
void WordCount(benchmark::State& state) {
  const Recording& recording = RecordingOf(state.range(0));
  const std::string command = "wc -l '" + recording.Path() + "' > /dev/null";
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(std::system(command.c_str()));
  Tell(state, recording);
}

void Log(benchmark::State& state) {
  Recording& recording = RecordingOf(state.range(0));
  for ([[maybe_unused]] auto _ : state) recording.BuildRecordLog();
  Tell(state, recording);
}

void QuickView(benchmark::State& state) {
  Recording& recording = RecordingOf(state.range(0));
  for ([[maybe_unused]] auto _ : state) recording.ViewRecording();
  Tell(state, recording);
}

BENCHMARK(LineFeeds)
    ->Name("Recording/LineFeeds")
    ->Arg(LinesOfAnHour)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(WordCount)
    ->Name("Recording/wc")
    ->Arg(LinesOfAnHour)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Log)
    ->Name("Recording/Log")
    ->Arg(LinesOfAnHour)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(QuickView)
    ->Name("Recording/QuickView")
    ->Arg(LinesOfAnHour)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
