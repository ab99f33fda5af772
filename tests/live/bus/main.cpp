// Plays a process bus on a network interface in real time:
//
//   vornik_live_bus --interface NAME --profile NAME [--senders N] [--duration SECONDS]
//                   [--spacing US] [--keeps-time 1]
//
// A bus that was held up goes on with the next sample. One that keeps the time leaves out what it
// is too late for, as merging units do.
//
// SIGUSR1 has each frame go out twice from now on, or once again; SIGUSR2 has frames change places
// from now on, or keep them again. SIGTERM is its end.
//
// At the end it prints how many frames of each stream it sent, as JSON, and how many of these went
// out a second time or behind a later one, and how many were left out. It stops before that, and
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
  std::map<std::string, std::string> options{{"--interface", ""}, {"--profile", ""},
                                             {"--senders", "0"},  {"--duration", "1"},
                                             {"--spacing", "0"},  {"--keeps-time", "0"}};
  for (int i = 1; i < argc; i += 2) {
    const auto option = options.find(argv[i]);
    if (option == options.end() || i + 1 == argc) throw std::invalid_argument(argv[i]);
    option->second = argv[i + 1];
  }
  return options;
}

volatile std::sig_atomic_t twice = 0;
volatile std::sig_atomic_t swapped = 0;
volatile std::sig_atomic_t ended = 0;

void TakeSignals() {
  std::signal(SIGUSR1, [](int) { twice = 1 - twice; });
  std::signal(SIGUSR2, [](int) { swapped = 1 - swapped; });
  std::signal(SIGTERM, [](int) { ended = 1; });
  // A reader that goes in the last moment is no failure.
  std::signal(SIGPIPE, SIG_IGN);
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
  const bool keepsTime = options["--keeps-time"] == "1";
  for (std::int64_t sample = 0; sample < total && ended == 0; ++sample) {
    clock.WaitFor(sample);
    // It may be held up in the midst of what it makes up for, too.
    const std::int64_t late = clock.TooLate(sample);
    if (!keepsTime) {
      clock.SetBack(late);
    } else if (late > 0) {
      // Behind its end there is nothing to leave out.
      player.LeaveOut(std::min(total - sample, late));
      sample += late;
      if (sample >= total) break;
    }
    if (sample % LookEvery == 0 && NobodyReads()) return;
    player.Disturb({.Twice = twice != 0, .Swapped = swapped != 0}, sample);
    player.Play(clock, sample);
  }
  std::cout << player.Sent() << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
  TakeSignals();
  try {
    Play(OptionsOf(argc, argv));
  } catch (const std::exception& error) {
    std::cerr << "vornik_live_bus: " << error.what() << std::endl;
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
