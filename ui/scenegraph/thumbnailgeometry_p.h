#pragma once

#include "../foundation/export.h"

#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtCore/QSizeF>

namespace ta::ui {

/// How much of a picture is decoded, and at which size.
struct ThumbnailDecoding
{
    bool empty = false; ///< there is nothing to decode
    QRect clip; ///< in pixels of the picture; null for all of it
    QSize scaledSize; ///< invalid for the size that the picture, or its clip, has
};

/// The pixels that an item of \a width x \a height logical pixels covers, truncated. Zero where one
/// side has none.
TAMBERUI_PRIVATE_EXPORT QSize thumbnailTarget(int width, int height, double devicePixelRatio);

/*!
    What to decode of a picture of the size \a full for \a target device pixels.

    An empty \a region stands for the whole picture; otherwise it is what the picture has of it. The
    result is never larger than the picture. \a full is invalid where the format does not tell.
*/
TAMBERUI_PRIVATE_EXPORT ThumbnailDecoding thumbnailDecoding(const QSize &full, const QRect &region,
                                                            const QSize &target);

/// Where a texture goes in an item: as large as fits, in its own proportions, in the middle. Whole
/// pixels; empty where the item has no area.
TAMBERUI_PRIVATE_EXPORT QRect thumbnailRect(const QSize &texture, const QSizeF &item);

} // namespace ta::ui
