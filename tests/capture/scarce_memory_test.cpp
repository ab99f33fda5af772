// The block arrays and the record rings where memory is short.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <new>

#include "capture/record_rings.h"
#include "support/failures.h"

namespace {

/// As long as it lives, no request for more than `limit` bytes is granted.
class ScarceMemory {
 public:
  explicit ScarceMemory(std::size_t limit) { limit_ = limit; }
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;
  ~ScarceMemory() { limit_ = SIZE_MAX; }

  static void* Grant(std::size_t size) {
    return size > limit_ ? nullptr : std::malloc(size == 0 ? 1 : size);
  }

 private:
  static inline std::size_t limit_ = SIZE_MAX;
};

}  // namespace

// All memory of this test program goes through these.

void* operator new(std::size_t size) {
  if (void* memory = ScarceMemory::Grant(size)) return memory;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return ScarceMemory::Grant(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
  std::free(memory);
}

namespace {

using platform::failure::OutOfMemory;
using support::FailureOf;

/// Enough for a column of a block of 400 rows, not for the block.
constexpr std::size_t Little = 20'000;

TEST(ScarceMemory, RefusesABlockAndLeavesTheOldOne) {
  packetroutines::BlockArrays block;
  block.Rebuild(10);
  block.SignalValues.Row(9)[0] = 7;
  {
    const ScarceMemory scarce(Little);

    EXPECT_EQ(FailureOf([&] { block.Rebuild(400); }), OutOfMemory);
  }

  EXPECT_EQ(block.SignalValues.Rows(), 10);
  EXPECT_EQ(block.SignalValues.Row(9)[0], 7);
  EXPECT_EQ(FailureOf([&] { block.Rebuild(400); }), 0);
}

TEST(ScarceMemory, RefusesTheRecordRings) {
  packetroutines::RecordRings rings;
  {
    const ScarceMemory scarce(Little);

    EXPECT_EQ(FailureOf([&] { rings.Reserve(4000); }), OutOfMemory);
  }

  EXPECT_EQ(FailureOf([&] { rings.Reserve(4000); }), 0);
}

}  // namespace
