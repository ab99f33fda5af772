#pragma once

#include "desktop/binding/binder.h"
#include "desktop/widgets/text_area.h"
#include "desktop/window/headed_dialog.h"
#include "forms/revision_history.h"

namespace desktop {

/// The window with the revision history. It is built when it opens first.
class HistoryDialog : public HeadedDialog {
  Q_OBJECT

 public:
  HistoryDialog(forms::Revisionhistory& history, const platform::TabStrip& strip, Binder& binder,
                platform::Guard& guard, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  TextArea* text_;
};

}  // namespace desktop
