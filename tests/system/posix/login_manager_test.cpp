#include <gtest/gtest.h>

#ifdef __linux__

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "support/real_files.h"
#include "system/posix/login_manager.h"

namespace host {
namespace {

using namespace std::chrono_literals;

/// What the played manager does when it is asked.
enum class Manner { Agrees, Refuses, IsSilent };

/// A login manager on a bus of its own. It gives out the writing end of a pipe; so the reading end
/// tells when the last copy of it is closed.
class PlayedManager {
 public:
  explicit PlayedManager(Manner manner) : manner_(manner) {
    if (::pipe2(pipe_.data(), O_CLOEXEC) != 0) return;
    if (sd_bus_open_system(&bus_) < 0) return;
    if (sd_bus_add_object_vtable(bus_, nullptr, "/org/freedesktop/login1",
                                 "org.freedesktop.login1.Manager", Table, this) < 0)
      return;
    if (sd_bus_request_name(bus_, "org.freedesktop.login1", 0) < 0) return;
    Works = true;
    thread_ = std::thread([this] {
      while (!ends_) {
        if (sd_bus_process(bus_, nullptr) == 0) sd_bus_wait(bus_, 10'000);
      }
    });
  }
  PlayedManager(const PlayedManager&) = delete;
  PlayedManager& operator=(const PlayedManager&) = delete;
  ~PlayedManager() {
    ends_ = true;
    if (thread_.joinable()) thread_.join();
    sd_bus_flush_close_unref(bus_);
    ::close(pipe_[0]);
    CloseOwnEnd();
  }

  bool Works = false;
  std::vector<std::string> Asked;

  /// Every copy of what was given out is closed.
  bool AllGivenBack() {
    CloseOwnEnd();
    pollfd end{pipe_[0], 0, 0};
    return ::poll(&end, 1, 500) == 1 && (end.revents & POLLHUP) != 0;
  }
  bool GivenOut() {
    CloseOwnEnd();
    pollfd end{pipe_[0], 0, 0};
    return ::poll(&end, 1, 100) == 0;
  }

 private:
  static int Inhibit(sd_bus_message* call, void* self, sd_bus_error* error) {
    auto& manager = *static_cast<PlayedManager*>(self);
    std::array<const char*, 4> words{};
    sd_bus_message_read(call, "ssss", &words[0], &words[1], &words[2], &words[3]);
    manager.Asked.assign(words.begin(), words.end());
    if (manager.manner_ == Manner::IsSilent) return 1;
    if (manager.manner_ == Manner::Refuses)
      return sd_bus_error_set(error, SD_BUS_ERROR_ACCESS_DENIED, "not you");
    return sd_bus_reply_method_return(call, "h", manager.pipe_[1]);
  }
  void CloseOwnEnd() {
    if (pipe_[1] >= 0) ::close(pipe_[1]);
    pipe_[1] = -1;
  }
  static const sd_bus_vtable Table[];

  Manner manner_;
  std::array<int, 2> pipe_{-1, -1};
  sd_bus* bus_ = nullptr;
  std::atomic<bool> ends_ = false;
  std::thread thread_;
};

const sd_bus_vtable PlayedManager::Table[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Inhibit", "ssss", "h", &PlayedManager::Inhibit, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END};

/// The system's bus is one of the test's own, or none.
class LoginManagerScene : public testing::Test {
 protected:
  ~LoginManagerScene() override {
    if (daemon_ > 0) {
      ::kill(daemon_, SIGTERM);
      ::waitpid(daemon_, nullptr, 0);
    }
    ::unsetenv("DBUS_SYSTEM_BUS_ADDRESS");
  }

  /// False where there is no daemon for a bus here.
  bool StartBus() {
    PointToBus();
    const std::string address = "--address=unix:path=" + Socket();
    std::array<const char*, 6> words{"dbus-daemon", "--session",     "--nofork",
                                     "--nopidfile", address.c_str(), nullptr};
    if (::posix_spawnp(&daemon_, words[0], nullptr, nullptr, const_cast<char**>(words.data()),
                       environ) != 0)
      return false;
    for (int i = 0; i < 500 && !std::filesystem::exists(Socket()); ++i) {
      std::this_thread::sleep_for(10ms);
    }
    return std::filesystem::exists(Socket());
  }
  void PointToBus() const {
    ::setenv("DBUS_SYSTEM_BUS_ADDRESS", ("unix:path=" + Socket()).c_str(), 1);
  }
  std::string Socket() const { return folder_.File("bus"); }
  /// How long asking took.
  static std::chrono::milliseconds Ask(LoginManager& manager) {
    const auto begin = std::chrono::steady_clock::now();
    manager.Inhibit("A recording is running.");
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                 begin);
  }

  const support::TemporaryFolder folder_;
  pid_t daemon_ = -1;
};

TEST_F(LoginManagerScene, KeepsTheComputerAwakeUntilTheRelease) {
  if (!StartBus()) GTEST_SKIP() << "there is no dbus-daemon here";
  PlayedManager played(Manner::Agrees);
  ASSERT_TRUE(played.Works);
  LoginManager manager;
  Ask(manager);
  EXPECT_TRUE(manager.Inhibits());
  EXPECT_EQ(played.Asked,
            (std::vector<std::string>{"sleep", "Vornik", "A recording is running.", "block"}));
  EXPECT_TRUE(played.GivenOut());
  manager.Release();
  EXPECT_FALSE(manager.Inhibits());
  EXPECT_TRUE(played.AllGivenBack());
}

TEST_F(LoginManagerScene, LetsGoAtItsEndAtTheLatest) {
  if (!StartBus()) GTEST_SKIP() << "there is no dbus-daemon here";
  PlayedManager played(Manner::Agrees);
  ASSERT_TRUE(played.Works);
  {
    LoginManager manager;
    Ask(manager);
    Ask(manager);
    EXPECT_TRUE(played.GivenOut());
  }
  EXPECT_TRUE(played.AllGivenBack());
}

TEST_F(LoginManagerScene, TakesARefusal) {
  if (!StartBus()) GTEST_SKIP() << "there is no dbus-daemon here";
  PlayedManager played(Manner::Refuses);
  ASSERT_TRUE(played.Works);
  LoginManager manager;
  Ask(manager);
  EXPECT_FALSE(manager.Inhibits());
  EXPECT_FALSE(played.Asked.empty());
}

TEST_F(LoginManagerScene, AwaitsASilentManagerNoLongerThanItsPatience) {
  if (!StartBus()) GTEST_SKIP() << "there is no dbus-daemon here";
  PlayedManager played(Manner::IsSilent);
  ASSERT_TRUE(played.Works);
  LoginManager manager;
  manager.Patience = 200ms;
  EXPECT_GE(Ask(manager), 190ms);
  EXPECT_FALSE(manager.Inhibits());
}

TEST_F(LoginManagerScene, DoesWithoutAManager) {
  if (!StartBus()) GTEST_SKIP() << "there is no dbus-daemon here";
  LoginManager manager;
  manager.Patience = 20s;
  EXPECT_LT(Ask(manager), 10s) << "the bus itself says that nobody is there";
  EXPECT_FALSE(manager.Inhibits());
}

TEST_F(LoginManagerScene, DoesWithoutABus) {
  PointToBus();
  LoginManager manager;
  manager.Patience = 20s;
  EXPECT_LT(Ask(manager), 10s);
  EXPECT_FALSE(manager.Inhibits());
  manager.Release();
}

TEST_F(LoginManagerScene, AwaitsABusThatDoesNotGreetNoLongerThanItsPatience) {
  PointToBus();
  const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un place{};
  place.sun_family = AF_UNIX;
  ASSERT_LT(Socket().size(), sizeof(place.sun_path));
  std::strcpy(place.sun_path, Socket().c_str());
  ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr*>(&place), sizeof(place)), 0);
  ASSERT_EQ(::listen(listener, 1), 0);
  LoginManager manager;
  manager.Patience = 200ms;
  EXPECT_LT(Ask(manager), 10s) << "the library's own patience is longer";
  EXPECT_FALSE(manager.Inhibits());
  ::close(listener);
}

}  // namespace
}  // namespace host

#endif
