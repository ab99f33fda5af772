#pragma once

#include <pcap/pcap.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "live/wire.h"

namespace live {

using Frame = std::vector<std::uint8_t>;

/// Listens to the near end of the wire beside the program, so that a scene knows what was there to
/// be read.
class WireTap {
 public:
  /// `filter` is an expression of pcap.
  explicit WireTap(const std::string& filter)
      : handle_(pcap_create(NearEnd.c_str(), words_), pcap_close) {
    pcap_t* handle = handle_.get();
    pcap_set_snaplen(handle, SnapshotLength);
    pcap_set_buffer_size(handle, BufferBytes);
    pcap_set_timeout(handle, HandOverMs);
    if (pcap_activate(handle) < 0) throw std::runtime_error(pcap_geterr(handle));
    bpf_program program{};
    if (pcap_compile(handle, &program, filter.c_str(), 1, PCAP_NETMASK_UNKNOWN) < 0) {
      throw std::runtime_error(pcap_geterr(handle));
    }
    pcap_setfilter(handle, &program);
    pcap_freecode(&program);
    pcap_setnonblock(handle, 1, words_);
  }

  /// Adds what has come since the last time.
  void TakeTo(std::vector<Frame>& frames) {
    const auto add = [](u_char* to, const pcap_pkthdr* head, const u_char* bytes) {
      reinterpret_cast<std::vector<Frame>*>(to)->emplace_back(bytes, bytes + head->caplen);
    };
    pcap_dispatch(handle_.get(), -1, add, reinterpret_cast<u_char*>(&frames));
  }
  /// Adds all that was on the wire up to now.
  void TakeAllTo(std::vector<Frame>& frames) {
    std::this_thread::sleep_for(std::chrono::milliseconds(3 * HandOverMs));
    TakeTo(frames);
  }
  /// Frames that it had no room for.
  unsigned Missed() const {
    pcap_stat counts{};
    pcap_stats(handle_.get(), &counts);
    return counts.ps_drop;
  }

 private:
  static constexpr int SnapshotLength = 2048;
  static constexpr int BufferBytes = 32 << 20;
  /// The buffer is handed over piece by piece, each one when it is full or after this time; there
  /// are some 250 pieces.
  static constexpr int HandOverMs = 20;

  char words_[PCAP_ERRBUF_SIZE] = {};
  std::unique_ptr<pcap_t, void (*)(pcap_t*)> handle_;
};

}  // namespace live
