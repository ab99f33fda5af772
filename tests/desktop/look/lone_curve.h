#pragma once

#include <gtest/gtest.h>

#include "desktop/binding/graph_view.h"
#include "desktop/services/qt_dialogs.h"

namespace desktop {

/// A curve alone on the paper of a graph that is never shown.
class LoneCurve : public testing::Test {
 protected:
  LoneCurve() {
    view_.resize(600, 400);
    view_.setViewport(view_.rect());
    view_.yAxis->setRange(-1, 1);
    view_.xAxis->setRange(0, 2);
    for (QCPAxis* axis : {view_.xAxis, view_.yAxis}) axis->grid()->setVisible(false);
    for (platform::Plot& plot : graph_.Plots) plot.Visible = false;
    plot_.Visible = true;
  }

  platform::RunningProgram program_{[] {}, [](int) {}};
  QtDialogs dialogs_;
  platform::Guard guard_{dialogs_, program_};
  platform::CWGraph graph_;
  platform::Plot& plot_ = graph_.Plots[0];
  GraphView view_{graph_, guard_, nullptr};
};

}  // namespace desktop
