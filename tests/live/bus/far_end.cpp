#include "far_end.h"

#include <arpa/inet.h>
#include <linux/if_packet.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace bus {

namespace {

[[noreturn]] void Fail(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

FarEnd::FarEnd(const std::string& interface)
    : name_(interface),
      // A protocol of 0 takes no frames in.
      socket_(socket(AF_PACKET, SOCK_RAW | SOCK_CLOEXEC, 0)) {
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
  for (std::size_t sent = 0; sent < messages_.size();) {
    const int count = sendmmsg(socket_, messages_.data() + sent,
                               static_cast<unsigned>(messages_.size() - sent), 0);
    if (count < 0 && errno != EINTR && errno != ENOBUFS) Fail("cannot send");
    // A unit goes on whether anybody is at the other end or not.
    if (count < 0 && errno == ENOBUFS && !OtherEndIsThere()) break;
    if (count > 0) sent += static_cast<std::size_t>(count);
  }
  frames_.clear();
}

bool FarEnd::OtherEndIsThere() const {
  ifreq state{};
  std::copy_n(name_.c_str(), std::min(name_.size(), sizeof state.ifr_name - 1), state.ifr_name);
  return ioctl(socket_, SIOCGIFFLAGS, &state) < 0 || (state.ifr_flags & IFF_RUNNING) != 0;
}

}  // namespace bus
