#pragma once

namespace packetroutines {

/// The offer on the page to check a recording that has no log.
class CheckOffer {
 public:
  virtual ~CheckOffer() = default;
  /// The page rests: looks for such a recording, and shows it where there is one.
  virtual void Offer() = 0;
  /// A recording begins, or the page is left.
  virtual void Withdraw() = 0;
};

}  // namespace packetroutines
