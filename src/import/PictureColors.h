#pragma once

#include "CapturedColor.h"

#include <QImage>
#include <QList>

namespace tintwick {

/// At most this many colours stand for a picture.
inline constexpr int pictureColorCount = 8;

/// The colours that stand for a picture, those of the largest areas first: the centres of k-means clusters in Oklab, each as the
/// nearest colour that the picture has. Colours that look alike count once, and transparent pixels not at all. The same
/// picture gives the same colours.
[[nodiscard]] QList<CapturedColor> colorsOfPicture(const QImage& picture);

} // namespace tintwick
