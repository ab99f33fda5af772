#include "system/posix/disk_syncer.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <future>
#include <optional>
#include <vector>

#include "base/failure.h"
#include "support/real_files.h"
#include "system/disk_sync.h"

namespace host {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using Kind = SyncOutcome::Kind;

/// Longer than any disk of a test takes.
constexpr auto Long = 20s;

/// A disk that takes nothing until the test lets it, one file at a time.
class HeldDisk {
 public:
  DiskSyncer::Bring Bring() {
    return [this](const std::filesystem::path& place) {
      std::unique_lock lock(mutex_);
      began_.push_back(place.string());
      changed_.notify_all();
      changed_.wait(lock, [this] { return allowed_ > 0; });
      --allowed_;
      return Next;
    };
  }
  void Allow(int files) {
    const std::lock_guard lock(mutex_);
    allowed_ += files;
    changed_.notify_all();
  }
  /// The disk has begun with so many files.
  bool AwaitBegun(std::size_t files) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, Long, [&] { return began_.size() >= files; });
  }
  std::vector<std::string> Began() {
    const std::lock_guard lock(mutex_);
    return began_;
  }

  SyncOutcome Next;

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::string> began_;
  int allowed_ = 0;
};

TEST(DiskSyncer, BringsRealFilesToTheDisk) {
  const support::TemporaryFolder folder;
  const std::unique_ptr<platform::DiskSync> sync = MakeDiskSync();
  std::vector<std::pair<std::string, std::uint64_t>> asked;
  for (const char* name : {"a.txt", "b.txt", "a.txt"}) {
    const std::string path = folder.File(name);
    std::ofstream(path, std::ios::app) << "samples";
    asked.emplace_back(path, sync->Sync(path));
  }
  ASSERT_TRUE(sync->Finish(Long));
  for (const auto& [path, request] : asked) {
    const platform::DiskState state = sync->StateOf(path);
    EXPECT_GE(state.Synced, request);
    EXPECT_EQ(state.Failed, 0U);
    EXPECT_EQ(state.Unreached, 0U);
  }
}

TEST(DiskSyncer, TellsOfAFileThatIsNotThere) {
  const support::TemporaryFolder folder;
  DiskSyncer sync;
  const std::string path = folder.File("missing.txt");
  const std::uint64_t request = sync.Sync(path);
  ASSERT_TRUE(sync.Finish(Long));
  EXPECT_EQ(sync.StateOf(path).Unreached, request);
  EXPECT_EQ(sync.StateOf(path).Synced, 0U);
}

TEST(DiskSyncer, HoldsNobodyUpWhereOpeningAloneTakesForEver) {
  const support::TemporaryFolder folder;
  const std::string blocked = folder.File("blocked");
  const std::string behind = folder.File("behind");
  // Its opening waits until somebody opens the other end.
  ASSERT_EQ(::mkfifo(blocked.c_str(), 0600), 0);
  std::ofstream(behind) << "samples";
  DiskSyncer sync;
  const std::uint64_t first = sync.Sync(blocked);
  const std::uint64_t second = sync.Sync(behind);
  EXPECT_FALSE(sync.Finish(50ms));
  EXPECT_EQ(sync.StateOf(behind).Synced, 0U);

  std::ofstream otherEnd(blocked);

  ASSERT_TRUE(sync.Finish(Long));
  EXPECT_EQ(sync.StateOf(blocked).Failed, first) << "a pipe has no place on a disk";
  EXPECT_EQ(sync.StateOf(blocked).Failure, platform::failure::DeviceIo);
  EXPECT_EQ(sync.StateOf(behind).Synced, second);
}

TEST(DiskSyncer, DoesNotQueueAPathThatWaitsAlready) {
  HeldDisk disk;
  DiskSyncer sync(disk.Bring());
  const std::uint64_t first = sync.Sync("/a");
  ASSERT_TRUE(disk.AwaitBegun(1));
  std::uint64_t last = 0;
  for (int i = 0; i < 1000; ++i) {
    last = sync.Sync("/a");
    sync.Sync("/b");
  }
  EXPECT_EQ(sync.StateOf("/a").Synced, 0U);
  disk.Allow(1);
  ASSERT_TRUE(disk.AwaitBegun(2));
  EXPECT_EQ(sync.StateOf("/a").Synced, first)
      << "what is asked for behind the begin of the work is not done by it";
  disk.Allow(2);
  ASSERT_TRUE(sync.Finish(Long));
  EXPECT_EQ(sync.StateOf("/a").Synced, last);
  EXPECT_THAT(disk.Began(), ElementsAre("/a", "/a", "/b"));
}

TEST(DiskSyncer, TellsOfAFailureAndOfWhatComesBehindIt) {
  HeldDisk disk;
  disk.Next = {Kind::Failed, platform::failure::DiskFull};
  DiskSyncer sync(disk.Bring());
  const std::uint64_t failed = sync.Sync("/a");
  disk.Allow(1);
  ASSERT_TRUE(sync.Finish(Long));
  EXPECT_EQ(sync.StateOf("/a").Failed, failed);
  EXPECT_EQ(sync.StateOf("/a").Failure, platform::failure::DiskFull);
  disk.Next = {};
  const std::uint64_t later = sync.Sync("/a");
  disk.Allow(1);
  ASSERT_TRUE(sync.Finish(Long));
  EXPECT_EQ(sync.StateOf("/a").Synced, later);
  EXPECT_EQ(sync.StateOf("/a").Failed, failed);
}

TEST(DiskSyncer, IsFinishedAtOnceWhereNothingWasAskedFor) {
  DiskSyncer sync;
  EXPECT_TRUE(sync.Finish(0ms));
}

TEST(DiskSyncer, EndsWithWhatItHasInHandAndDropsTheRest) {
  HeldDisk disk;
  std::optional<DiskSyncer> sync(std::in_place, disk.Bring());
  sync->Sync("/a");
  sync->Sync("/b");
  ASSERT_TRUE(disk.AwaitBegun(1));
  const auto end = std::async(std::launch::async, [&] { sync.reset(); });
  EXPECT_EQ(end.wait_for(50ms), std::future_status::timeout);
  disk.Allow(1);
  EXPECT_EQ(end.wait_for(Long), std::future_status::ready);
  EXPECT_THAT(disk.Began(), ElementsAre("/a"));
}

}  // namespace
}  // namespace host
