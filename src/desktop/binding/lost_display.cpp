#include "desktop/binding/lost_display.h"

#include <cstdlib>
#include <utility>

namespace desktop {

LostDisplay::LostDisplay(std::function<void()> lost) : lost_(std::move(lost)) {
  static const bool asked = std::atexit(Left) == 0;
  if (asked) present_ = this;
}

LostDisplay::~LostDisplay() {
  present_ = nullptr;
}

void LostDisplay::Left() {
  // A program that was taken down in order has nothing left to do.
  if (present_ != nullptr) present_->lost_();
}

}  // namespace desktop
