#pragma once

#include <QImage>
#include <QPicture>

#include "platform/picture.h"

namespace desktop {

/// A picture of the program as an image of Qt, and back.
QImage ImageOf(const platform::Picture& picture);
platform::Picture PictureOf(const QImage& image);
/// The same for lines and texts of an area of this size; nothing where the picture has none.
platform::Picture PictureOf(const QPicture& drawing, QSize size);
const QPicture* DrawingOf(const platform::Picture& picture);

/// The logo, sharp enough for a page of paper.
platform::Picture LogoPicture();

}  // namespace desktop
