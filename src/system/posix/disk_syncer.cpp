#include "system/posix/disk_syncer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "base/failure.h"
#include "system/error_number.h"
#include "system/places.h"

namespace host {

namespace {

using Kind = SyncOutcome::Kind;

/// What is open for its synchronisation alone.
class Opened {
 public:
  Opened(const std::filesystem::path& place, int flags)
      : descriptor_(::open(place.c_str(), O_RDONLY | O_CLOEXEC | flags)) {}
  ~Opened() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  bool Succeeded() const { return descriptor_ >= 0; }
  int Descriptor() const { return descriptor_; }
  SyncOutcome Sync() const {
    if (::fsync(descriptor_) == 0) return {};
    return {Kind::Failed, FailureNumber(errno, platform::failure::FileNotFound)};
  }

 private:
  int descriptor_;
};

SyncOutcome SyncFolder(const std::filesystem::path& place) {
  const Opened folder(place, O_DIRECTORY);
  // A folder may be one that its user can write to and not read; and some systems have nothing to
  // bring to the disk for one.
  if (!folder.Succeeded()) return {};
  const SyncOutcome outcome = folder.Sync();
  return outcome.What == Kind::Failed && errno == EINVAL ? SyncOutcome{} : outcome;
}

}  // namespace

DiskSyncer::DiskSyncer() : DiskSyncer(FilesToDisk()) {}

DiskSyncer::DiskSyncer(Bring bring) : bring_(std::move(bring)) {}

DiskSyncer::~DiskSyncer() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  wake_.notify_all();
  if (thread_.joinable()) thread_.join();
}

std::uint64_t DiskSyncer::Sync(const std::string& path) {
  const std::lock_guard lock(mutex_);
  const std::uint64_t number = ++requests_;
  if (!Starts()) {
    states_[path].Unreached = number;
    return number;
  }
  const auto waits = std::find_if(queue_.begin(), queue_.end(),
                                  [&](const Request& request) { return request.Path == path; });
  if (waits != queue_.end()) {
    waits->Number = number;
  } else {
    queue_.push_back({path, PlaceOf(path), number});
  }
  wake_.notify_all();
  return number;
}

platform::DiskState DiskSyncer::StateOf(const std::string& path) const {
  const std::lock_guard lock(mutex_);
  const auto state = states_.find(path);
  return state == states_.end() ? platform::DiskState{} : state->second;
}

bool DiskSyncer::Finish(std::chrono::milliseconds limit) {
  std::unique_lock lock(mutex_);
  return rests_.wait_for(lock, limit, [this] { return Rests(); });
}

bool DiskSyncer::Starts() {
  if (thread_.joinable()) return true;
  try {
    thread_ = std::thread([this] { Run(); });
  } catch (const std::system_error&) {
    return false;
  }
  return true;
}

void DiskSyncer::Run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    wake_.wait(lock, [this] { return ending_ || !queue_.empty(); });
    if (ending_) return;
    const Request request = std::move(queue_.front());
    queue_.pop_front();
    inHand_ = true;
    lock.unlock();
    const SyncOutcome outcome = bring_(request.Place);
    lock.lock();
    inHand_ = false;
    Note(request, outcome);
    if (Rests()) rests_.notify_all();
  }
}

void DiskSyncer::Note(const Request& request, const SyncOutcome& outcome) {
  platform::DiskState& state = states_[request.Path];
  switch (outcome.What) {
    case Kind::Synced:
      state.Synced = request.Number;
      break;
    case Kind::Failed:
      state.Failed = request.Number;
      state.Failure = outcome.Failure;
      break;
    case Kind::Unreached:
      state.Unreached = request.Number;
      break;
  }
}

SyncOutcome FilesToDisk::operator()(const std::filesystem::path& place) {
  const Opened file(place, 0);
  struct stat facts {};
  if (!file.Succeeded() || ::fstat(file.Descriptor(), &facts) != 0) return {Kind::Unreached};
  const SyncOutcome content = file.Sync();
  if (content.What != Kind::Synced) return content;
  const Identity identity{facts.st_dev, facts.st_ino};
  Identity& named = named_[place];
  if (named == identity) return content;
  const SyncOutcome name = SyncFolder(place.has_parent_path() ? place.parent_path() : ".");
  if (name.What == Kind::Synced) named = identity;
  return name;
}

}  // namespace host
