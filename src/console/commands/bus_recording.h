#pragma once

#include <map>
#include <memory>
#include <optional>
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
  /// `every` is the time of a file, 0 for all; `frequency` is given where the user told it, in Hz.
  BusRecording(const Machine& machine, const Setup& setup, std::chrono::duration<double> every,
               std::optional<double> frequency);

  /// Until the time is over, a capture file ends or the user ends it.
  ExitCode Run(std::optional<double> seconds);

 private:
  /// A station's recording, and whose frames are in it: two senders of one ID would be mixed.
  struct Station {
    std::unique_ptr<StreamRecording> Recording;
    std::optional<sv::Address> Sender;
    bool ToldOfOther = false;
  };

  void Take(const platform::CapturedFrame& captured);
  void Record(const sv::Address& sender, std::chrono::microseconds arrived);
  StreamRecording::Wish WishOf(std::size_t station);
  void FinishAll();
  void ShowProgress();
  ExitCode Outcome() const;

  const Machine& machine_;
  const Setup& setup_;
  std::chrono::duration<double> every_;
  std::optional<double> frequency_;
  NoteLines notes_;
  /// The IDs in the sender's octets, and whose recordings they are.
  std::map<std::string, Station, std::less<>> stations_;
  std::chrono::nanoseconds shown_{0};
  /// Those of one stream that stand together in a frame.
  std::vector<sv::Asdu> asdus_;
};

}  // namespace console
