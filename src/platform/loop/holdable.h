#pragma once

namespace platform {

/// What stands still while a box stands.
class Holdable {
 public:
  /// Stands still until the release. Holds nest.
  virtual void Hold() = 0;
  virtual void Release() = 0;

 protected:
  ~Holdable() = default;
};

}  // namespace platform
