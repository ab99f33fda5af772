#include "console/commands/report.h"

#include "base/hex_text.h"
#include "base/shown_text.h"
#include "console/bus/stream_json.h"
#include "console/iso_time.h"
#include "sv/asdu.h"
#include "sv/frame_words.h"

namespace console {

namespace {

constexpr double UsualSeconds = 2;
/// A bus that shows more senders is out of its mind.
constexpr std::size_t MostStreams = 1024;

/// What tells one sender from another; also where the frame's structure is not whole.
std::string KeyOf(const sv::Frame& frame) {
  sv::AsduReader reader(frame);
  sv::Asdu asdu;
  reader.Next(asdu);
  const std::string vlan =
      frame.TagCount == 0 ? "-" : std::to_string(frame.Tags[frame.TagCount - 1].Vlan());
  return platform::HexAddressText(frame.Source) + platform::HexAddressText(frame.Destination) +
         platform::HexWordText(frame.AppId) + vlan + '/' + std::string(asdu.SvId);
}

std::string Title(const sv::WordLine& line) {
  constexpr std::size_t Width = 20;
  return line.Title.size() < Width ? line.Title + std::string(Width - line.Title.size(), ' ')
                                   : line.Title + ' ';
}

}  // namespace

CLI::App* ReportCommand::Declare(CLI::App& program) {
  CLI::App* const words = program.add_subcommand(
      "report", "Tell the next frame of each stream by its structure, with a dump");
  listening_.Declare(*words,
                     "listen for so long; 2 unless told, a capture file is read to its end");
  words->add_flag("--json", json_, "a line of JSON for each frame");
  words->footer("Example: vornik-cli report morning.pcapng --fast");
  return words;
}

void ReportCommand::Report(const platform::CapturedFrame& captured, const Machine& machine) {
  const sv::Frame frame = sv::ReadFrame(captured.Bytes, captured.Length);
  if (frame.Why == sv::Fault::HeadCut || frame.Why == sv::Fault::OtherEthertype) return;
  if (met_.size() == MostStreams || !met_.insert(KeyOf(frame)).second) return;
  const auto valueOf = [&](const sv::WordLine& line) {
    return line.Raw ? TextOf(line.Value, machine.Code) : line.Value;
  };
  if (json_) {
    Json fields = Json::array();
    for (const sv::WordLine& line : sv::FrameWords(frame)) {
      fields.push_back({{"title", line.Title}, {"value", valueOf(line)}});
    }
    const Json json{{"arrived", IsoTime(captured.Arrived)},
                    {"fields", fields},
                    {"dump", sv::DumpWords(captured.Bytes)}};
    machine.Results << json.dump() << std::endl;
    return;
  }
  if (met_.size() > 1) machine.Results << '\n';
  machine.Results << Title({"Arrived", {}, false}) << IsoTime(captured.Arrived) << '\n';
  for (const sv::WordLine& line : sv::FrameWords(frame)) {
    if (line.Value.empty() && !line.Raw) {
      machine.Results << '\n' << line.Title << '\n';
    } else {
      machine.Results << Title(line) << valueOf(line) << '\n';
    }
  }
  machine.Results << '\n';
  for (const std::string& line : sv::DumpWords(captured.Bytes)) machine.Results << line << '\n';
  machine.Results.flush();
}

ExitCode ReportCommand::Run(const Machine& machine) {
  listening_.Begin(machine);
  if (!listening_.Seconds && !listening_.Tap().Ends()) listening_.Seconds = UsualSeconds;
  listening_.Go([&](const platform::CapturedFrame& frame) { Report(frame, machine); },
                [&] { return machine.Results.good(); });
  listening_.TellTrouble();
  if (!listening_.Tap().Trouble().empty()) return ExitCode::FileTrouble;
  if (!met_.empty()) return ExitCode::Done;
  machine.Notes << "vornik-cli: no frame of sampled values came from " << listening_.Name() << "."
                << std::endl;
  return ExitCode::NothingReceived;
}

}  // namespace console
