#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QWidget>
#include <array>

#include "desktop/binding/binder.h"
#include "desktop/widgets/card.h"
#include "desktop/widgets/choice_box.h"
#include "desktop/widgets/picture_pad.h"
#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/run_column.h"
#include "desktop/widgets/value_table.h"
#include "forms/phasor_controls.h"
#include "forms/setup_controls.h"
#include "forms/shared_controls.h"
#include "forms/window_controls.h"

namespace desktop {

/// What the Phasor view shows.
struct PhasorParts {
  forms::PhasorControls& Phasor;
  /// Its lists hold the units of the table's magnitudes.
  forms::SetupControls& Setup;
  forms::SharedControls& Shared;
  forms::WindowControls& Form;
};

/// The Phasor view: the circle diagram, the table beside it, and below the table what controls
/// them. The frame and the diagram stand where the layout rules put them.
class PhasorPage : public QWidget {
  Q_OBJECT

 public:
  PhasorPage(const PhasorParts& parts, Binder& binder, QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BindControls(Binder& binder);
  void FillScales(Binder& binder);
  void Follow();
  void FollowUnits();
  void Lay();
  void LayBelow(int left, int top, int right);
  void ShowColours();

  PhasorParts parts_;
  Ground* frame_;
  QLabel* heading_;
  PicturePad* picture_;
  ValueTable* table_;
  RunColumn* run_;
  QuietLine* quiet_;
  Ground* scalesFrame_;
  QCheckBox* automatic_;
  std::array<ChoiceBox*, 2> scales_{};
};

}  // namespace desktop
