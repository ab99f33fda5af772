#include "adapters/rights/capture_right.h"

#ifdef __linux__
#include <fcntl.h>
#include <sys/capability.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <type_traits>
#endif

namespace adapters {

#ifdef __linux__

namespace {

constexpr cap_value_t Raw = CAP_NET_RAW;

struct Freer {
  void operator()(cap_t sets) const { cap_free(sets); }
};
using Capabilities = std::unique_ptr<std::remove_pointer_t<cap_t>, Freer>;

bool Holds(const Capabilities& sets, cap_flag_t set) {
  cap_flag_value_t value = CAP_CLEAR;
  return sets && cap_get_flag(sets.get(), Raw, set, &value) == 0 && value == CAP_SET;
}

/// True where the system took it; a filter of system calls may refuse.
bool Put(const Capabilities& sets, cap_flag_t set, cap_flag_value_t value) {
  return cap_set_flag(sets.get(), set, 1, &Raw, value) == 0 && cap_set_proc(sets.get()) == 0;
}

}  // namespace

bool HasCaptureRight() {
  return Holds(Capabilities(cap_get_proc()), CAP_PERMITTED);
}

void ReserveCaptureRight() {
  const Capabilities before(cap_get_proc());
  if (!before) return;
  const Capabilities kept(geteuid() == 0 ? cap_dup(before.get()) : cap_init());
  // What is not inheritable leaves the ambient set by itself.
  cap_clear_flag(kept.get(), CAP_INHERITABLE);
  if (Holds(before, CAP_PERMITTED)) cap_set_flag(kept.get(), CAP_PERMITTED, 1, &Raw, CAP_SET);
  Put(kept, CAP_EFFECTIVE, CAP_CLEAR);
}

void GainNoMoreRights() {
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
}

RaisedRight::RaisedRight() {
  const Capabilities sets(cap_get_proc());
  const bool inReserve = Holds(sets, CAP_PERMITTED) && !Holds(sets, CAP_EFFECTIVE);
  raised_ = inReserve && Put(sets, CAP_EFFECTIVE, CAP_SET);
}

RaisedRight::~RaisedRight() {
  if (raised_) Put(Capabilities(cap_get_proc()), CAP_EFFECTIVE, CAP_CLEAR);
}

int TryRawSocket() {
  const RaisedRight right;
  const int socket = ::socket(AF_PACKET, SOCK_RAW | SOCK_CLOEXEC, 0);
  if (socket < 0) return errno;
  close(socket);
  return 0;
}

void KeepFromChildren(int descriptor) {
  fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

#else

bool HasCaptureRight() {
  return true;
}

void ReserveCaptureRight() {}

void GainNoMoreRights() {}

RaisedRight::RaisedRight() : raised_(false) {}

int TryRawSocket() {
  return 0;
}

RaisedRight::~RaisedRight() {
  static_cast<void>(raised_);
}

void KeepFromChildren(int) {}

#endif

}  // namespace adapters
