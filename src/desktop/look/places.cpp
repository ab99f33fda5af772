#include "desktop/look/places.h"

#include <QWidget>

#include "desktop/look/twips.h"

namespace desktop {

QRect PlaceOnPage(const platform::Control& control, const QWidget& page) {
  const QPoint corner = page.mapTo(page.window(), QPoint(0, 0));
  return QRect(twips::Pixels(control.Left), twips::Pixels(control.Top),
               twips::Pixels(control.Width), twips::Pixels(control.Height))
      .translated(-corner);
}

}  // namespace desktop
