// Whatever bytes stand in a capture file: all ways to read it give the same frames, nothing beyond
// the file, and the commands end in an orderly way.

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/files/capture_file_reader.h"
#include "adapters/files/file_source.h"
#include "adapters/files/file_tap.h"
#include "adapters/hand_clock.h"
#include "fuzz/captures/plain_capture.h"
#include "fuzz/console_bench.h"
#include "fuzz/script.h"

namespace {

using console::ExitCode;
using fuzz::Demand;
using std::chrono_literals::operator""h;

/// A frame as it was read: its bytes, and its length on the wire.
using Frame = std::pair<std::string, std::size_t>;
using Frames = std::vector<Frame>;

Frame Taken(const platform::CapturedFrame& frame) {
  return {std::string(frame.Bytes.begin(), frame.Bytes.end()), frame.Length};
}

Frames ReadAll(adapters::CaptureFileReader& reader) {
  Frames frames;
  while (const auto next = reader.Next()) frames.push_back(Taken(next->Frame));
  Demand(reader.FramesRead() == frames.size(), "each frame counts once");
  return frames;
}

void JudgeFrames(const Frames& frames, std::string_view file) {
  std::size_t bytes = 0;
  for (const auto& [content, length] : frames) {
    Demand(length >= content.size(), "a frame is at least as long as what is stored of it");
    bytes += content.size();
  }
  Demand(bytes <= file.size(), "the frames are not more than the file");
  fuzz::PlainCapture plain(file);
  for (std::size_t i = 0; const auto record = plain.Next(); ++i) {
    Demand(i < frames.size(), "no sound frame is left out");
    Demand(frames[i] == Frame(record->Bytes, record->Length), "a frame is read as it stands");
  }
}

/// The file as a bus, each frame once.
Frames Listened(const std::string& path, platform::TapPace pace) {
  adapter_tests::HandClock clock;
  adapters::FileTap tap(path, clock, pace);
  Frames frames;
  while (!tap.Ended()) {
    if (const auto frame = tap.Next()) frames.push_back(Taken(*frame));
    clock.Time += 1h;
  }
  return frames;
}

Frames Played(const std::string& path) {
  adapter_tests::HandClock clock;
  adapters::FileSource source(path, clock, adapters::FilePlay::Once);
  Frames frames;
  source.Prepare({262144, true, ""});
  source.Start();
  while (!source.Ended()) {
    if (const auto frame = source.Next()) frames.push_back(Taken(*frame));
    clock.Time += 1h;
  }
  return frames;
}

/// What a filter selects is some of the frames; played over and over the file comes again.
void PlayOver(const std::string& path, const Frames& frames) {
  adapter_tests::HandClock clock;
  adapters::FileSource source(path, clock);
  source.Prepare({262144, true, "ether proto 0x88ba"});
  source.Start();
  for (std::size_t i = 0; i < 2 * frames.size() + 2; ++i) {
    if (const auto frame = source.Next()) {
      Demand(std::ranges::find(frames, Taken(*frame)) != frames.end(), "a frame is of the file");
    }
    clock.Time += 1h;
  }
}

void JudgeReading(const std::string& path, std::string_view file) {
  std::optional<adapters::CaptureFileReader> reader;
  try {
    reader.emplace(path);
  } catch (const platform::Failure& failure) {
    Demand(failure.Text().find(path) != std::string::npos, "a failure names the file");
    Demand(!adapters::WhyUnplayable(path).empty(), "a file that is refused is so for a reason");
    Demand(!fuzz::PlainCapture(file).Sound(), "a sound file is not refused");
    return;
  }
  const Frames frames = ReadAll(*reader);
  JudgeFrames(frames, file);
  Demand(reader->Rewind() && ReadAll(*reader) == frames, "a second pass gives the same frames");
  for (const auto pace : {platform::TapPace::AsFastAsRead, platform::TapPace::AsRecorded}) {
    Demand(Listened(path, pace) == frames, "a bus brings each frame once");
  }
  Demand(adapters::WhyUnplayable(path).empty() == !frames.empty(), "what has a frame is playable");
  if (frames.empty()) return;
  Demand(Played(path) == frames, "a file that is played once gives each frame once");
  PlayOver(path, frames);
}

void RunCommand(fuzz::ConsoleBench& bench, std::uint8_t which, const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  switch (which % 8) {
    case 0: {
      const ExitCode code = bench.Order({"streams", path, "--fast", "--json"});
      if (code == ExitCode::Done)
        Demand(!bench.ToldJson().at("streams").empty(), "a bus has streams");
      return;
    }
    case 1:
      bench.Order({"report", path, "--fast"});
      return;
    case 2:
      bench.Order({"report", path, "--fast", "--json"});
      return;
    case 3:
      bench.Order({"watch", path, "--fast", "--metrics", bench.File("metrics.prom")});
      return;
    case 4:
      bench.Order(
          {"values", path, "--fast", "--station", "MU01", "--blocks", "2", "--samplings", "8"});
      return;
    case 5:
      bench.Order({"record", path, "--fast", "--folder", folder, "--format", "cff"});
      return;
    case 6:
      bench.Order(
          {"record", path, "--fast", "--folder", folder, "--station", "MU01", "--format", "text"});
      return;
    default:
      return;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::ConsoleBench bench;
  fuzz::Script script({data, size});
  const std::uint8_t command = script.Byte();
  const std::string file = script.Rest();
  const std::string path = bench.File("bus.pcap");
  std::ofstream(path, std::ios::binary) << file;
  JudgeReading(path, file);
  RunCommand(bench, command, path);
  if (command % 8 > 2) bench.Clear();
  return 0;
}
