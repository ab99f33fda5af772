#include "adapters/windows1252.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class Windows1252 : public ::testing::Test {
 protected:
  adapters::Windows1252 page_;
};

TEST_F(Windows1252, ConvertsTheCharactersOfThePage) {
  EXPECT_EQ(page_.FromUtf8("A°µ€Ÿ"), "A\xB0\xB5\x80\x9F");
  EXPECT_EQ(page_.ToUtf8("A\xB0\xB5\x80\x9F"), "A°µ€Ÿ");
}

TEST_F(Windows1252, BringsEveryByteToTextAndBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(page_.FromUtf8(page_.ToUtf8(bytes)), bytes);
}

TEST_F(Windows1252, HasItsOwnCharactersBelowThoseOfLatin1) {
  EXPECT_EQ(page_.ToUtf8("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"), "€‚ƒ„…†‡ˆ‰Š‹ŒŽ");
  EXPECT_EQ(page_.ToUtf8("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"),
            "‘’“”•–—˜™š›œžŸ");
}

TEST_F(Windows1252, SharesTheUpperHalfWithLatin1) {
  for (int byte = 0xA0; byte < 0x100; ++byte) {
    const std::string text = {static_cast<char>(byte < 0xC0 ? 0xC2 : 0xC3),
                              static_cast<char>(0x80 | (byte & 0x3F))};
    EXPECT_EQ(page_.ToUtf8(std::string(1, static_cast<char>(byte))), text);
  }
}

TEST_F(Windows1252, GivesTheFiveFreeBytesTheControlCharactersOfTheirNumber) {
  EXPECT_EQ(page_.ToUtf8("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
}

TEST_F(Windows1252, PutsAQuestionMarkForACharacterOutsideThePage) {
  EXPECT_EQ(page_.FromUtf8("\xCE\xA9=\xE4\xB8\xAD \xF0\x9F\x98\x80!"), "?=? ?!");
  EXPECT_EQ(page_.FromUtf8("\xC2\x80"), "?") << "a control character that the euro sign displaced";
}

TEST_F(Windows1252, PutsAQuestionMarkForBytesThatAreNoText) {
  EXPECT_EQ(page_.FromUtf8("a\xFF"
                           "b"),
            "a?b");
  EXPECT_EQ(page_.FromUtf8("a\x80"
                           "b"),
            "a?b");
  EXPECT_EQ(page_.FromUtf8("a\xC3"), "a?");
  EXPECT_EQ(page_.FromUtf8("a\xE2\x82"), "a?");
  EXPECT_EQ(page_.FromUtf8("\xE2\x82z"), "?z");
  EXPECT_EQ(page_.FromUtf8("\xC3\xC3\xA9"), "?\xE9");
}

TEST_F(Windows1252, TellsCharactersOfEachLengthByTheirFirstByte) {
  // The first and the last byte that begins a character of two, three and four bytes, and the bytes
  // beside them, which begin none.
  EXPECT_EQ(page_.FromUtf8("\xC1\x81."), "??.");
  EXPECT_EQ(page_.FromUtf8("\xC2\xA9."), "\xA9.");
  EXPECT_EQ(page_.FromUtf8("\xDF\xBF."), "?.");
  EXPECT_EQ(page_.FromUtf8("\xE0\xA4\x85."), "?.");
  EXPECT_EQ(page_.FromUtf8("\xEF\xBC\x9F."), "?.");
  EXPECT_EQ(page_.FromUtf8("\xF0\x9F\x98\x80."), "?.");
  EXPECT_EQ(page_.FromUtf8("\xF4\x8F\xBF\xBF."), "?.");
  EXPECT_EQ(page_.FromUtf8("\xE0\x82\xA9."), "?.") << "a character in more bytes than it needs";
  EXPECT_EQ(page_.FromUtf8("\xF5\x80\x80\x80."), "????.");
}

TEST_F(Windows1252, KeepsZeroBytes) {
  EXPECT_EQ(page_.FromUtf8(std::string("a\0b", 3)), std::string("a\0b", 3));
  EXPECT_EQ(page_.ToUtf8(std::string("a\0b", 3)), std::string("a\0b", 3));
}

}  // namespace
