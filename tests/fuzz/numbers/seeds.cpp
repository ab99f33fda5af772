// Writes numbers as the program writes them, and a few that it does not.

#include <bit>
#include <cstdint>
#include <string>

#include "base/number_text.h"
#include "fuzz/seed_folder.h"

namespace {

std::string Input(int locale, int pattern, double value, const std::string& text) {
  std::string input{static_cast<char>(locale), static_cast<char>(pattern)};
  const auto bits = std::bit_cast<std::uint64_t>(value);
  for (int shift = 56; shift >= 0; shift -= 8) input += static_cast<char>(bits >> shift);
  return input + text;
}

}  // namespace

int main(int count, char** arguments) {
  return fuzz::WriteSeeds(count, arguments, [](fuzz::SeedFolder& folder) {
    int pattern = 0;
    for (const double value :
         {0.0, -0.0, 1.005, 533.239, -1e15, 1e-5, 5e-324, 1.7976931348623157e308}) {
      for (const int locale : {0, 1}) {
        const platform::NumberText numbers(locale == 0 ? platform::NumberLocale{'.', ','}
                                                       : platform::NumberLocale{',', '.'});
        folder.Put(Input(locale, pattern++ % 10, value, numbers.General(value)));
        folder.Put(Input(locale, pattern++ % 10, value, numbers.Format(value, "###,##0.000")));
      }
    }
    for (const char* text :
         {"1e400", " +-5", "True", "0x1F", "inf", "09.03.2024 14:05:07", "1e-400"}) {
      folder.Put(Input(0, 0, 0.5, text));
    }
  });
}
