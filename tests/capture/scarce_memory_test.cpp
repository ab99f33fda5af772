// The block arrays and the record rings where memory is short.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

#include "capture/record_rings.h"
#include "support/failures.h"

namespace {

/// As long as it lives, no request for more than `limit` bytes is granted, and of those for zeroed
/// memory only the first `zeroed`.
class ScarceMemory {
 public:
  explicit ScarceMemory(std::size_t limit, std::size_t zeroed = SIZE_MAX) {
    limit_ = limit;
    zeroed_ = zeroed;
  }
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;
  ~ScarceMemory() { limit_ = zeroed_ = SIZE_MAX; }

  static void* Grant(std::size_t size) {
    return size > limit_ ? nullptr : std::malloc(size == 0 ? 1 : size);
  }
  static void* GrantZeroed(std::size_t size) {
    if (zeroed_ == 0) return nullptr;
    if (zeroed_ != SIZE_MAX) --zeroed_;
    void* memory = Grant(size);
    // Called through a pointer, or the compiler would turn this into a call of `calloc`.
    static void* (*volatile const clear)(void*, int, std::size_t) = std::memset;
    return memory == nullptr ? nullptr : clear(memory, 0, size);
  }

 private:
  static inline std::size_t limit_ = SIZE_MAX;
  static inline std::size_t zeroed_ = SIZE_MAX;
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
extern "C" void* calloc(std::size_t count, std::size_t size) noexcept {
  return ScarceMemory::GrantZeroed(count * size);
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

TEST(ScarceMemory, RefusesABlockAsAWhole) {
  packetroutines::BlockArrays block;
  block.Rebuild(10);
  for (const std::size_t arrays : {1U, 2U, 3U}) {
    const ScarceMemory scarce(SIZE_MAX, arrays);

    EXPECT_EQ(FailureOf([&] { block.Rebuild(400); }), OutOfMemory) << arrays;
    EXPECT_EQ(block.SignalValues.Rows(), 10) << arrays;
    EXPECT_EQ(block.SignalValues2.Rows(), 10) << arrays;
    EXPECT_EQ(block.SampleCount.Count(), 10) << arrays;
  }
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
