#pragma once

#include <string>

#include "live/publisher.h"

namespace live {

/// A whole bus at the far end of the wire: many senders that are locked to one clock, as one of the
/// profiles tells them. It plays as long as it is held, an hour at most.
class PlayedBus : public Publisher {
 public:
  explicit PlayedBus(const std::string& profile, const std::string& arguments = "")
      : Publisher(VORNIK_BUS, "--duration 3600 --profile " + profile + " " + arguments) {}
};

}  // namespace live
