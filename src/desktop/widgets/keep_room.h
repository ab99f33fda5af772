#pragma once

#include <QWidget>

namespace desktop {

/// What comes and goes keeps its room in its layout, so that nothing jumps.
inline void KeepRoom(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

}  // namespace desktop
