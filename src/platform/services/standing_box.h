#pragma once

#include <functional>

namespace platform {

/// Tells, for as long as it lives, that a modal box stands: True when it comes, False when it goes.
/// Boxes nest.
class StandingBox {
 public:
  using Listener = std::function<void(bool)>;

  explicit StandingBox(const Listener& listener) : listener_(listener) { Tell(true); }
  StandingBox(const StandingBox&) = delete;
  StandingBox& operator=(const StandingBox&) = delete;
  ~StandingBox() { Tell(false); }

 private:
  void Tell(bool stands) const {
    if (listener_) listener_(stands);
  }

  const Listener& listener_;
};

}  // namespace platform
