#pragma once

#include <QImage>

#include "platform/picture.h"

namespace desktop {

/// A picture of the program as an image of Qt, and back.
QImage ImageOf(const platform::Picture& picture);
platform::Picture PictureOf(const QImage& image);

/// The logo, sharp enough for a page of paper.
platform::Picture LogoPicture();

}  // namespace desktop
