#include "adapters/capture_file_reader.h"

#include <pcap/pcap.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

#include "platform/failure.h"

namespace adapters {

using platform::Failure;
namespace failure = platform::failure;

namespace {

/// Beyond this a time stamp is damage, and its nanoseconds would not fit the number that holds
/// them.
constexpr std::int64_t LargestSeconds = 4'000'000'000;

std::chrono::nanoseconds TimeOf(const pcap_pkthdr& header) {
  const auto seconds = std::clamp<std::int64_t>(header.ts.tv_sec, -LargestSeconds, LargestSeconds);
  const auto nanoseconds = std::clamp<std::int64_t>(header.ts.tv_usec, 0, 999'999'999);
  return std::chrono::seconds(seconds) + std::chrono::nanoseconds(nanoseconds);
}

Failure CannotOpen(const std::filesystem::path& file, const std::string& words) {
  const std::string name = "The capture file " + file.string();
  std::error_code error;
  const bool exists = std::filesystem::exists(file, error);
  if (!exists && !error) {
    return {failure::FileNotFound, name +
                                       " is gone. Please put it back, or choose another network "
                                       "adapter in the Setup."};
  }
  if (words.find(std::strerror(EACCES)) != std::string::npos) {
    return {failure::PermissionDenied, name +
                                           " may not be read. Please give yourself the right to "
                                           "read it."};
  }
  return {failure::DeviceIo, name + " cannot be played: " + words +
                                 ". Please put a sound Ethernet "
                                 "capture in its place, or choose another network adapter in "
                                 "the Setup."};
}

}  // namespace

CaptureFileReader::CaptureFileReader(std::filesystem::path file) : file_(std::move(file)) {
  Open();
}

void CaptureFileReader::Open() {
  std::array<char, PCAP_ERRBUF_SIZE> words{};
  handle_.reset(pcap_open_offline_with_tstamp_precision(file_.string().c_str(),
                                                        PCAP_TSTAMP_PRECISION_NANO, words.data()));
  if (!handle_) throw CannotOpen(file_, words.data());
  if (pcap_datalink(handle_.get()) != DLT_EN10MB) {
    handle_.reset();
    throw CannotOpen(file_, "it does not hold Ethernet frames");
  }
}

std::optional<RecordedFrame> CaptureFileReader::Next() {
  if (!handle_ || !damage_.empty()) return std::nullopt;
  pcap_pkthdr* header = nullptr;
  const u_char* bytes = nullptr;
  const int read = pcap_next_ex(handle_.get(), &header, &bytes);
  if (read == 1) {
    ++framesRead_;
    // A careless writer may note a true length below what it stored.
    const std::size_t length = std::max(header->len, header->caplen);
    return RecordedFrame{{{bytes, header->caplen}, length}, TimeOf(*header)};
  }
  if (read == PCAP_ERROR) damage_ = pcap_geterr(handle_.get());
  return std::nullopt;
}

void CaptureFileReader::Rewind() {
  framesRead_ = 0;
  damage_.clear();
  Open();
}

bool IsPlayable(const std::filesystem::path& file) {
  try {
    return CaptureFileReader(file).Next().has_value();
  } catch (const Failure&) {
    return false;
  }
}

}  // namespace adapters
