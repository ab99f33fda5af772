#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <array>

#include "desktop/binding/binder.h"
#include "desktop/binding/graph_view.h"
#include "desktop/binding/guard.h"
#include "desktop/widgets/legend_box.h"
#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/radio_button.h"
#include "desktop/widgets/run_button.h"
#include "desktop/widgets/run_indicator.h"
#include "forms/shared_controls.h"
#include "forms/waveforms_controls.h"

namespace desktop {

/// The Waveforms view: the graph over the whole width, and at its right the frame with the run
/// button, the legend, the graph modes and the station choice.
class WaveformsPage : public QWidget {
  Q_OBJECT

 public:
  WaveformsPage(forms::WaveformsControls& scope, forms::SharedControls& shared, Binder& binder,
                Guard& guard, QWidget* parent);

  /// The frame; the view's logo stands at its foot.
  QWidget& Frame() { return *frame_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BindControls(Binder& binder);
  void FillFrame();
  void Follow();
  void Lay();

  forms::WaveformsControls& scope_;
  forms::SharedControls& shared_;
  GraphView* graph_;
  QFrame* frame_;
  RunIndicator* indicator_;
  RunButton* run_;
  QPushButton* print_;
  std::array<LegendBox*, 8> legend_{};
  QuietLine* quiet_;
  QLabel* modesHeading_;
  std::array<RadioButton*, 3> modes_{};
  QLabel* stationHeading_;
  std::array<RadioButton*, 2> stations_{};
};

}  // namespace desktop
