#pragma once

#include "desktop/binding/binder.h"
#include "desktop/widgets/run_column.h"
#include "forms/shared_controls.h"

namespace desktop {

/// The controls that a view's run column shows; `Indicator` and `Station` are the first members of
/// the shared arrays that belong to the view.
struct RunParts {
  platform::CWButton& Button;
  const char* ButtonName;
  std::size_t Indicator;
  std::size_t Station;
};

/// Ties a run column to the controls of its view.
void BindRun(Binder& binder, forms::SharedControls& shared, const RunParts& parts,
             RunColumn& column);

}  // namespace desktop
