#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "adapters/capture_advice.h"
#include "adapters/capture_channel.h"
#include "adapters/interfaces/network_interface.h"
#include "platform/clock.h"
#include "platform/services/capture_object.h"

namespace adapters {

/// Where the capture layer finds what it needs outside the program.
struct CapturePaths {
  /// The folder of the capture files; it need not exist.
  std::filesystem::path Captures;
  /// The program itself, named in the advice on missing rights; may be empty.
  std::filesystem::path Program;
};

/// The capture library of this computer: the simulated bus, the network interfaces and the capture
/// files. It brings the frames of the capture object made last to the program.
class SystemCaptureLayer : public platform::CaptureLayer, public platform::FrameDelivery {
 public:
  using InterfaceLister = std::function<std::vector<NetworkInterface>()>;

  SystemCaptureLayer(const platform::Clock& clock, CapturePaths paths,
                     InterfaceLister listInterfaces = ListNetworkInterfaces);
  SystemCaptureLayer(const SystemCaptureLayer&) = delete;
  SystemCaptureLayer& operator=(const SystemCaptureLayer&) = delete;
  ~SystemCaptureLayer() override;

  std::unique_ptr<platform::CaptureObject> NewCaptureObject() override;
  std::unique_ptr<platform::PacketCollection> NewPacketCollection() override;
  /// Tells of the interfaces and files as they were found for the last capture object.
  std::string Advice() const override;
  bool DeliverOne() override;

 private:
  using Entries = std::vector<std::unique_ptr<SourceAdapter>>;

  void AddInterfaces(Entries& entries);
  void AddFiles(Entries& entries);

  const platform::Clock& clock_;
  CapturePaths paths_;
  InterfaceLister listInterfaces_;
  CaptureAdvice advice_;
  std::shared_ptr<ChannelLink> link_;
};

}  // namespace adapters
