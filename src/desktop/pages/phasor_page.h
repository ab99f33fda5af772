#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QWidget>
#include <array>

#include "desktop/binding/binder.h"
#include "desktop/widgets/choice_box.h"
#include "desktop/widgets/picture_pad.h"
#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/radio_button.h"
#include "desktop/widgets/run_button.h"
#include "desktop/widgets/run_indicator.h"
#include "desktop/widgets/value_table.h"
#include "forms/phasor_controls.h"
#include "forms/shared_controls.h"
#include "forms/values_controls.h"

namespace desktop {

/// The Phasor view: the circle diagram, the table beside it, and below the table what controls
/// them. The frame and the diagram stand where the layout rules put them.
class PhasorPage : public QWidget {
  Q_OBJECT

 public:
  PhasorPage(forms::PhasorControls& phasor, forms::ValuesControls& values,
             forms::SharedControls& shared, Binder& binder, PicturePad& picture, QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BindControls(Binder& binder);
  void Follow();
  void Lay();
  void ShowColours();
  void LayScales(QPoint corner, int width, double textRatio);

  forms::PhasorControls& phasor_;
  /// The table names the unit of each channel as the readings do.
  forms::ValuesControls& values_;
  forms::SharedControls& shared_;
  QFrame* frame_;
  QLabel* heading_;
  PicturePad& picture_;
  ValueTable* table_;
  RunIndicator* indicator_;
  RunButton* run_;
  QLabel* stationHeading_;
  std::array<RadioButton*, 2> stations_{};
  QuietLine* quiet_;
  QFrame* scalesFrame_;
  QLabel* scalesHeading_;
  QCheckBox* automatic_;
  std::array<QLabel*, 2> scaleCaptions_{};
  std::array<ChoiceBox*, 2> scales_{};
};

}  // namespace desktop
