#pragma once

#include <QtCore/QPoint>
#include <QtCore/QVector>

#include <numeric>

namespace ta::test {

struct Places
{
    QVector<QPoint> places;
    qreal height = 0;
};

/// Where patches of 22 x 22 belong, swatches of \a counts one after the other, computed from what
/// stands in each row.
inline Places placesOfPatches(const QVector<int> &counts, qreal width)
{
    constexpr int side = 22;
    constexpr int gap = 5;
    QVector<QVector<int>> rows(1); // widths of the patches and gaps
    Places result;
    for (int count : counts) {
        for (int i = 0; i < count; ++i) {
            int used = std::accumulate(rows.last().begin(), rows.last().end(), 0);
            if (used + side > width) {
                rows.append(QVector<int>());
                used = 0;
            }
            const int y = (rows.count() - 1) * (side + gap);
            result.places.append(QPoint(used, y));
            result.height = y + side;
            rows.last().append(side);
        }
        if (!rows.last().isEmpty())
            rows.last().append(gap);
    }
    return result;
}

} // namespace ta::test
