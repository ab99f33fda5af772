#pragma once

#include <cstdint>
#include <string>

#include "far_end.h"

namespace bus {

/// What else is on a process bus: trip messages, the clock's own frames, and clients that talk to
/// the devices. The texts in them hold the ID of a stream, as they do in substations that name all
/// things after the bay.
class OtherProtocols {
 public:
  explicit OtherProtocols(const std::string& id);

  /// Puts what is due with a sample on the wire.
  void Put(FarEnd& wire, std::int64_t sample) const;

 private:
  Bytes trips_;
  Bytes clock_;
  Bytes client_;
};

}  // namespace bus
