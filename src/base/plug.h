#pragma once

#include "base/failure.h"

namespace platform {

/// How a lower folder calls a higher one: it defines an interface for what it needs, keeps an empty
/// plug of it, and whoever builds the upper part plugs that in, once.
template <typename Interface>
class Plug {
 public:
  Plug() = default;
  Plug(const Plug&) = delete;
  Plug& operator=(const Plug&) = delete;

  Plug& operator=(Interface& part) {
    part_ = &part;
    return *this;
  }
  /// Somebody has plugged in.
  explicit operator bool() const { return part_ != nullptr; }
  /// Failure 91 where nobody has plugged in.
  Interface* operator->() const {
    if (part_ == nullptr) throw Failure(failure::ObjectNotSet);
    return part_;
  }

 private:
  Interface* part_ = nullptr;
};

}  // namespace platform
