#include "base/zeroed_array.h"

#include <gmock/gmock.h>

namespace {

using platform::ZeroedArray;
using ::testing::Each;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(ZeroedArray, IsEmptyAtFirst) {
  const ZeroedArray<double> array;

  EXPECT_EQ(array.Count(), 0U);
  EXPECT_THAT(array.All(), IsEmpty());
}

TEST(ZeroedArray, HoldsZerosAndThenWhatIsWritten) {
  ZeroedArray<std::int32_t> array;

  array.Redim(1000);
  EXPECT_THAT(array.All(), SizeIs(1000));
  EXPECT_THAT(array.All(), Each(0));
  array[999] = 7;

  EXPECT_EQ(array[999], 7);
}

TEST(ZeroedArray, ForgetsWhatWasWrittenWhenItIsMadeAnew) {
  ZeroedArray<double> array;
  for (int round = 0; round < 3; ++round) {
    array.Redim(1000);
    EXPECT_THAT(array.All(), Each(0.0)) << round;
    for (std::size_t i = 0; i < array.Count(); ++i) array[i] = 1;
  }
}

TEST(ZeroedArray, CanBeMadeWithoutNumbers) {
  ZeroedArray<double> array;
  array.Redim(10);

  array.Redim(0);

  EXPECT_EQ(array.Count(), 0U);
  EXPECT_THAT(array.All(), IsEmpty());
}

}  // namespace
