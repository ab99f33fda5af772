#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "console/comtrade/stream_recording.h"
#include "console/exit_code.h"
#include "console/machine.h"
#include "console/program/instrument.h"

namespace console {

/// Records stations straight from the bus, each into COMTRADE files of its own: what the whole
/// program has no format for, streams of any rate and number of channels.
class BusRecording {
 public:
  BusRecording(const Machine& machine, const Setup& setup, std::chrono::seconds every);

  /// Until the time is over, a capture file ends or the user ends it.
  ExitCode Run(std::optional<double> seconds);

 private:
  void Take(const platform::CapturedFrame& captured);
  StreamRecording::Wish WishOf(std::size_t station);
  void FinishAll();
  void ShowProgress();
  ExitCode Outcome() const;

  const Machine& machine_;
  const Setup& setup_;
  std::chrono::seconds every_;
  NoteLines notes_;
  /// The IDs in the sender's octets, and whose recordings they are.
  std::map<std::string, std::unique_ptr<StreamRecording>, std::less<>> recordings_;
  std::chrono::nanoseconds shown_{0};
  std::vector<sv::Asdu> asdus_;
};

}  // namespace console
