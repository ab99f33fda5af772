#include "record.h"

#include <QFile>
#include <QJsonDocument>
#include <QPixmap>
#include <cmath>
#include <iostream>
#include <utility>

#include "fit_check.h"

namespace tour {

namespace {

constexpr double Tolerance = 1e-4;

}  // namespace

Record::Record(QString folder, QString name) : folder_(std::move(folder)), name_(std::move(name)) {}

QString Record::PathOf(const QString& file) const {
  return folder_ + QLatin1Char('/') + name_ + QLatin1Char('_') + file;
}

void Record::Step(const QString& step, bool happened) {
  steps_.append(QJsonObject{{"step", step}, {"happened", happened}});
  allRight_ = allRight_ && happened;
  std::cout << (happened ? "  ok    " : "  FAILED ") << step.toStdString() << std::endl;
}

void Record::Number(const QString& what, const QString& text, double expected) {
  bool isNumber = false;
  const double value = text.toDouble(&isNumber);
  const bool right = isNumber && std::abs(value - expected) <= Tolerance * std::abs(expected);
  numbers_.append(
      QJsonObject{{"what", what}, {"shown", text}, {"expected", expected}, {"right", right}});
  allRight_ = allRight_ && right;
  std::cout << (right ? "  ok    " : "  WRONG  ") << what.toStdString() << " reads "
            << text.toStdString() << std::endl;
}

void Record::Measure(const QString& what, double value) {
  measures_[what] = value;
  std::cout << "  " << what.toStdString() << ": " << value << std::endl;
}

void Record::Picture(QWidget& widget, const QString& what) {
  const QString file =
      QStringLiteral("%1_%2.png").arg(pictures_.size() + 1, 2, 10, QLatin1Char('0')).arg(what);
  const bool saved = widget.grab().save(PathOf(file));
  pictures_.append(name_ + QLatin1Char('_') + file);
  if (!saved) Step(QStringLiteral("picture ") + what, false);
  for (const QString& misfit : Misfits(widget)) Step(what + QStringLiteral(": ") + misfit, false);
}

void Record::Keep(const QString& path, const QString& name) {
  const QString copy = PathOf(name);
  QFile::remove(copy);
  if (!QFile::copy(path, copy)) Step("a copy of " + name, false);
}

bool Record::Save() const {
  const QJsonObject all{{"walk", name_},       {"right", allRight_},    {"steps", steps_},
                        {"numbers", numbers_}, {"measures", measures_}, {"pictures", pictures_}};
  QFile file(PathOf(QStringLiteral("record.json")));
  const QByteArray text = QJsonDocument(all).toJson();
  return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

}  // namespace tour
