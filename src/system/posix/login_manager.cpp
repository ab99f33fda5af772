#include "system/posix/login_manager.h"

#include <fcntl.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <cstdint>
#include <memory>

namespace host {

namespace {

using std::chrono::steady_clock;

constexpr const char* Manager = "org.freedesktop.login1";
constexpr const char* ManagerPath = "/org/freedesktop/login1";
constexpr const char* ManagerInterface = "org.freedesktop.login1.Manager";

struct CloseBus {
  // What was not sent by now is not worth waiting for.
  void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};

/// What became of the call.
struct Reply {
  bool Came = false;
  int Lock = -1;
};

int TakeReply(sd_bus_message* message, void* place, sd_bus_error*) {
  Reply& reply = *static_cast<Reply*>(place);
  reply.Came = true;
  int lent = -1;
  // The message takes its descriptor along when it goes.
  if (sd_bus_message_is_method_error(message, nullptr) == 0 &&
      sd_bus_message_read(message, "h", &lent) >= 0) {
    reply.Lock = ::fcntl(lent, F_DUPFD_CLOEXEC, 0);
  }
  return 0;
}

/// Handles what comes over the bus until the reply is there. The greeting at the begin is part of
/// it: the library's own waiting call would give that one as long as it likes.
void Await(sd_bus* bus, const Reply& reply, steady_clock::time_point end) {
  while (!reply.Came) {
    const int handled = sd_bus_process(bus, nullptr);
    if (handled < 0) return;
    if (handled > 0) continue;
    const auto left =
        std::chrono::duration_cast<std::chrono::microseconds>(end - steady_clock::now());
    if (left.count() <= 0) return;
    if (sd_bus_wait(bus, static_cast<std::uint64_t>(left.count())) < 0) return;
  }
}

}  // namespace

void LoginManager::Inhibit(const std::string& why) {
  Release();
  const steady_clock::time_point end = steady_clock::now() + Patience;
  sd_bus* opened = nullptr;
  if (sd_bus_open_system(&opened) < 0) return;
  Reply reply;
  const std::unique_ptr<sd_bus, CloseBus> bus(opened);
  const int asked = sd_bus_call_method_async(bus.get(), nullptr, Manager, ManagerPath,
                                             ManagerInterface, "Inhibit", &TakeReply, &reply,
                                             "ssss", "sleep", "Vornik", why.c_str(), "block");
  if (asked >= 0) Await(bus.get(), reply, end);
  lock_ = reply.Lock;
}

void LoginManager::Release() {
  if (lock_ < 0) return;
  ::close(lock_);
  lock_ = -1;
}

}  // namespace host
