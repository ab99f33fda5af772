#include "adapters/system_bus_taps.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "adapters/capture_files.h"
#include "adapters/files/file_tap.h"
#include "adapters/interfaces/pcap_source.h"
#include "adapters/place_capture.h"
#include "adapters/simulated/simulated_bus.h"
#include "adapters/source_tap.h"

namespace adapters {

NamedPlace PlaceOfName(const std::string& name, const std::filesystem::path& captures) {
  if (name == SimulatedName) return {NamedPlace::Kind::Simulated, name, {}};
  std::error_code error;
  const std::filesystem::path path(std::u8string(name.begin(), name.end()));
  if (IsCaptureFileName(path) || std::filesystem::is_regular_file(path, error)) {
    const std::filesystem::path stored = captures / path;
    const bool isStored = !std::filesystem::exists(path, error) && !captures.empty() &&
                          std::filesystem::exists(stored, error);
    return {NamedPlace::Kind::File, {}, isStored ? stored : path};
  }
  return {NamedPlace::Kind::Interface, name, {}};
}

SystemBusTaps::SystemBusTaps(const platform::Clock& clock, CaptureSurroundings around,
                             InterfaceLister listInterfaces)
    : clock_(clock), around_(std::move(around)), listInterfaces_(std::move(listInterfaces)) {}

std::vector<platform::CapturePlace> SystemBusTaps::Places() {
  advice_ = {};
  std::vector<platform::CapturePlace> places;
  places.push_back({SimulatedName, SimulatedTitle, true});
  for (const NetworkInterface& found : listInterfaces_()) {
    advice_.AddInterface(found);
    places.push_back({found.Name, found.Title + WhyNot(found.State), found.State == Reach::Ready});
  }
  for (const std::filesystem::path& file : CaptureFiles(around_.Captures)) {
    const std::string trouble = WhyUnplayable(file);
    if (!trouble.empty()) advice_.AddFile(file, trouble);
    places.push_back({file.filename().string(), FileTitle(file, trouble.empty()), trouble.empty()});
  }
  return places;
}

std::string SystemBusTaps::Advice() const {
  return advice_.Text(around_.RightAdvice);
}

std::unique_ptr<platform::BusTap> SystemBusTaps::Open(const std::string& name,
                                                      platform::TapPace pace) {
  const NamedPlace place = PlaceOfName(name, around_.Captures);
  switch (place.What) {
    case NamedPlace::Kind::Simulated:
      return std::make_unique<SourceTap>(std::make_unique<SimulatedBus>(clock_), clock_);
    case NamedPlace::Kind::File:
      return std::make_unique<FileTap>(place.File, clock_, pace);
    default:
      return std::make_unique<SourceTap>(NewSource(place.Name), clock_);
  }
}

std::unique_ptr<FrameSource> SystemBusTaps::NewSource(const std::string& name) const {
  // A name written wrongly, or a card that the system has not found yet: who restarts the program
  // until it is there must not take it for a wrong command line.
  if (PresentState(name) == Reach::Missing) {
    throw platform::Failure(platform::failure::DeviceIo,
                            "There is no adapter " + name + "; 'vornik-cli adapters' lists them.");
  }
  return std::make_unique<PcapSource>(name, around_.RightAdvice);
}

std::string SystemBusTaps::TitleOfInterface(const std::string& name) const {
  const std::vector<NetworkInterface> found = listInterfaces_();
  const auto named =
      std::find_if(found.begin(), found.end(), [&](const auto& each) { return each.Name == name; });
  return named == found.end() ? name : named->Title;
}

std::unique_ptr<platform::NamedCapture> SystemBusTaps::OpenCapture(const std::string& name,
                                                                   platform::TapPace pace) {
  const NamedPlace place = PlaceOfName(name, around_.Captures);
  switch (place.What) {
    case NamedPlace::Kind::Simulated:
      return std::make_unique<LiveCapture>(SimulatedTitle, std::make_unique<SimulatedBus>(clock_),
                                           clock_);
    case NamedPlace::Kind::File:
      return std::make_unique<FileCapture>(place.File, clock_, pace);
    default:
      return std::make_unique<LiveCapture>(TitleOfInterface(place.Name), NewSource(place.Name),
                                           clock_);
  }
}

}  // namespace adapters
