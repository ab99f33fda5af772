#pragma once

#include "desktop/binding/graph_view.h"
#include "desktop/widgets/card.h"
#include "forms/recorder_controls.h"
#include "forms/values_controls.h"
#include "platform/loop/guard.h"

namespace desktop {

/// The quick view of the finished recording on the Recorder view: the graph and the names of its
/// curves beside it. Until there is one, the card says where it would come from.
class QuickViewCard : public Card {
  Q_OBJECT

 public:
  /// The names of the curves are those of the values on the Values view, with their units.
  QuickViewCard(forms::RecorderControls& recorder, forms::ValuesControls& values,
                platform::Guard& guard, QWidget* parent);

 private:
  QWidget* Legend(forms::ValuesControls& values);
  QLabel* Hint();

  platform::CWGraph& graph_;
};

}  // namespace desktop
