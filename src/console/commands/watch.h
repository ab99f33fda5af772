#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "console/bus/alarms.h"
#include "console/bus/bus_streams.h"
#include "console/command.h"
#include "console/commands/listening.h"

namespace console {

/// Tells every stream of a bus once a second, for ever: as lines of JSON, as a file of metrics, and
/// by its exit code where something happens that is watched for.
class WatchCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  ExitCode Run(const Machine& machine) override;

 private:
  void SecondIsOver(BusStreams::Time at, const Machine& machine);
  void WriteMetrics(const Machine& machine);
  void LookForAlarms(const Machine& machine);

  Listening listening_;
  std::string metrics_;
  std::vector<AlarmKind> failOn_;
  std::uint32_t frequency_ = 50;
  std::optional<BusStreams> bus_;
  bool alarm_ = false;
  int secondsWithoutAny_ = 0;
  /// What kept the metrics from being written last; empty where nothing did.
  std::string metricsTrouble_;
};

}  // namespace console
