#pragma once

#include <string>

#include "platform/controls/status_bar.h"

namespace subroutines {

/// What the status bar says of the last page that was printed, in the panel that else names the
/// printer. Whatever is written there behind it takes its place.
class PrintNotice {
 public:
  explicit PrintNotice(platform::Panel& panel);

  /// Shows short words; `whole` says more in the panel's tip.
  void Tell(const std::string& words, const std::string& whole);
  /// Gives the panel back what stood there before.
  void TakeBack();

 private:
  bool Stands() const { return !said_.empty() && panel_.Text == said_; }

  platform::Panel& panel_;
  std::string said_;
  std::string textBefore_;
  std::string tip_;
};

}  // namespace subroutines
