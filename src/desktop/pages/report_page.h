#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <array>

#include "desktop/binding/binder.h"
#include "desktop/binding/rich_rows.h"
#include "desktop/widgets/radio_button.h"
#include "desktop/widgets/run_button.h"
#include "desktop/widgets/run_indicator.h"
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
  void LayControls(double ratio);

  RichRows rows_;
  RunIndicator* indicator_;
  RunButton* run_;
  QLabel* stationHeading_;
  std::array<RadioButton*, 2> stations_{};
  QPushButton* print_;
  QRectF sheet_;
  QRectF panel_;
};

}  // namespace desktop
