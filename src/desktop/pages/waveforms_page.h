#pragma once

#include <QPushButton>
#include <QWidget>
#include <array>

#include "desktop/binding/binder.h"
#include "desktop/binding/graph_view.h"
#include "desktop/look/scale.h"
#include "desktop/widgets/card.h"
#include "desktop/widgets/legend_box.h"
#include "desktop/widgets/quiet_line.h"
#include "desktop/widgets/radio_button.h"
#include "desktop/widgets/run_column.h"
#include "forms/shared_controls.h"
#include "forms/waveforms_controls.h"
#include "forms/window_controls.h"
#include "platform/loop/guard.h"

namespace desktop {

/// The Waveforms view: the graph over the whole width, and at its right the frame with the run
/// button, the legend, the graph modes and the station choice.
class WaveformsPage : public QWidget, public look::Scalable {
  Q_OBJECT

 public:
  WaveformsPage(forms::WaveformsControls& scope, forms::SharedControls& shared,
                forms::WindowControls& form, Binder& binder, platform::Guard& guard,
                QWidget* parent);

  /// The frame; the view's logo stands at its foot.
  QWidget& Frame() { return *frame_; }
  void TakeScale() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BindControls(Binder& binder);
  void OrderTabs();
  void FillFrame();
  void Follow(forms::WindowControls& form);
  void Lay();

  forms::WaveformsControls& scope_;
  forms::SharedControls& shared_;
  GraphView* graph_;
  Ground* frame_;
  RunColumn* run_;
  QPushButton* print_;
  std::array<LegendBox*, 8> legend_{};
  std::array<RadioButton*, 3> modes_{};
  QuietLine* quiet_;
};

}  // namespace desktop
