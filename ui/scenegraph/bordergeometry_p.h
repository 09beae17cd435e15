#pragma once

#include "../foundation/export.h"

#include <QtCore/QSizeF>
#include <QtQuick/QSGGeometry>

#include <array>

namespace ta::ui {

/*!
    A solid frame: the outer rectangle clockwise from its top-left corner (0 to 3), then the inner
    one (4 to 7). The indices make a triangle strip that runs once around between the two.

    Where the item is smaller than two border widths the inner rectangle is turned inside out; the
    vertices stay what they are.
*/
using SolidBorderVertices = std::array<QSGGeometry::Point2D, 8>;
constexpr std::array<quint16, 10> kSolidBorderIndices = { 0, 4, 1, 5, 2, 6, 3, 7, 0, 4 };

TAMBERUI_PRIVATE_EXPORT SolidBorderVertices solidBorderVertices(const QSizeF &size,
                                                                float borderWidth);

/// How far it is along the border, clockwise from the top-left corner, to where its parts meet.
struct BorderDistances
{
    double start = 0; ///< the left edge meets the top-left corner
    double top = 0; ///< where each edge begins
    double right = 0;
    double bottom = 0;
    double left = 0;
    double end = 0; ///< the left edge is back at the top-left corner
};

TAMBERUI_PRIVATE_EXPORT BorderDistances borderDistances(const QSizeF &size, int borderWidth);

struct DashedBorderVertex
{
    float x;
    float y;
    float distance; ///< along the border; the shader makes dashes of it
};

/*!
    A dashed frame: four corner squares and four edges, in triangles.

    The distance grows along the edges. Three of the corners have one distance all over, so each is
    painted or left out as a whole; it begins to grow in the top-left corner. 16 and 17 lie where 11
    and 12 are but have the distance after one turn, so the pattern breaks off between the left edge
    and the top-left corner and nowhere else.
*/
using DashedBorderVertices = std::array<DashedBorderVertex, 18>;
constexpr std::array<quint16, 48> kDashedBorderIndices = {
    0,  1,  11, 11, 1,  12, // top-left corner
    1,  2,  12, 12, 2,  13, // top
    2,  3,  13, 13, 3,  4, // top-right corner
    13, 4,  14, 14, 4,  5, // right
    14, 5,  7,  7,  5,  6, // bottom-right corner
    15, 14, 8,  8,  14, 7, // bottom
    10, 15, 9,  9,  15, 8, // bottom-left corner
    16, 17, 10, 10, 17, 15, // left
};

/// \a borderWidth counts without its fraction.
TAMBERUI_PRIVATE_EXPORT DashedBorderVertices dashedBorderVertices(const QSizeF &size,
                                                                  float borderWidth);

} // namespace ta::ui
