#pragma once

namespace platform {

/// Holds a flag True as long as it lives, also where a routine is left by an exception.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;
  ~Raised() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace platform
