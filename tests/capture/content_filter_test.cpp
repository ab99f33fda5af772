#include "capture/content_filter.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/fake_platform.h"

namespace {

using packetroutines::ContentFilter;

class ContentFilterOfAStream : public testing::Test {
 protected:
  bool Holds(std::string_view frame, const std::string& content) {
    filter_.Take(content);
    return filter_.Holds(frame);
  }
  bool HoldsBehindStart(std::string_view frame, const std::string& content) {
    filter_.Take(content);
    return filter_.HoldsBehindStart(frame);
  }

  support::FakePlatform platform_;
  ContentFilter filter_{platform_.Code};
};

TEST_F(ContentFilterOfAStream, FindsTheTextWhereverItStandsBehindTheFirstByte) {
  filter_.Take("MU_ALPHA");
  for (std::size_t place = 1; place < 40; ++place) {
    std::string frame(60, '.');
    frame.replace(place, 8, "MU_ALPHA");

    EXPECT_TRUE(filter_.HoldsBehindStart(frame)) << place;
  }
}

TEST_F(ContentFilterOfAStream, FindsATextThatEndsWithTheFrame) {
  EXPECT_TRUE(HoldsBehindStart("....MU_ALPHA", "MU_ALPHA"));
  EXPECT_FALSE(HoldsBehindStart("....MU_ALPH", "MU_ALPHA"));
}

TEST_F(ContentFilterOfAStream, LeavesOutAFrameThatBeginsWithIt) {
  EXPECT_FALSE(HoldsBehindStart("MU_ALPHA....", "MU_ALPHA"));
  EXPECT_TRUE(Holds("MU_ALPHA....", "MU_ALPHA"));
}

TEST_F(ContentFilterOfAStream, LeavesOutAFrameThatBeginsWithItAndHoldsItOnceMore) {
  filter_.Take("MU_ALPHA");
  ASSERT_TRUE(filter_.HoldsBehindStart("........MU_ALPHA"));

  EXPECT_FALSE(filter_.HoldsBehindStart("MU_ALPHAMU_ALPHA"));
}

TEST_F(ContentFilterOfAStream, OfAnEmptyTextIsHeldByEveryFrameButNeverBehindItsStart) {
  EXPECT_TRUE(Holds("MU_ALPHA", ""));
  EXPECT_TRUE(Holds("", ""));
  EXPECT_FALSE(HoldsBehindStart("MU_ALPHA", ""));
}

TEST_F(ContentFilterOfAStream, FollowsATextThatChangesToAnotherOfItsLength) {
  ASSERT_TRUE(HoldsBehindStart("..MU_ALPHA", "MU_ALPHA"));

  EXPECT_FALSE(HoldsBehindStart("..MU_ALPHA", "MU_BRAVO"));
  EXPECT_TRUE(HoldsBehindStart("..MU_BRAVO", "MU_BRAVO"));
}

TEST_F(ContentFilterOfAStream, OfACharacterThatNoFrameCanHoldIsHeldByNone) {
  EXPECT_FALSE(Holds("..MU_ALPHA", "MU_\xE2\x84\xA6"));
  EXPECT_FALSE(Holds("", "\xE2\x84\xA6"));

  EXPECT_TRUE(Holds("..MU_ALPHA", "MU_ALPHA"));
}

TEST_F(ContentFilterOfAStream, AgreesWithAPlainSearchOverRandomTexts) {
  std::mt19937 random(88);
  std::uniform_int_distribution<int> letters('a', 'c');
  std::uniform_int_distribution<std::size_t> lengths(1, 20);
  const auto text = [&](std::size_t length) {
    std::string letter(length, ' ');
    for (char& c : letter) c = static_cast<char>(letters(random));
    return letter;
  };
  int held = 0;
  for (int i = 0; i < 20'000; ++i) {
    const std::string content = text(lengths(random));
    const std::string frame = text(4 * lengths(random));
    filter_.Take(content);
    // Once more where it was found.
    for (int again = 0; again < 2; ++again) {
      const std::size_t at = frame.find(content);
      const bool behindStart = at != std::string::npos && at > 0;
      ASSERT_EQ(filter_.HoldsBehindStart(frame), behindStart) << content << " in " << frame;
      held += behindStart ? 1 : 0;
    }
  }
  EXPECT_GT(held, 4000);
}

}  // namespace
