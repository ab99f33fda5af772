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
      : pipe_(popen((std::string(VORNIK_PYTHON) + " " + VORNIK_PUBLISHER + " --interface " +
                     FarEnd + " " + arguments)
                        .c_str(),
                    "r"),
              pclose) {}

  bool HasFinished() const {
    pollfd finished{fileno(pipe_.get()), POLLIN, 0};
    return poll(&finished, 1, 0) != 0;
  }
  /// What the publisher says that it sent; waits until it has finished.
  std::string Sent() {
    char sent[256] = {};
    return std::fgets(sent, sizeof sent, pipe_.get()) != nullptr ? sent : "";
  }

 private:
  std::unique_ptr<FILE, int (*)(FILE*)> pipe_;
};

}  // namespace live
