#pragma once

#include <cstdint>

#include "platform/controls/progress_bar.h"
#include "platform/services/mouse_pointer.h"

namespace packetroutines {

/// Fills a progress bar while files are read, from `first` to `last` percent for one pass through a
/// file. However large the file is, a pass paints the bar a limited number of times.
class AnalysisPass {
 public:
  static constexpr std::int64_t Steps = 50;

  AnalysisPass(platform::ProgressBar& bar, std::int16_t first, std::int16_t last,
               std::int64_t fileSize)
      : bar_(bar), first_(first), last_(last), fileSize_(fileSize) {
    Show();
  }
  AnalysisPass(const AnalysisPass&) = delete;
  AnalysisPass& operator=(const AnalysisPass&) = delete;

  /// So many bytes more were read.
  void Advance(std::int64_t bytes) {
    read_ += bytes;
    const std::int64_t step = read_ < fileSize_ ? read_ * Steps / fileSize_ : Steps;
    if (step == step_) return;
    step_ = step;
    Show();
  }

 private:
  void Show() {
    bar_.Value = static_cast<std::int16_t>(first_ + (last_ - first_) * step_ / Steps);
    bar_.Repaint();
  }

  platform::ProgressBar& bar_;
  std::int64_t first_;
  std::int64_t last_;
  std::int64_t fileSize_;
  std::int64_t read_ = 0;
  std::int64_t step_ = 0;
};

/// Shows the progress bar as long as it lives.
class ShownProgress {
 public:
  explicit ShownProgress(platform::ProgressBar& bar) : bar_(bar) { bar_.Visible = true; }
  ~ShownProgress() { bar_.Visible = false; }
  ShownProgress(const ShownProgress&) = delete;
  ShownProgress& operator=(const ShownProgress&) = delete;

 private:
  platform::ProgressBar& bar_;
};

/// The hourglass, as long as it lives.
class ShownHourglass {
 public:
  explicit ShownHourglass(platform::MousePointer& pointer) : pointer_(pointer) {
    pointer_.ShowHourglass();
  }
  ~ShownHourglass() { pointer_.ShowNormal(); }
  ShownHourglass(const ShownHourglass&) = delete;
  ShownHourglass& operator=(const ShownHourglass&) = delete;

 private:
  platform::MousePointer& pointer_;
};

}  // namespace packetroutines
