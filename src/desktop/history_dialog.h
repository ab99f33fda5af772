#pragma once

#include <QDialog>

#include "desktop/binder.h"
#include "desktop/guard.h"
#include "desktop/text_area.h"
#include "forms/revision_history.h"

namespace desktop {

/// The window with the revision history. It is built when it opens first.
class HistoryDialog : public QDialog {
  Q_OBJECT

 public:
  HistoryDialog(forms::Revisionhistory& history, Binder& binder, Guard& guard, QWidget* parent);

  void reject() override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  forms::Revisionhistory& history_;
  Guard& guard_;
  TextArea* text_;
};

}  // namespace desktop
