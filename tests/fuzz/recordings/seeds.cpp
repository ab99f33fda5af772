// Writes recordings as they are, and scripts of others.

#include <string>

#include "console/recording_text.h"
#include "fuzz/seed_folder.h"

int main(int count, char** arguments) {
  return fuzz::WriteSeeds(count, arguments, [](fuzz::SeedFolder& folder) {
    for (char form = 0; form < 6; ++form) {
      const std::string raw = std::string{form} + '\0';
      folder.Put(raw + console::RecordingText(console::Counters(3990, 20, 4000)));
      folder.Put(raw + console::RecordingText({1, 2, 2, 5, 4, 3999, 0}) + "7;18;1");
      folder.Put(raw + "0;1;+5;1e3;-.5;inf;;1E-3;3.4028235E38;7\r0;2;1\r\n");
      const std::string grown = std::string{form} + '\1' + "\x0F\x80";
      folder.Put(grown +
                 "\xC7\xC7\xCA\x03\x10\xE0\x05\x20\xF0\x03"
                 "1e9"
                 "\xFF\x04"
                 "0;1;"
                 "\x30");
    }
  });
}
