#pragma once

#include <qcustomplot.h>

namespace desktop {

/// Marks of a scale of seconds, told in milliseconds where less than one of them shows. There is
/// nothing before the first sample.
class TimeTicker : public QCPAxisTicker {
 public:
  void generate(const QCPRange& range, const QLocale& locale, QChar form, int precision,
                QVector<double>& ticks, QVector<double>* subTicks,
                QVector<QString>* labels) override {
    inMilliseconds_ = range.size() < 1;
    QCPAxisTicker::generate(range, locale, form, precision, ticks, subTicks, labels);
  }

 protected:
  QString getTickLabel(double tick, const QLocale& locale, QChar form, int precision) override {
    if (tick < 0) return {};
    const double count = inMilliseconds_ ? tick * 1000 : tick;
    return QCPAxisTicker::getTickLabel(count, locale, form, precision) +
           (inMilliseconds_ ? QStringLiteral(" ms") : QStringLiteral(" s"));
  }

 private:
  bool inMilliseconds_ = false;
};

}  // namespace desktop
