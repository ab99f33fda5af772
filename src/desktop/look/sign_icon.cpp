#include "desktop/look/sign_icon.h"

#include <QPainter>
#include <QPixmap>

#include "desktop/look/look.h"

namespace desktop {

namespace {

/// Large enough for the largest window on a screen of twice the usual density.
constexpr int Pixels = 192;
constexpr int Rim = 4;
constexpr double LetterPart = 0.64;

}  // namespace

QIcon SignIcon(const QColor& disc, QChar letter) {
  QPixmap picture(Pixels, Pixels);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(disc);
  painter.drawEllipse(picture.rect().adjusted(Rim, Rim, -Rim, -Rim));
  painter.setFont(look::BoldFont(static_cast<int>(Pixels * LetterPart)));
  painter.setPen(look::Card);
  painter.drawText(picture.rect(), Qt::AlignCenter, letter);
  return QIcon(picture);
}

}  // namespace desktop
