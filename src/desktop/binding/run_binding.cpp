#include "desktop/binding/run_binding.h"

namespace desktop {

void BindRun(Binder& binder, forms::SharedControls& shared, const RunParts& parts,
             RunColumn& column) {
  column.AddStations();
  binder.Bind(shared.Shape12[parts.Indicator], column.Indicator(),
              ArrayName("Shape12", parts.Indicator));
  binder.Bind(parts.Button, column.Button(), QString::fromLatin1(parts.ButtonName));
  QWidget* last = &column.Button();
  for (std::size_t i = 0; i < RunColumn::Stations; ++i) {
    const std::size_t station = parts.Station + i;
    binder.Bind(shared.Option3[station], column.Station(i), ArrayName("Option3", station),
                Wording::Foreign);
    QWidget::setTabOrder(last, &column.Station(i));
    last = &column.Station(i);
  }
}

}  // namespace desktop
