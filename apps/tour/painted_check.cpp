#include "painted_check.h"

#include <QCheckBox>
#include <QImage>
#include <QMap>
#include <QStyle>
#include <QStyleOptionButton>
#include <cstdlib>

#include "desktop/binding/graph_view.h"
#include "desktop/widgets/curve_name.h"
#include "desktop/widgets/legend_box.h"
#include "desktop/widgets/picture_pad.h"
#include "desktop/widgets/swatch.h"

namespace tour {

namespace {

/// Ink is darker than the paper by so much, of 255; hairlines and shades are not.
constexpr int InkContrast = 90;

enum class Side { Left, Top, Right, Bottom };

/// A graph keeps its outermost pixel free, so ink that is cut ends beside it.
constexpr int RimDepth = 2;

/// The outermost pixels at one side of a picture, `depth` pixels within it.
QList<QRgb> Rim(const QImage& picture, Side side, int depth) {
  const bool upright = side == Side::Left || side == Side::Right;
  const int length = upright ? picture.height() : picture.width();
  QList<QRgb> rim;
  for (int i = 0; i < length; ++i) {
    rim << (side == Side::Left    ? picture.pixel(depth, i)
            : side == Side::Right ? picture.pixel(picture.width() - 1 - depth, i)
            : side == Side::Top   ? picture.pixel(i, depth)
                                  : picture.pixel(i, picture.height() - 1 - depth));
  }
  return rim;
}

/// Whether ink reaches the rim: what differs there from what most of the rim shows.
bool IsInked(const QList<QRgb>& rim) {
  QMap<int, int> tones;
  for (const QRgb pixel : rim) ++tones[qGray(pixel)];
  int paper = 0;
  for (auto tone = tones.begin(); tone != tones.end(); ++tone) {
    if (tone.value() > tones.value(paper)) paper = tone.key();
  }
  for (const QRgb pixel : rim) {
    if (paper - qGray(pixel) > InkContrast) return true;
  }
  return false;
}

QStringList InkAtRims(QWidget& widget) {
  const QImage picture = widget.grab().toImage();
  QStringList cut;
  const QMap<Side, QString> sides = {
      {Side::Left, "left"}, {Side::Top, "upper"}, {Side::Right, "right"}, {Side::Bottom, "lower"}};
  for (auto side = sides.begin(); side != sides.end(); ++side) {
    bool inked = false;
    for (int depth = 0; depth < RimDepth; ++depth) {
      inked = inked || IsInked(Rim(picture, side.key(), depth));
    }
    if (inked) cut << widget.objectName() + " is cut at its " + side.value() + " edge";
  }
  return cut;
}

QStringList CutTexts(desktop::PicturePad& pad) {
  for (const QRectF& area : pad.TextAreas()) {
    if (!QRectF(pad.rect()).contains(area)) return {"a text of " + pad.objectName() + " is cut"};
  }
  return {};
}

/// The room that a legend's box has for its name.
int NameRoom(const desktop::LegendBox& box) {
  QStyleOptionButton option;
  option.initFrom(&box);
  const QRect words = box.style()->subElementRect(QStyle::SE_CheckBoxContents, &option, &box);
  return words.width() - desktop::SwatchRoom();
}

}  // namespace

QStringList CutPaint(QWidget& widget) {
  if (qobject_cast<desktop::GraphView*>(&widget) != nullptr) return InkAtRims(widget);
  if (auto* pad = qobject_cast<desktop::PicturePad*>(&widget)) return CutTexts(*pad);
  if (const auto* name = qobject_cast<const desktop::CurveName*>(&widget)) {
    const bool whole =
        name->fontMetrics().horizontalAdvance(name->text()) <= name->contentsRect().width();
    if (!whole && name->toolTip().isEmpty()) return {"the name \"" + name->text() + "\" is cut"};
  }
  if (const auto* box = qobject_cast<const desktop::LegendBox*>(&widget)) {
    const bool whole = box->fontMetrics().horizontalAdvance(box->text()) <= NameRoom(*box);
    if (!whole && box->toolTip().isEmpty()) return {"the name \"" + box->text() + "\" is cut"};
  }
  return {};
}

}  // namespace tour
