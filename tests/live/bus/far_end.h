#pragma once

#include <sys/socket.h>
#include <sys/uio.h>

#include <string>
#include <vector>

#include "frame.h"

namespace bus {

/// The end of the wire that the bus sends from. Frames are gathered and go out in one call of the
/// system.
class FarEnd {
 public:
  /// Throws where there is no such interface, or no right to send on it.
  explicit FarEnd(const std::string& interface);
  FarEnd(const FarEnd&) = delete;
  FarEnd& operator=(const FarEnd&) = delete;
  ~FarEnd();

  /// The frame must stay as it is until it was sent.
  void Put(const Bytes& frame);
  /// What is sent while the other end is away is lost.
  void Send();

 private:
  bool otherEndIsThere_ = true;
  int socket_;
  std::vector<iovec> frames_;
  std::vector<mmsghdr> messages_;
};

}  // namespace bus
