#pragma once

#include <QPushButton>
#include <QWidget>

#include "desktop/binding/binder.h"
#include "desktop/binding/rich_rows.h"
#include "desktop/widgets/card.h"
#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/row_picker.h"
#include "desktop/widgets/run_column.h"
#include "desktop/widgets/structure_field.h"
#include "desktop/widgets/text_area.h"
#include "forms/report_controls.h"
#include "forms/shared_controls.h"

namespace desktop {

/// The Report view: titles and values of one frame in rows, at their right what controls them, and
/// what the frame holds by its structure: beside the rows where the window is wide enough, else
/// below what controls them.
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

  void OrderTabs(bool structureBeside);
  void AddStructure(forms::ReportControls& report, Binder& binder);

  RichRows rows_;
  RowPicker* picker_;
  Card* panel_;
  RunColumn* run_;
  QPushButton* print_;
  QuietLine* quiet_;
  QLabel* heading_;
  StructureField* structure_;
  TextArea* dump_;
  forms::ReportControls& report_;
  QRectF sheet_;
};

}  // namespace desktop
