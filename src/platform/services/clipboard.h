#pragma once

#include "platform/picture.h"

namespace platform {

/// The clipboard of the user's desktop.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void Clear() = 0;
  virtual void SetPicture(const Picture& picture) = 0;
};

}  // namespace platform
