#include "console/commands/watch.h"

#include <algorithm>
#include <map>

#include "base/failure.h"
#include "console/bus/metrics_text.h"
#include "console/bus/seconds.h"
#include "console/bus/stream_json.h"
#include "console/iso_time.h"

namespace console {

namespace {

/// A bus on which nothing has ever come is silent behind so many seconds.
constexpr int PatienceInSeconds = 5;

/// Nobody needs a file that could not become what it was made for.
void DropQuietly(platform::FileSystem& files, const std::string& path) {
  try {
    if (files.FileExists(path)) files.DeleteFile(path);
  } catch (const platform::Failure&) {
    // What keeps it from going is the trouble that is told already.
  }
}

/// A kind of alarm by its name, with a list of the names where there is none such.
CLI::Validator NameOfKind() {
  const auto take = [](std::string& text) {
    const std::map<std::string, AlarmKind> kinds{
        {"loss", AlarmKind::Loss}, {"synch", AlarmKind::Synch}, {"silence", AlarmKind::Silence}};
    const auto found = kinds.find(text);
    if (found == kinds.end()) return "'" + text + "' is none of loss, synch and silence";
    text = std::to_string(static_cast<int>(found->second));
    return std::string();
  };
  return {take, ""};
}

}  // namespace

CLI::App* WatchCommand::Declare(CLI::App& program) {
  CLI::App* const words = program.add_subcommand(
      "watch", "Tell every stream on a bus once a second, a line of JSON each, until Ctrl+C");
  listening_.Declare(*words, "watch for so long");
  words->add_option("--metrics", metrics_,
                    "write this file anew each second, for a Prometheus node exporter");
  words
      ->add_option("--fail-on", failOn_,
                   "end with code 5 at the first of these: loss, synch, silence")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->transform(NameOfKind())
      ->type_name("KIND[,KIND]");
  words->add_option("--frequency", frequency_, "nominal frequency in Hz, 50 unless told")
      ->check(CLI::IsMember({50, 60}));
  words->footer("Example: vornik-cli watch eth0 --fail-on loss,silence | mosquitto_pub -l -t bus");
  return words;
}

void WatchCommand::SecondIsOver(BusStreams::Time at, const Machine& machine) {
  for (const auto& stream : bus_->Streams()) {
    Json line{{"time", IsoTime(at)}};
    line.update(ToJson(*stream, machine.Code));
    line["channelReadings"] = ChannelsToJson(*stream);
    machine.Results << line.dump() << '\n';
  }
  machine.Results.flush();
  if (!metrics_.empty()) WriteMetrics(machine);
  LookForAlarms(machine);
  bus_->BeginStretch(at);
}

void WatchCommand::WriteMetrics(const Machine& machine) {
  // Who reads the file meets the whole of this second or the whole of the one before.
  const std::string fresh = metrics_ + ".new";
  std::string trouble;
  try {
    const auto file = machine.Files.Create(fresh);
    file->Write(MetricsText(*bus_, listening_.Name(), listening_.Tap().Dropped().value_or(0),
                            machine.Code));
    file->Close();
    machine.Files.Rename(fresh, metrics_);
  } catch (const platform::Failure& failure) {
    trouble = failure.Text();
    DropQuietly(machine.Files, fresh);
  }
  if (trouble == metricsTrouble_) return;
  machine.Notes << "vornik-cli: "
                << (trouble.empty() ? metrics_ + " is written again."
                                    : metrics_ + " is not written: " + trouble)
                << std::endl;
  metricsTrouble_ = trouble;
}

void WatchCommand::LookForAlarms(const Machine& machine) {
  const bool forSilence =
      std::find(failOn_.begin(), failOn_.end(), AlarmKind::Silence) != failOn_.end();
  if (forSilence && bus_->Streams().empty() && ++secondsWithoutAny_ == PatienceInSeconds) {
    alarm_ = true;
    machine.Notes << "vornik-cli: no stream has come yet." << std::endl;
  }
  for (const auto& stream : bus_->Streams()) {
    const std::optional<std::string> words = AlarmOf(*stream, failOn_, machine.Code);
    if (!words) continue;
    alarm_ = true;
    machine.Notes << "vornik-cli: " << *words << "." << std::endl;
  }
}

ExitCode WatchCommand::Run(const Machine& machine) {
  listening_.Begin(machine);
  bus_.emplace(frequency_);
  Seconds seconds(machine.Clock, [&](BusStreams::Time at) {
    if (!alarm_) SecondIsOver(at, machine);
  });
  listening_.ClockSet = [&](BusStreams::Time step) {
    bus_->SetClock(step);
    seconds.SetClock(step);
  };
  const auto take = [&](const platform::CapturedFrame& frame) {
    seconds.Frame(frame.Arrived);
    if (!alarm_) bus_->Take(frame);
  };
  // As long as frames wait, however late they are handed over, nobody is silent.
  listening_.Rests = [&] { seconds.Rest(listening_.Tap().Now()); };
  const auto more = [&] { return !alarm_ && machine.Results.good(); };
  listening_.Go(take, more);
  // The part of a second at the end is told too. Who has not come in it is not silent yet.
  std::erase(failOn_, AlarmKind::Silence);
  bus_->End();
  if (!alarm_ && bus_->AnyInStretch()) SecondIsOver(listening_.Tap().Now(), machine);
  listening_.TellTrouble();
  if (alarm_) return ExitCode::Alarm;
  if (!listening_.Tap().Trouble().empty() || !metricsTrouble_.empty()) return ExitCode::FileTrouble;
  if (!bus_->Streams().empty()) return ExitCode::Done;
  machine.Notes << "vornik-cli: no stream of sampled values came from " << listening_.Name() << "."
                << std::endl;
  return ExitCode::NothingReceived;
}

}  // namespace console
