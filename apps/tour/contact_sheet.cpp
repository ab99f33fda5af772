#include "contact_sheet.h"

#include <QDir>
#include <QFont>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <QRegularExpression>
#include <vector>

#include "desktop/look/look.h"
#include "plan.h"

namespace tour {

namespace {

constexpr int Columns = 3;
constexpr int CellWidth = 500;
constexpr int CellHeight = 320;
constexpr int TitleHeight = 18;
constexpr int Gap = 10;
constexpr int TitlePixels = 12;

/// The pictures of all walks by what they show: "values_running", say.
QMap<QString, QMap<QString, QString>> Pictures(const QDir& folder) {
  QMap<QString, QMap<QString, QString>> pictures;
  for (const Plan& plan : Plans()) {
    const QRegularExpression form("^" + QRegularExpression::escape(plan.Name) +
                                  "_(?:\\d\\d_)?(.*)\\.png$");
    for (const QString& file : folder.entryList({plan.Name + "_*.png"}, QDir::Files, QDir::Name)) {
      const QRegularExpressionMatch match = form.match(file);
      if (match.hasMatch()) pictures[match.captured(1)][plan.Name] = folder.filePath(file);
    }
  }
  return pictures;
}

void PaintCell(QPainter& painter, const QPoint& corner, const QString& title, const QString& file) {
  painter.drawText(QRect(corner, QSize(CellWidth, TitleHeight)), Qt::AlignLeft | Qt::AlignVCenter,
                   title);
  const QImage picture = QImage(file).scaled(QSize(CellWidth, CellHeight), Qt::KeepAspectRatio,
                                             Qt::SmoothTransformation);
  painter.drawImage(corner + QPoint(0, TitleHeight), picture);
}

QImage Sheet(const QMap<QString, QString>& files) {
  const int rows = (static_cast<int>(Plans().size()) + Columns - 1) / Columns;
  QImage sheet(Gap + Columns * (CellWidth + Gap), Gap + rows * (TitleHeight + CellHeight + Gap),
               QImage::Format_RGB32);
  sheet.fill(desktop::look::Edge);
  QPainter painter(&sheet);
  painter.setFont(desktop::look::TextFont(TitlePixels));
  painter.setPen(desktop::look::Ink);
  for (int i = 0; i < Plans().size(); ++i) {
    const Plan& plan = Plans()[i];
    const QPoint corner(Gap + i % Columns * (CellWidth + Gap),
                        Gap + i / Columns * (TitleHeight + CellHeight + Gap));
    if (files.contains(plan.Name)) PaintCell(painter, corner, plan.Name, files[plan.Name]);
  }
  return sheet;
}

}  // namespace

bool MakeContactSheets(const QString& folder) {
  const QDir pictures(folder);
  if (!pictures.mkpath("contact")) return false;
  bool written = true;
  const auto all = Pictures(pictures);
  for (auto page = all.begin(); page != all.end(); ++page) {
    written =
        Sheet(page.value()).save(pictures.filePath("contact/" + page.key() + ".png")) && written;
  }
  return written;
}

}  // namespace tour
