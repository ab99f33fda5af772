#pragma once

#include <functional>

namespace desktop {

/// What is to be done where the display server goes: the toolkit leaves the process then, from
/// within its own events, and takes nothing of the program down. Nothing may be drawn any more. One
/// object a program.
class LostDisplay {
 public:
  explicit LostDisplay(std::function<void()> lost);
  LostDisplay(const LostDisplay&) = delete;
  LostDisplay& operator=(const LostDisplay&) = delete;
  ~LostDisplay();

 private:
  static void Left();

  static inline LostDisplay* present_ = nullptr;
  std::function<void()> lost_;
};

}  // namespace desktop
