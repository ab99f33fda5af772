#include "adapters/capture_files.h"

#include <algorithm>
#include <cctype>
#include <system_error>

namespace adapters {

std::string WhyNot(Reach state) {
  switch (state) {
    case Reach::Ready:
      return {};
    case Reach::NoRight:
      return ", no right to capture";
    case Reach::Down:
      return ", switched off";
    default:
      return ", cannot capture";
  }
}

bool IsCaptureFileName(const std::filesystem::path& file) {
  std::string extension = file.extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension == ".pcap" || extension == ".pcapng";
}

std::vector<std::filesystem::path> CaptureFiles(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error);
  while (!error && entry != std::filesystem::directory_iterator()) {
    std::error_code notKnown;
    if (entry->is_regular_file(notKnown) && IsCaptureFileName(entry->path())) {
      files.push_back(entry->path());
    }
    entry.increment(error);
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string FileTitle(const std::filesystem::path& file, bool playable) {
  return file.filename().string() + " (capture file)" + (playable ? "" : ", cannot be played");
}

std::string TitleForThisRun(const std::filesystem::path& file) {
  return file.filename().string() + " (capture file, until the program ends)";
}

}  // namespace adapters
