#pragma once

#include <qcustomplot.h>

namespace desktop {

/// Marks of a scale of seconds, which has nothing before its first sample.
class SecondsTicker : public QCPAxisTicker {
 protected:
  QString getTickLabel(double tick, const QLocale& locale, QChar form, int precision) override {
    if (tick < 0) return {};
    return QCPAxisTicker::getTickLabel(tick, locale, form, precision) + QStringLiteral(" s");
  }
};

}  // namespace desktop
