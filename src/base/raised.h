#pragma once

#include <utility>

namespace platform {

/// Holds a flag True as long as it lives, also where a routine is left by an exception. Behind it
/// the flag is what it was before, so that one may stand inside of another.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;
  ~Raised() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

/// Counts what is under way, also where it is left by an exception.
template <typename Count>
class Counted {
 public:
  explicit Counted(Count& count) : count_(count) { ++count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  ~Counted() { --count_; }

 private:
  Count& count_;
};

}  // namespace platform
