#pragma once

#include <QtCore/QPointF>
#include <QtCore/qmath.h>

#include <limits>

namespace ta::ui {

// Real numbers become whole pixels here and nowhere else. Coordinates and sizes come from hosts, so
// they may be NaN, infinite or beyond the range of int, where a plain conversion is undefined: NaN
// becomes 0, the rest the nearest number that can be added to a few others without overflow.

inline qreal withinInt(qreal value)
{
    if (qIsNaN(value))
        return 0;
    return qBound(qreal(std::numeric_limits<int>::min() / 8), value,
                  qreal(std::numeric_limits<int>::max() / 8));
}

/// The nearest whole number, halves upwards, as qRound() does.
inline int rounded(qreal value)
{
    return qRound(withinInt(value));
}

/// Both coordinates rounded, halves upwards.
inline QPoint rounded(const QPointF &point)
{
    return QPoint(rounded(point.x()), rounded(point.y()));
}

/// The whole part: the number without its fraction.
inline int truncated(qreal value)
{
    return int(withinInt(value));
}

} // namespace ta::ui
