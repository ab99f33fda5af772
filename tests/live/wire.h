#pragma once

#include <pcap/pcap.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace live {

/// The virtual Ethernet pair of a scene: what is sent at the far end arrives at the near end.
inline const std::string NearEnd = "vornik-near";
inline const std::string FarEnd = "vornik-far";

/// Runs a command of the system and gives what it wrote.
inline std::string Run(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen((command + " 2>&1").c_str(), "r"), pclose);
  std::string output;
  for (int c = std::fgetc(pipe.get()); c != EOF; c = std::fgetc(pipe.get())) {
    output += static_cast<char>(c);
  }
  return output;
}

/// Why no wire can be laid here; empty where one can.
inline std::string WhyNoWire() {
  const char* space = std::getenv("VORNIK_NAMESPACE");
  if (space == nullptr) return "not started through in_namespace.sh";
  return std::string(space) == "own" ? "" : space;
}

inline void LayWire(int mtu = 1500) {
  const std::string bytes = std::to_string(mtu);
  Run("ip link add " + NearEnd + " mtu " + bytes + " type veth peer name " + FarEnd + " mtu " +
      bytes);
  Run("ip link set " + NearEnd + " up; ip link set " + FarEnd + " up");
}

inline void CutWire() {
  Run("ip link delete " + NearEnd);
}

/// How many frames have come in at the near end since the wire was laid.
inline std::uint64_t FramesArrived() {
  const std::string told = Run("ip -s -j link show dev " + NearEnd);
  const std::string mark = "\"packets\":";
  // What was received stands in front of what was sent.
  const std::size_t at = told.find(mark, std::min(told.find("\"rx\""), told.size()));
  return at == std::string::npos ? 0 : std::stoull(told.substr(at + mark.size()));
}

/// Puts single frames on the wire at its far end.
class Sender {
 public:
  Sender() : handle_(pcap_create(FarEnd.c_str(), words_), pcap_close) {
    if (!handle_ || pcap_activate(handle_.get()) < 0) throw std::runtime_error("cannot send");
  }
  void Send(const std::vector<std::uint8_t>& frame) {
    while (pcap_inject(handle_.get(), frame.data(), frame.size()) < 0) {
    }
  }

 private:
  char words_[PCAP_ERRBUF_SIZE] = {};
  std::unique_ptr<pcap_t, void (*)(pcap_t*)> handle_;
};

/// A frame of sampled values' ethertype with a number in it; `vlan` below 0 leaves out the tag.
inline std::vector<std::uint8_t> Numbered(std::uint32_t number, std::size_t size = 128,
                                          int vlan = -1) {
  std::vector<std::uint8_t> frame;
  const auto put = [&](std::initializer_list<std::uint32_t> bytes) {
    for (const std::uint32_t byte : bytes) frame.push_back(static_cast<std::uint8_t>(byte));
  };
  put({0x01, 0x0C, 0xCD, 0x04, 0, 9, 0x02, 0, 0, 0, 0, 7});
  const auto id = static_cast<std::uint32_t>(vlan);
  if (vlan >= 0) put({0x81, 0x00, 0x80U | id >> 8U, id & 0xFFU});
  put({0x88, 0xBA, 0x40, 0x00});
  put({number >> 24U, number >> 16U & 0xFFU, number >> 8U & 0xFFU, number & 0xFFU});
  frame.resize(size);
  return frame;
}

}  // namespace live
