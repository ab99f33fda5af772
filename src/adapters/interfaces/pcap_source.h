#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "adapters/frame_source.h"
#include "adapters/interfaces/network_interface.h"
#include "adapters/pcap_handle.h"

namespace adapters {

/// Frames of a network interface. The interface stays open between a stop and the next start, with
/// a filter that lets nothing pass, because opening and closing a large ring would cost the time of
/// several hundred frames. One that goes away during a delivery is opened again when it is back,
/// and the delivery goes on.
class PcapSource : public FrameSource {
 public:
  /// Frames since the interface was opened: those that passed the filter, and those of them lost.
  struct Statistics {
    std::uint32_t Received = 0;
    std::uint32_t Dropped = 0;
  };

  /// `rightAdvice` is told where the right to capture is missing.
  PcapSource(std::string interfaceName, std::string rightAdvice);

  void Prepare(const SourceSettings& settings) override;
  void Start() override;
  void Stop() override;
  /// The bound is a time stamp of the system's clock, as the frames carry one.
  void TakeNoMore() override;
  void Release() override;
  platform::Presence Presence() override;
  std::optional<std::uint64_t> Dropped() override;
  std::optional<platform::CapturedFrame> Next() override;

  Statistics Counters() const;

 private:
  bool FitsOpenHandle(const SourceSettings& settings) const;
  void Open(const SourceSettings& settings);
  /// The interface as the settings ask for it.
  OpenResult Opened(const SourceSettings& settings) const;
  /// Looks from time to time whether an interface that was lost is back.
  void OpenAgain();
  /// Throws away what waits; finds out whether the interface is still there.
  void Drain();
  /// Fails where the interface is down or gone.
  void DemandUp();
  void RejectAll();
  /// Lets the selected frames of the open interface pass from now on.
  void Listen();
  void CompileFilter();
  /// A frame of the time before the start; nothing of that comes behind the first one that is not.
  bool CameBefore(std::chrono::microseconds arrived);
  /// The handle is about to go, and its count with it.
  void CountDropped();

  std::string name_;
  std::string rightAdvice_;
  SourceSettings settings_;
  PcapHandle handle_;
  /// The filter of the handle that is open; it is compiled at the first start.
  std::optional<FilterProgram> program_;
  std::string programText_;
  bool running_ = false;
  /// What the handles before this one have dropped.
  std::uint64_t dropped_ = 0;
  /// Where frames come in heaps: when those that are to be handed over began to come, until the
  /// first of them came.
  std::optional<std::chrono::microseconds> begun_;
  /// Frames that arrived later are not handed over.
  std::optional<std::chrono::microseconds> bound_;
  /// Reading failed: the handle is of no more use.
  bool lost_ = false;
  /// When to look next whether a lost interface is back.
  std::chrono::steady_clock::time_point nextLook_;
};

}  // namespace adapters
