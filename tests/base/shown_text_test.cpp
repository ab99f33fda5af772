#include "base/shown_text.h"

#include <gtest/gtest.h>

#include "adapters/windows1252.h"

namespace {

using platform::Blanked;
using platform::Escaped;

TEST(ShownText, WritesControlCharactersOut) {
  EXPECT_EQ(Escaped(std::string("MU01\0\0", 6)), "MU01\\0\\0");
  EXPECT_EQ(Escaped("MU01\r\n"), "MU01\\r\\n");
  EXPECT_EQ(Escaped("\tMU\x1F\x7F"), "\\tMU\\x1F\\x7F");
}

TEST(ShownText, WritesOutWhatTheCodePageHasNoCharacterFor) {
  const adapters::Windows1252 code;
  EXPECT_EQ(Escaped(code.ToUtf8("M\x81\x8D\x8F\x90\x9D\xAD")), "M\\x81\\x8D\\x8F\\x90\\x9D\\xAD");
}

TEST(ShownText, LeavesEveryOtherCharacterAsItStands) {
  const adapters::Windows1252 code;
  for (int byte = 0x20; byte < 0x100; ++byte) {
    const std::string character = code.ToUtf8(std::string(1, static_cast<char>(byte)));
    const bool shapeless = byte == 0x7F || byte == 0x81 || byte == 0x8D || byte == 0x8F ||
                           byte == 0x90 || byte == 0x9D || byte == 0xAD;
    EXPECT_EQ(Escaped(character) == character, !shapeless) << byte;
    EXPECT_EQ(Blanked(character), shapeless ? " " : character) << byte;
  }
  EXPECT_EQ(Escaped("c:\\new & \"MU\""), "c:\\new & \"MU\"");
  EXPECT_EQ(Escaped(""), "");
  EXPECT_EQ(Escaped("\xC2"), "\xC2");
}

TEST(ShownText, KeepsTheColumnsOfADump) {
  EXPECT_EQ(Blanked("A \xC2\x81 \xC2\xAD \x1F B "), "A       B ");
}

}  // namespace
