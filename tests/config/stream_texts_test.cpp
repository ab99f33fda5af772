#include "config/stream_texts.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using config::StreamTexts;

TEST(StreamTexts, TellOfEachTextThatIsWritten) {
  StreamTexts texts;
  for (std::size_t stream = 0; stream < texts.size(); ++stream) {
    const std::uint32_t before = texts.Changes();

    texts[stream] = "MU01";

    EXPECT_NE(texts.Changes(), before);
    EXPECT_EQ(std::as_const(texts)[stream], "MU01");
  }
}

TEST(StreamTexts, TellOfNothingWhileTheyAreRead) {
  const StreamTexts texts("MU01", "MU02");
  const std::uint32_t before = texts.Changes();

  EXPECT_EQ(texts[0] + texts[1], "MU01MU02");

  EXPECT_EQ(texts.Changes(), before);
}

TEST(StreamTexts, TellThatOthersTookTheirPlace) {
  StreamTexts texts("MU01", "MU02");
  const std::uint32_t before = texts.Changes();

  texts = StreamTexts("MU01", "MU03");

  EXPECT_NE(texts.Changes(), before);
  EXPECT_EQ(std::as_const(texts)[1], "MU03");
}

// Who has searched for nothing yet has taken none of them.
TEST(StreamTexts, ThatNobodyWroteCountAsNews) {
  EXPECT_NE(StreamTexts().Changes(), 0U);
}

}  // namespace
