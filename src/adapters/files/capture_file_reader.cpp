#include "adapters/files/capture_file_reader.h"

#include <pcap/pcap.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

#include "base/failure.h"

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

/// An open capture file of an Ethernet; without a handle, the words say why there is none.
struct Opened {
  PcapHandle Handle;
  std::string Words;
};

Opened OpenFile(const std::filesystem::path& file) {
  std::array<char, PCAP_ERRBUF_SIZE> words{};
  // Else names are in the code page of the system, where it has one.
  pcap_init(PCAP_CHAR_ENC_UTF_8, words.data());
  Opened opened;
  opened.Handle.reset(pcap_open_offline_with_tstamp_precision(
      file.string().c_str(), PCAP_TSTAMP_PRECISION_NANO, words.data()));
  opened.Words = words.data();
  if (opened.Handle && pcap_datalink(opened.Handle.get()) != DLT_EN10MB) {
    opened = {nullptr, "it does not hold Ethernet frames"};
  }
  return opened;
}

/// What is wrong with a file and what to do, in words that follow its name.
struct Trouble {
  std::int32_t Number;
  std::string Words;
};

Trouble TroubleOf(const std::filesystem::path& file, const std::string& words) {
  std::error_code error;
  const bool exists = std::filesystem::exists(file, error);
  if (!exists && !error) return {failure::FileNotFound, "is gone. Please put it back"};
  if (words.find(std::strerror(EACCES)) != std::string::npos) {
    return {failure::PermissionDenied,
            "may not be read. Please give yourself the right to read it"};
  }
  return {failure::DeviceIo,
          "cannot be played: " + words + ". Please put a sound Ethernet capture in its place"};
}

Failure FailureOf(const std::filesystem::path& file, const std::string& words) {
  const Trouble trouble = TroubleOf(file, words);
  return {trouble.Number, "The capture file " + file.string() + " " + trouble.Words +
                              ", or choose another network adapter."};
}

}  // namespace

CaptureFileReader::CaptureFileReader(std::filesystem::path file) : file_(std::move(file)) {
  Open();
}

void CaptureFileReader::Open() {
  std::error_code error;
  written_ = std::filesystem::last_write_time(file_, error);
  Opened opened = OpenFile(file_);
  handle_ = std::move(opened.Handle);
  if (!handle_) throw FailureOf(file_, opened.Words);
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

bool CaptureFileReader::Rewind() {
  const std::filesystem::file_time_type before = written_;
  framesRead_ = 0;
  damage_.clear();
  Open();
  return written_ == before;
}

std::string WhyUnplayable(const std::filesystem::path& file) {
  Opened opened = OpenFile(file);
  if (opened.Handle) {
    pcap_pkthdr* header = nullptr;
    const u_char* bytes = nullptr;
    const int read = pcap_next_ex(opened.Handle.get(), &header, &bytes);
    if (read == 1) return {};
    opened.Words = read == PCAP_ERROR ? pcap_geterr(opened.Handle.get()) : "it holds no frame";
  }
  return TroubleOf(file, opened.Words).Words + ".";
}

}  // namespace adapters
