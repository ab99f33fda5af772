#pragma once

#include <gtest/gtest.h>
#include <sys/capability.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

#include "adapters/rights/capture_right.h"
#include "live/wire.h"

namespace live {

/// A virtual wire and a shell that keeps all rights to work on it, while the program of the scenes
/// puts its own in reserve. In one process this goes once, so it is done for all scenes together.
class RightScene {
 public:
  static std::string WhyNot() {
    const std::string reason = WhyNoWire();
    return reason.empty() && geteuid() == 0 ? "root has every right" : reason;
  }
  static void Begin() {
    if (!WhyNot().empty()) return;
    LayWire();
    shell_ = popen("sh", "w");
    adapters::ReserveCaptureRight();
  }
  static void End() {
    if (shell_ != nullptr) pclose(shell_);
  }
  /// Does what the program has no right to.
  static void Do(const std::string& command) {
    std::fputs((command + "\n").c_str(), shell_);
    std::fflush(shell_);
  }

 private:
  static inline FILE* shell_ = nullptr;
};

/// Does something on a thread that has no rights at all; they belong to a thread.
inline void WithoutRights(const std::function<void()>& action) {
  std::thread([&] {
    cap_t none = cap_init();
    EXPECT_EQ(cap_set_proc(none), 0);
    cap_free(none);
    action();
  }).join();
}

/// What a status file of the system tells under a name; empty where it is silent.
inline std::string Told(const std::string& file, const std::string& name) {
  std::ifstream status(file);
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(name + ":\t")) return line.substr(name.size() + 2);
  }
  return {};
}

inline const std::string NoRight(16, '0');
inline const std::string RightToRawSockets = "0000000000002000";

/// A script that leaves what it was started with in `file`: its status, and what it has open.
inline std::string ConfessingScript(const std::string& file) {
  return "#!/bin/sh\n{ cat /proc/self/status; ls -l /proc/self/fd; } > " + file + ".part\nmv " +
         file + ".part " + file + "\n";
}

/// The script was started without any right, and with nothing that this process has open but what
/// it reads and writes.
inline void ExpectInnocent(const std::string& file) {
  for (const char* set : {"CapInh", "CapPrm", "CapEff", "CapAmb"}) {
    EXPECT_EQ(Told(file, set), NoRight) << set << " of " << file;
  }
  std::ifstream lines(file);
  const std::string text{std::istreambuf_iterator<char>(lines), {}};
  for (const char* mine : {"socket:", "StoredData", ".pcap"}) {
    EXPECT_EQ(text.find(mine), std::string::npos) << mine << " in " << text;
  }
}

}  // namespace live
