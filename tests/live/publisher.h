#pragma once

#include <poll.h>

#include <cstdio>
#include <memory>
#include <string>

#include "live/wire.h"

namespace live {

/// A publisher of streams at the far end of the wire, in a process of its own that ends with it.
class Publisher {
 public:
  explicit Publisher(const std::string& arguments)
      : Publisher(std::string(VORNIK_PYTHON) + " " + VORNIK_PUBLISHER, arguments) {}

  bool HasFinished() const {
    pollfd finished{fileno(pipe_.get()), POLLIN, 0};
    return poll(&finished, 1, 0) != 0;
  }
  /// What the publisher says that it sent; waits until it has finished.
  std::string Sent() {
    std::string sent;
    for (int c = std::fgetc(pipe_.get()); c != EOF; c = std::fgetc(pipe_.get())) {
      sent += static_cast<char>(c);
    }
    return sent;
  }

 protected:
  Publisher(const std::string& program, const std::string& arguments)
      : pipe_(popen((program + " --interface " + FarEnd + " " + arguments).c_str(), "r"), pclose) {}

 private:
  std::unique_ptr<FILE, int (*)(FILE*)> pipe_;
};

}  // namespace live
