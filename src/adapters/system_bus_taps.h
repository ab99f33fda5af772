#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "adapters/interfaces/network_interface.h"
#include "adapters/system_capture_layer.h"
#include "platform/clock.h"
#include "platform/services/bus_tap.h"
#include "platform/services/named_capture.h"

namespace adapters {

/// What a name on a command line means: "simulated", a capture file by its path or by its name in
/// the folder of the capture files, or a network interface.
struct NamedPlace {
  enum class Kind { Simulated, File, Interface };

  Kind What = Kind::Interface;
  /// Of an interface.
  std::string Name;
  std::filesystem::path File;
};

/// The name of the simulated bus.
inline constexpr const char* SimulatedName = "simulated";

NamedPlace PlaceOfName(const std::string& name, const std::filesystem::path& captures);

/// The places of this computer, each to be listened to as a whole, or by a program that measures
/// and records.
class SystemBusTaps : public platform::BusTaps, public platform::NamedCaptures {
 public:
  using InterfaceLister = SystemCaptureLayer::InterfaceLister;

  SystemBusTaps(const platform::Clock& clock, CaptureSurroundings around,
                InterfaceLister listInterfaces = ListNetworkInterfaces);

  std::vector<platform::CapturePlace> Places() override;
  std::string Advice() const override;
  std::unique_ptr<platform::BusTap> Open(const std::string& name, platform::TapPace pace) override;
  std::unique_ptr<platform::NamedCapture> OpenCapture(const std::string& name,
                                                      platform::TapPace pace) override;

 private:
  /// Fails where there is no such interface.
  std::unique_ptr<FrameSource> NewSource(const std::string& name) const;
  std::string TitleOfInterface(const std::string& name) const;

  const platform::Clock& clock_;
  CaptureSurroundings around_;
  InterfaceLister listInterfaces_;
  CaptureAdvice advice_;
};

}  // namespace adapters
