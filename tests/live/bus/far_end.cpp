#include "far_end.h"

#include <arpa/inet.h>
#include <linux/if_packet.h>
#include <net/if.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <system_error>

namespace bus {

namespace {

using Clock = std::chrono::steady_clock;

/// A wire with somebody at its other end takes frames again much earlier.
constexpr std::chrono::milliseconds Patience{30};

[[noreturn]] void Fail(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

FarEnd::FarEnd(const std::string& interface)
    // A protocol of 0 takes no frames in.
    : socket_(socket(AF_PACKET, SOCK_RAW | SOCK_CLOEXEC, 0)) {
  if (socket_ < 0) Fail("cannot open a socket");
  sockaddr_ll place{};
  place.sll_family = AF_PACKET;
  place.sll_ifindex = static_cast<int>(if_nametoindex(interface.c_str()));
  const auto* address = reinterpret_cast<const sockaddr*>(&place);
  if (place.sll_ifindex == 0 || bind(socket_, address, sizeof place) < 0) Fail(interface);
  // The wire has no queue to wait in.
  const int on = 1;
  setsockopt(socket_, SOL_PACKET, PACKET_QDISC_BYPASS, &on, sizeof on);
}

FarEnd::~FarEnd() {
  close(socket_);
}

void FarEnd::Put(const Bytes& frame) {
  frames_.push_back({const_cast<std::uint8_t*>(frame.data()), frame.size()});
}

void FarEnd::Send() {
  messages_.resize(frames_.size());
  for (std::size_t i = 0; i < frames_.size(); ++i) {
    messages_[i] = {};
    messages_[i].msg_hdr.msg_iov = &frames_[i];
    messages_[i].msg_hdr.msg_iovlen = 1;
  }
  const auto begun = Clock::now();
  for (std::size_t sent = 0; sent < messages_.size();) {
    const int count = sendmmsg(socket_, messages_.data() + sent,
                               static_cast<unsigned>(messages_.size() - sent), 0);
    if (count < 0 && errno != EINTR && errno != ENOBUFS) Fail("cannot send");
    if (count > 0) {
      sent += static_cast<std::size_t>(count);
      otherEndIsThere_ = true;
    } else if (!otherEndIsThere_ || Clock::now() - begun > Patience) {
      // A unit goes on whether anybody is at the other end or not.
      otherEndIsThere_ = false;
      break;
    }
  }
  frames_.clear();
}

}  // namespace bus
