#include "adapters/system_capture_layer.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "adapters/capture_files.h"
#include "adapters/files/file_source.h"
#include "adapters/interfaces/pcap_source.h"
#include "adapters/simulated/simulated_bus.h"
#include "base/failure.h"

namespace adapters {

namespace {

/// What was dropped may be anything, and one that waits to be written to would hold up the program.
std::string WhyNoFile(const std::filesystem::path& file) {
  std::error_code error;
  if (std::filesystem::is_directory(file, error)) {
    return "is a folder. Please drop a capture file (.pcap, .pcapng).";
  }
  if (!std::filesystem::is_regular_file(file, error)) {
    return "is no file of this computer that can be read. Please drop a capture file (.pcap, "
           ".pcapng).";
  }
  return WhyUnplayable(file);
}

}  // namespace

SystemCaptureLayer::SystemCaptureLayer(const platform::Clock& clock, CaptureSurroundings around,
                                       InterfaceLister listInterfaces)
    : clock_(clock), around_(std::move(around)), listInterfaces_(std::move(listInterfaces)) {}

SystemCaptureLayer::Entries SystemCaptureLayer::NewEntries() {
  Entries entries;
  advice_ = {};
  added_.clear();
  entries.push_back(std::make_unique<SourceAdapter>(
      SimulatedTitle, true, std::make_unique<SimulatedBus>(clock_), clock_));
  AddInterfaces(entries);
  AddFiles(entries);
  // What cannot capture comes last, so that the places of the others are the same with and without
  // it.
  std::stable_partition(entries.begin(), entries.end(),
                        [](const auto& entry) { return entry->IsGood(); });
  return entries;
}

void SystemCaptureLayer::AddInterfaces(Entries& entries) {
  for (const NetworkInterface& found : listInterfaces_()) {
    advice_.AddInterface(found);
    entries.push_back(std::make_unique<SourceAdapter>(
        found.Title + WhyNot(found.State), found.State == Reach::Ready,
        std::make_unique<PcapSource>(found.Name, around_.RightAdvice), clock_));
  }
}

void SystemCaptureLayer::AddFiles(Entries& entries) {
  for (const std::filesystem::path& file : CaptureFiles(around_.Captures)) {
    const std::string trouble = WhyUnplayable(file);
    const bool playable = trouble.empty();
    if (!playable) advice_.AddFile(file, trouble);
    entries.push_back(std::make_unique<SourceAdapter>(
        FileTitle(file, playable), playable, std::make_unique<FileSource>(file, clock_), clock_));
  }
}

std::int32_t SystemCaptureLayer::AddFile(const std::string& path) {
  const std::filesystem::path file(std::u8string(path.begin(), path.end()));
  if (const auto known = added_.find(file); known != added_.end()) return known->second;
  const std::string trouble = WhyNoFile(file);
  if (!trouble.empty()) {
    throw platform::Failure(platform::failure::PathFileAccess,
                            file.filename().string() + " " + trouble);
  }
  return added_[file] = Insert(std::make_unique<SourceAdapter>(
             TitleForThisRun(file), true, std::make_unique<FileSource>(file, clock_), clock_));
}

std::string SystemCaptureLayer::Advice() const {
  return advice_.Text(around_.RightAdvice);
}

}  // namespace adapters
