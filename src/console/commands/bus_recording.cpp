#include "console/commands/bus_recording.h"

#include <utility>

#include "base/failure.h"
#include "base/hex_text.h"
#include "console/commands/listening.h"
#include "recorder/writing/record_names.h"
#include "sv/frame.h"

namespace console {

namespace {

constexpr std::chrono::seconds ProgressOnTerminal{1};
constexpr std::chrono::minutes ProgressElsewhere{1};

}  // namespace

BusRecording::BusRecording(const Machine& machine, const Setup& setup,
                           std::chrono::duration<double> every, std::optional<double> frequency)
    : machine_(machine),
      setup_(setup),
      every_(every),
      frequency_(frequency),
      notes_(machine.Notes, machine.OnTerminal) {
  for (std::size_t station = 0; station < setup.Stations.size(); ++station) {
    stations_[machine.Code.FromUtf8(setup.Stations[station])].Recording =
        std::make_unique<StreamRecording>(machine.Files, machine.Calendar, WishOf(station));
  }
}

StreamRecording::Wish BusRecording::WishOf(std::size_t station) {
  StreamRecording::Wish wish;
  wish.Station = setup_.Stations[station];
  wish.Frequency = frequency_;
  wish.Every = every_;
  // As the files of two streams are named everywhere.
  const std::string prefix =
      setup_.Stations.size() == 1 ? std::string() : std::to_string(station + 1) + "_";
  wish.PathOf = [this, prefix](const platform::LocalTime& start) {
    return setup_.Folder + machine_.Files.Separator() + prefix +
           packetroutines::RecordName(start, "");
  };
  wish.Stored = [this](const std::string& path) {
    if (machine_.Sync != nullptr) machine_.Sync->Sync(path);
  };
  wish.Finished = [this](const std::string& path) {
    if (machine_.Sync != nullptr) machine_.Sync->Sync(path);
    notes_.Close();
    machine_.Results << path << std::endl;
  };
  return wish;
}

void BusRecording::Take(const platform::CapturedFrame& captured) {
  const sv::Frame frame = sv::ReadFrame(captured.Bytes, captured.Length);
  if (frame.Why != sv::Fault::None) return;
  sv::AsduReader reader(frame);
  asdus_.clear();
  for (sv::Asdu asdu; reader.Next(asdu);) {
    // ASDUs of one stream stand together.
    if (!asdus_.empty() && asdus_.front().SvId != asdu.SvId) {
      Record(frame.Source, captured.Arrived);
      asdus_.clear();
    }
    asdus_.push_back(asdu);
  }
  if (!asdus_.empty()) Record(frame.Source, captured.Arrived);
}

void BusRecording::Record(const sv::Address& sender, std::chrono::microseconds arrived) {
  const auto found = stations_.find(asdus_.front().SvId);
  if (found == stations_.end()) return;
  Station& station = found->second;
  if (!station.Sender) station.Sender = sender;
  if (station.Sender == sender) {
    station.Recording->Take(asdus_, arrived);
    return;
  }
  if (std::exchange(station.ToldOfOther, true)) return;
  notes_.Tell(platform::HexAddressText(sender) + " sends as " + machine_.Code.ToUtf8(found->first) +
              ", too; only " + platform::HexAddressText(*station.Sender) +
              ", which came first, is recorded.");
}

void BusRecording::ShowProgress() {
  const std::chrono::nanoseconds now = machine_.Clock.Now();
  const std::chrono::nanoseconds pause =
      machine_.OnTerminal ? std::chrono::nanoseconds(ProgressOnTerminal) : ProgressElsewhere;
  if (now - shown_ < pause) return;
  shown_ = now;
  std::string line;
  for (const auto& [id, station] : stations_) {
    line += (line.empty() ? "" : ", ") + machine_.Code.ToUtf8(id) + ": " +
            std::to_string(station.Recording->Samples()) + " samples, " +
            std::to_string(station.Recording->Missing()) + " missing";
  }
  notes_.ShowProgress(line);
}

void BusRecording::FinishAll() {
  // Each file is finished, whatever keeps another one from it.
  std::optional<platform::Failure> met;
  for (const auto& [id, station] : stations_) {
    try {
      station.Recording->Finish();
    } catch (const platform::Failure& failure) {
      met = failure;
    }
  }
  if (met) throw platform::Failure(*met);
}

ExitCode BusRecording::Outcome() const {
  ExitCode code = ExitCode::Done;
  for (const auto& [id, station] : stations_) {
    const std::string name = machine_.Code.ToUtf8(id);
    if (station.Recording->Samples() == 0) {
      machine_.Notes << "vornik-cli: nothing came of the station " << name << "." << std::endl;
      code = ExitCode::NothingReceived;
    }
    if (station.Recording->Missing() > 0) {
      machine_.Notes << "vornik-cli: " << station.Recording->Missing() << " samples of " << name
                     << " were lost; they stand as missing, or between two files." << std::endl;
    }
    if (station.Recording->Unfit() > 0) {
      machine_.Notes << "vornik-cli: " << station.Recording->Unfit() << " samples of " << name
                     << " were left out; they are not like the first one." << std::endl;
    }
  }
  return code;
}

ExitCode BusRecording::Run(std::optional<double> seconds) {
  Listening listening(setup_.Adapter, setup_.Pace, seconds);
  listening.Begin(machine_);
  listening.ClockSet = [this](std::chrono::microseconds step) {
    for (const auto& [id, station] : stations_) station.Recording->SetClock(step);
  };
  shown_ = machine_.Clock.Now();
  std::optional<platform::Failure> met;
  try {
    listening.Go([this](const platform::CapturedFrame& frame) { Take(frame); },
                 [this] {
                   ShowProgress();
                   return true;
                 });
  } catch (const platform::Failure& failure) {
    met = failure;
  }
  notes_.Close();
  try {
    FinishAll();
  } catch (const platform::Failure& failure) {
    // What began it tells more than what followed.
    if (!met) met = failure;
  }
  listening.TellTrouble();
  if (met) throw platform::Failure(*met);
  if (machine_.Sync != nullptr) machine_.Sync->Finish(std::chrono::seconds(2));
  if (!listening.Tap().Trouble().empty()) return ExitCode::FileTrouble;
  return Outcome();
}

}  // namespace console
