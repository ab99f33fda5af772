#include "console/commands/number_within.h"

#include <charconv>

#include "base/number_text.h"

namespace console {

namespace {

/// Shorter than the time between two samples helps nobody; the longest are thirty years.
constexpr double ShortestTime = 0.0001;
constexpr double LongestTime = 1e9;
constexpr double LowestFrequency = 1;
constexpr double HighestFrequency = 1000;

bool IsWithin(const std::string& text, double least, double most) {
  if (text.find_first_not_of("0123456789.") != std::string::npos) return false;
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number, std::chars_format::fixed);
  return read.ec == std::errc() && read.ptr == end && number >= least && number <= most;
}

}  // namespace

CLI::Validator NumberWithin(double least, double most) {
  const auto look = [=](const std::string& text) {
    if (IsWithin(text, least, most)) return std::string();
    const auto words = [](double bound) { return platform::NumberText().General(bound); };
    return "'" + text + "' is no number from " + words(least) + " to " + words(most);
  };
  return {look, ""};
}

CLI::Validator SomeSeconds() {
  return NumberWithin(ShortestTime, LongestTime);
}

CLI::Validator MainsFrequency() {
  return NumberWithin(LowestFrequency, HighestFrequency);
}

}  // namespace console
