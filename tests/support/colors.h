#pragma once

#include <QtGui/QImage>

#include <algorithm>
#include <cstdlib>

namespace ta::test {

/// By how many levels the channel differs in which \a a and \a b differ most, without alpha.
inline int distance(const QColor &a, const QColor &b)
{
    return std::max({ std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                      std::abs(a.blue() - b.blue()) });
}

/// Whether \a a and \a b are the same but for what may be rounded differently while rendering.
inline bool isNear(const QColor &a, const QColor &b, int tolerance = 2)
{
    return distance(a, b) <= tolerance;
}

/// The pixel of a grabbed window that contains \a position, in logical pixels; invalid where the
/// picture has none.
inline QColor pixelAt(const QImage &picture, const QPointF &position)
{
    const QPointF place = position * picture.devicePixelRatio();
    const QPoint pixel(int(place.x()), int(place.y()));
    return picture.valid(pixel) ? picture.pixelColor(pixel) : QColor();
}

} // namespace ta::test
