#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <string>

#include "capture/consumers.h"
#include "platform/stream_format.h"
#include "shell/application.h"

namespace console {

/// What the window shows of a block: the texts of the Values and of the Phasor page.
struct BlockReading {
  struct Channel {
    std::string Name;
    std::string Unit;
    std::string Rms;
    /// Without the "DC:" in front.
    std::string Dc;
    std::string Magnitude;
    /// In degrees, against voltage A.
    std::string Angle;
  };

  /// When its last frame came, since 1970 began in Greenwich.
  std::chrono::microseconds At{0};
  std::array<Channel, platform::channels::Count> Channels;
};

/// Has both pages measure the same blocks: a run of the Values page hands each to the Phasor page
/// too, which reads the rows that are there, so that a block is taken from the bus once.
class BlockReadings : public packetroutines::BlockConsumers {
 public:
  using Take = std::function<void(const BlockReading&)>;

  BlockReadings(formroutines::Application& program, Take take);

  void CalculateValues() override;
  void ClearValues() override { program_.LiveViews.Values.ClearValues(); }
  // The other pages do not run.
  void PlotBlock(const char*) override {}
  void UpdatePhases() override {}

 private:
  BlockReading Read() const;

  formroutines::Application& program_;
  Take take_;
};

}  // namespace console
