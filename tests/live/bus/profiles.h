#pragma once

#include <string>
#include <vector>

#include "frame.h"

namespace bus {

/// What a bus is like: who sends on it, and how fast.
struct Profile {
  std::vector<Sender> Senders;
  /// Samples a second.
  int Rate = 4000;
  /// Now and then two frames that follow each other have changed places.
  bool Swapped = false;
  /// Other protocols send beside the samples.
  bool Others = false;
};

/// A profile with so many senders, or with those that show all of it where that is 0. Throws where
/// there is none of this name.
Profile ProfileOf(const std::string& name, int senders);

}  // namespace bus
