#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/failure.h"
#include "platform/services/disk_sync.h"

namespace support {

/// A disk that takes what it is asked for at once, unless the test has it lag, fail or lose its
/// files.
class FakeDiskSync : public platform::DiskSync {
 public:
  std::uint64_t Sync(const std::string& path) override {
    if (path.find(Apart) != std::string::npos) {
      states_[path].Synced = ++requests_;
      return requests_;
    }
    Asked.push_back(path);
    waiting_.push_back({path, ++requests_});
    if (!Lags) Work();
    return requests_;
  }
  platform::DiskState StateOf(const std::string& path) const override {
    const auto state = states_.find(path);
    return state == states_.end() ? platform::DiskState{} : state->second;
  }
  bool Finish(std::chrono::milliseconds limit) override {
    Limits.push_back(limit);
    return waiting_.empty();
  }

  /// The disk gets through what waits, the oldest first.
  void Work(std::size_t count = 1000) {
    for (; count > 0 && !waiting_.empty(); --count) {
      const auto [path, request] = waiting_.front();
      waiting_.erase(waiting_.begin());
      platform::DiskState& state = states_[path];
      if (++worked_ == Failing || (AlsoBehind && Failing > 0 && worked_ > Failing)) {
        state.Failed = request;
        state.Failure = Number;
      } else if (Unreachable) {
        state.Unreached = request;
      } else {
        state.Synced = request;
      }
    }
  }
  bool Waits() const { return !waiting_.empty(); }

  /// Files with this in their names always get through, and nobody is told: a scene counts the
  /// files of the samples.
  std::string Apart = "Events ";
  /// Nothing is done before `Work`.
  bool Lags = false;
  /// The request that fails, counted from 1; 0 for none.
  int Failing = 0;
  /// All behind it fail, too.
  bool AlsoBehind = false;
  std::int32_t Number = platform::failure::DeviceIo;
  /// No file can be opened.
  bool Unreachable = false;

  /// The paths that were asked for.
  std::vector<std::string> Asked;
  /// How long the program would have waited for the rest.
  std::vector<std::chrono::milliseconds> Limits;

 private:
  struct Request {
    std::string Path;
    std::uint64_t Number = 0;
  };

  std::vector<Request> waiting_;
  std::map<std::string, platform::DiskState> states_;
  std::uint64_t requests_ = 0;
  int worked_ = 0;
};

}  // namespace support
