// Plays a process bus on a network interface in real time:
//
//   vornik_live_bus --interface NAME --profile NAME [--senders N] [--duration SECONDS]
//                   [--spacing US]
//
// At the end it prints how many frames of each stream it sent, as JSON. It stops before that, and
// without a word, as soon as nobody is left to read what it prints.

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>

#include "player.h"

namespace {

constexpr int MostSenders = 64;
/// Samples between two looks whether there is a reader.
constexpr std::int64_t LookEvery = 64;

std::map<std::string, std::string> OptionsOf(int argc, char** argv) {
  std::map<std::string, std::string> options{{"--interface", ""},
                                             {"--profile", ""},
                                             {"--senders", "0"},
                                             {"--duration", "1"},
                                             {"--spacing", "0"}};
  for (int i = 1; i < argc; i += 2) {
    const auto option = options.find(argv[i]);
    if (option == options.end() || i + 1 == argc) throw std::invalid_argument(argv[i]);
    option->second = argv[i + 1];
  }
  return options;
}

/// Whether whoever read what this program prints is gone: a pipe without a reader is reported
/// though nothing is asked for.
bool NobodyReads() {
  pollfd output{STDOUT_FILENO, 0, 0};
  return poll(&output, 1, 0) > 0;
}

void Play(std::map<std::string, std::string> options) {
  const int senders = std::stoi(options["--senders"]);
  if (senders < 0 || senders > MostSenders) throw std::invalid_argument("--senders");
  const bus::Profile profile = bus::ProfileOf(options["--profile"], senders);
  bus::FarEnd wire(options["--interface"]);
  bus::Player player(wire, profile, std::stoll(options["--spacing"]));
  bus::SampleClock clock(profile.Rate);
  const auto total = static_cast<std::int64_t>(std::stod(options["--duration"]) * profile.Rate);
  for (std::int64_t sample = 0; sample < total;) {
    const std::int64_t due = std::min(total, clock.Due(sample));
    for (; sample < due; ++sample) {
      if (sample % LookEvery == 0 && NobodyReads()) return;
      player.Play(clock, sample);
    }
    clock.WaitFor(sample);
  }
  std::cout << player.Sent() << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
  // A reader that goes in the last moment is no failure.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    Play(OptionsOf(argc, argv));
  } catch (const std::exception& error) {
    std::cerr << "vornik_live_bus: " << error.what() << std::endl;
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
