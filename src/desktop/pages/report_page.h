#pragma once

#include <QPushButton>
#include <QWidget>

#include "desktop/binding/binder.h"
#include "desktop/binding/rich_rows.h"
#include "desktop/widgets/card.h"
#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/run_column.h"
#include "forms/report_controls.h"
#include "forms/shared_controls.h"

namespace desktop {

/// The Report view: titles and values of one frame in rows, and at their right what controls them.
class ReportPage : public QWidget {
  Q_OBJECT

 public:
  ReportPage(forms::ReportControls& report, forms::SharedControls& shared, Binder& binder,
             QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void AddRows(forms::ReportControls& report);
  void BindControls(forms::ReportControls& report, forms::SharedControls& shared, Binder& binder);

  RichRows rows_;
  Card* panel_;
  RunColumn* run_;
  QPushButton* print_;
  QuietLine* quiet_;
  forms::ReportControls& report_;
  QRectF sheet_;
};

}  // namespace desktop
