#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>

#include "platform/services/disk_sync.h"

namespace host {

/// What became of one attempt to bring a file to the disk.
struct SyncOutcome {
  enum class Kind { Synced, Failed, Unreached };
  Kind What = Kind::Synced;
  /// The failure's number, where the disk failed.
  std::int32_t Failure = 0;
};

/// Brings files to the disk on a thread of its own, which starts with the first request and shares
/// nothing with the program but the list of requests and what became of them. A path that waits
/// already is not queued twice: its newer request is fulfilled by the same work.
class DiskSyncer : public platform::DiskSync {
 public:
  /// Brings one file to the disk, however long that takes.
  using Bring = std::function<SyncOutcome(const std::filesystem::path& place)>;

  DiskSyncer();
  explicit DiskSyncer(Bring bring);
  DiskSyncer(const DiskSyncer&) = delete;
  DiskSyncer& operator=(const DiskSyncer&) = delete;
  /// Drops what waits, and waits for the file that is in hand: the process itself is left without
  /// that.
  ~DiskSyncer() override;

  std::uint64_t Sync(const std::string& path) override;
  platform::DiskState StateOf(const std::string& path) const override;
  bool Finish(std::chrono::milliseconds limit) override;

 private:
  struct Request {
    std::string Path;
    std::filesystem::path Place;
    std::uint64_t Number = 0;
  };

  /// False where the system has no thread left.
  bool Starts();
  void Run();
  void Note(const Request& request, const SyncOutcome& outcome);
  bool Rests() const { return queue_.empty() && !inHand_; }

  Bring bring_;
  mutable std::mutex mutex_;
  std::condition_variable wake_;
  std::condition_variable rests_;
  std::deque<Request> queue_;
  std::map<std::string, platform::DiskState> states_;
  std::uint64_t requests_ = 0;
  bool inHand_ = false;
  bool ending_ = false;
  std::thread thread_;
};

/// Brings the content of files to the disk, and with a file that it has not met yet its name in its
/// folder: a new file is found behind a power cut by that alone.
class FilesToDisk {
 public:
  SyncOutcome operator()(const std::filesystem::path& place);

 private:
  struct Identity {
    std::uint64_t Device = 0;
    std::uint64_t File = 0;
    friend bool operator==(const Identity&, const Identity&) = default;
  };

  /// The files whose names are on the disk.
  std::map<std::filesystem::path, Identity> named_;
};

}  // namespace host
