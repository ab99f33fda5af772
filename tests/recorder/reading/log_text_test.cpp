#include "recorder/reading/log_text.h"

#include <gtest/gtest.h>

#include <random>

#include "adapters/windows1252.h"
#include "support/log_reading.h"

namespace {

using packetroutines::LogText;

const adapters::Windows1252 Code;

TEST(LogText, LeavesWhatTheCodePageHasAsItStands) {
  EXPECT_EQ(LogText(Code, ""), "");
  EXPECT_EQ(LogText(Code, "c:\\Stored Data <a> 100 % ?"), "c:\\Stored Data <a> 100 % ?");
  EXPECT_EQ(LogText(Code, "B\xC3\xA4r \xE2\x82\xAC"), "B\xE4r \x80");
}

TEST(LogText, WritesTheNumberOfACharacterThatTheCodePageLacks) {
  EXPECT_EQ(LogText(Code, "\xD0\x96"), "<U+0416>");
  EXPECT_EQ(LogText(Code, "/home/\xE6\xB5\x8B\xE8\xAF\x95/a"), "/home/<U+6D4B><U+8BD5>/a");
  EXPECT_EQ(LogText(Code, "\xF0\x9F\x94\x8C."), "<U+01F50C>.");
}

TEST(LogText, IsNotTakenForANumberWhereTheTextLooksLikeOne) {
  EXPECT_EQ(LogText(Code, "<U+0416>"), "<U+003C>U+0416>");
  EXPECT_EQ(LogText(Code, "<U-0416> <u+0416> <<U+"), "<U-0416> <u+0416> <<U+003C>U+");
}

TEST(LogText, TakesABrokenTextByItsBytes) {
  EXPECT_EQ(LogText(Code,
                    "a\xFF"
                    "b"),
            "a<U+003F>b");
  EXPECT_EQ(LogText(Code, std::string(8, '\x80')), "<U+0000><U+0000>");
}

TEST(LogText, IsReadBackAsItWas) {
  // Characters of one to four bytes, some of them in the code page, and signs of the escape.
  const std::vector<std::string> parts = {"<",
                                          "U+",
                                          ">",
                                          "<U+",
                                          "0416",
                                          "\\",
                                          "%",
                                          "?",
                                          "\xC3\xA4",
                                          "\xE2\x82\xAC",
                                          "\xC2\x81",
                                          "\xD0\x96",
                                          "\xE6\xB5\x8B",
                                          "\xF0\x9F\x94\x8C",
                                          "\xD9\xA2",
                                          "\xC2\x80"};
  std::mt19937 random(5);
  for (int i = 0; i < 2000; ++i) {
    std::string text;
    for (std::size_t length = random() % 12; length > 0; --length)
      text += parts[random() % parts.size()];
    ASSERT_EQ(support::ReadLogText(Code, LogText(Code, text)), text) << i;
  }
}

}  // namespace
