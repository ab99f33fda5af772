#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "forms/recorder_controls.h"
#include "recorder/reading/quick_view_rows.h"
#include "recorder/reading/reading_context.h"

namespace subroutines {

/// Shows a recording that was finished: a text recording as a course over its whole time, one point
/// a group of lines, and a worksheet in the viewer of the user's desktop.
class QuickView {
 public:
  QuickView(const packetroutines::ReadingContext& context, forms::RecorderControls& recorder)
      : context_(context), recorder_(recorder) {}

  void ViewRecording();
  /// The root mean square of each channel over each group of `BaseSamples` lines. A last group that
  /// is not full keeps the rows of the group before it behind its own. Where the axis ends at the
  /// first point, that one is marked, since no line leads to it. A failure leaves through here: no
  /// trap of the stop takes it.
  void ShowQuickView();

 private:
  /// Each channel's points, in the order of the groups.
  using GroupTable = std::array<std::vector<double>, QuickViewRows::Channels>;

  std::int32_t CountLines();
  GroupTable ReadGroups();
  void Plot(GroupTable groups, std::int32_t lines);
  void OpenViewer();
  void TellOfViewer(std::int32_t code);

  packetroutines::ReadingContext context_;
  forms::RecorderControls& recorder_;
  QuickViewRows quickViewRows_;
};

}  // namespace subroutines
