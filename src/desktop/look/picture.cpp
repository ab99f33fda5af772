#include "desktop/look/picture.h"

#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cstdint>

namespace desktop {

namespace {

/// 30 mm of paper at 800 dots an inch; the logo stands in its middle.
constexpr QSize LogoSize(960, 183);

/// What a painter was asked to draw.
class QtDrawing : public platform::Drawing {
 public:
  explicit QtDrawing(const QPicture& calls) : Calls(calls) {}
  const QPicture Calls;
};

}  // namespace

QImage ImageOf(const platform::Picture& picture) {
  QImage image(picture.Width, picture.Height, QImage::Format_ARGB32);
  for (int y = 0; y < picture.Height; ++y) {
    std::copy_n(picture.Pixels.begin() + std::ptrdiff_t{y} * picture.Width, picture.Width,
                reinterpret_cast<std::uint32_t*>(image.scanLine(y)));
  }
  return image;
}

platform::Picture PictureOf(const QImage& image) {
  const QImage plain = image.convertToFormat(QImage::Format_ARGB32);
  platform::Picture picture{plain.width(), plain.height(), {}};
  picture.Pixels.reserve(static_cast<std::size_t>(plain.width()) *
                         static_cast<std::size_t>(plain.height()));
  for (int y = 0; y < plain.height(); ++y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(plain.constScanLine(y));
    picture.Pixels.insert(picture.Pixels.end(), row, row + plain.width());
  }
  return picture;
}

platform::Picture PictureOf(const QPicture& drawing, QSize size) {
  return {size.width(), size.height(), {}, std::make_shared<const QtDrawing>(drawing)};
}

const QPicture* DrawingOf(const platform::Picture& picture) {
  const auto* drawing = dynamic_cast<const QtDrawing*>(picture.Drawing.get());
  return drawing == nullptr ? nullptr : &drawing->Calls;
}

platform::Picture LogoPicture() {
  QImage logo(LogoSize, QImage::Format_ARGB32_Premultiplied);
  logo.fill(Qt::transparent);
  QPainter painter(&logo);
  QSvgRenderer drawing(QStringLiteral(":/vornik/logo.svg"));
  drawing.setAspectRatioMode(Qt::KeepAspectRatio);
  drawing.render(&painter);
  painter.end();
  return PictureOf(logo);
}

}  // namespace desktop
