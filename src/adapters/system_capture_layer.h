#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "adapters/capture_advice.h"
#include "adapters/channel_layer.h"
#include "adapters/interfaces/network_interface.h"
#include "platform/clock.h"

namespace adapters {

/// Where the capture layer finds what it needs outside the program.
struct CaptureSurroundings {
  /// The folder of the capture files; it need not exist.
  std::filesystem::path Captures;
  /// What to do where the right to capture is missing.
  std::string RightAdvice = {};
};

/// The capture library of this computer: the simulated bus, the network interfaces and the capture
/// files.
class SystemCaptureLayer : public ChannelLayer {
 public:
  using InterfaceLister = std::function<std::vector<NetworkInterface>()>;

  SystemCaptureLayer(const platform::Clock& clock, CaptureSurroundings around,
                     InterfaceLister listInterfaces = ListNetworkInterfaces);
  /// Tells of the interfaces and files as they were found for the last capture object.
  std::string Advice() const override;
  std::int32_t AddFile(const std::string& path) override;

 private:
  Entries NewEntries() override;
  void AddInterfaces(Entries& entries);
  void AddFiles(Entries& entries);

  const platform::Clock& clock_;
  CaptureSurroundings around_;
  InterfaceLister listInterfaces_;
  CaptureAdvice advice_;
  /// The files that were added to the list in use, with their places.
  std::map<std::filesystem::path, std::int32_t> added_;
};

}  // namespace adapters
