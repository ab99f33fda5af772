#pragma once

#include <functional>
#include <string>

#include "platform/services/dialogs.h"

namespace console {

/// Boxes of a program that nobody sits at: each is one line, and nothing stands still for it. A
/// question gets the answer that harms least: what fails again and again is stopped, and a program
/// without anything to capture from ends.
class LineDialogs : public platform::Dialogs {
 public:
  using Tell = std::function<void(const std::string& line)>;

  explicit LineDialogs(Tell tell) : tell_(std::move(tell)) {}

  platform::Answer Show(const platform::Message& message) override;
  /// The one that tells that no data comes.
  void ShowTimed(const platform::TimedMessage& message) override;
  bool NoDataTold() const { return noDataTold_; }

 private:
  Tell tell_;
  bool noDataTold_ = false;
};

}  // namespace console
