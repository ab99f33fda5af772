#pragma once

#include <QDialog>

#include "desktop/binding/binder.h"
#include "desktop/widgets/text_area.h"
#include "forms/revision_history.h"
#include "platform/controls/tab_strip.h"
#include "platform/loop/guard.h"

namespace desktop {

/// The window with the revision history. It is built when it opens first.
class HistoryDialog : public QDialog {
  Q_OBJECT

 public:
  /// The heading stands in the colours of the strip.
  HistoryDialog(forms::Revisionhistory& history, const platform::TabStrip& strip, Binder& binder,
                platform::Guard& guard, QWidget* parent);

  void reject() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  forms::Revisionhistory& history_;
  const platform::TabStrip& strip_;
  platform::Guard& guard_;
  TextArea* text_;
};

}  // namespace desktop
