#include "report/print_notice.h"

namespace subroutines {

PrintNotice::PrintNotice(platform::Panel& panel) : panel_(panel), tip_(panel.ToolTipText) {
  panel_.Text.Observe([this] {
    if (!Stands() && panel_.ToolTipText != tip_) panel_.ToolTipText = tip_;
  });
}

void PrintNotice::Tell(const std::string& words, const std::string& whole) {
  if (!Stands()) textBefore_ = panel_.Text;
  said_ = words;
  panel_.Text = words;
  panel_.ToolTipText = tip_ + "\n" + whole;
}

void PrintNotice::TakeBack() {
  if (Stands()) panel_.Text = textBefore_;
}

}  // namespace subroutines
