#pragma once

#include <chrono>
#include <string>

#include "platform/services/sleep_inhibitor.h"

namespace host {

/// Asks the system's login manager over the system bus not to let the computer sleep. The manager
/// hands out a descriptor, and the computer stays awake until that is closed, at the end of the
/// process at the latest.
class LoginManager : public platform::SleepInhibitor {
 public:
  LoginManager() = default;
  LoginManager(const LoginManager&) = delete;
  LoginManager& operator=(const LoginManager&) = delete;
  ~LoginManager() override { Release(); }

  void Inhibit(const std::string& why) override;
  void Release() override;
  /// The manager has agreed.
  bool Inhibits() const { return lock_ >= 0; }

  /// How long the manager's answer is awaited; one that comes later is not taken.
  std::chrono::milliseconds Patience{1000};

 private:
  int lock_ = -1;
};

}  // namespace host
