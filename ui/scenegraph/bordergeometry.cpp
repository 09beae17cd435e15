#include "bordergeometry_p.h"

#include "foundation/rounding.h"

namespace ta::ui {

SolidBorderVertices solidBorderVertices(const QSizeF &size, float borderWidth)
{
    const float right = float(size.width());
    const float bottom = float(size.height());
    const float innerRight = float(size.width() - borderWidth);
    const float innerBottom = float(size.height() - borderWidth);
    return { {
        { 0, 0 },
        { right, 0 },
        { right, bottom },
        { 0, bottom },
        { borderWidth, borderWidth },
        { innerRight, borderWidth },
        { innerRight, innerBottom },
        { borderWidth, innerBottom },
    } };
}

BorderDistances borderDistances(const QSizeF &size, int borderWidth)
{
    const double horizontal = size.width() - borderWidth;
    const double vertical = size.height() - borderWidth;
    BorderDistances distances;
    distances.top = borderWidth;
    distances.right = distances.top + horizontal;
    distances.bottom = distances.right + vertical;
    distances.left = distances.bottom + horizontal;
    distances.end = distances.left + vertical;
    return distances;
}

DashedBorderVertices dashedBorderVertices(const QSizeF &size, float borderWidth)
{
    const int width = truncated(borderWidth);
    const BorderDistances distances = borderDistances(size, width);
    const float start = float(distances.start);
    const float top = float(distances.top);
    const float right = float(distances.right);
    const float bottom = float(distances.bottom);
    const float left = float(distances.left);
    const float end = float(distances.end);

    // The columns and rows that the vertices lie on.
    const float x1 = float(width);
    const float x2 = float(size.width() - width);
    const float x3 = float(size.width());
    const float y1 = float(width);
    const float y2 = float(size.height() - width);
    const float y3 = float(size.height());
    return { {
        { 0, 0, top },
        { x1, 0, top },
        { x2, 0, right },
        { x3, 0, right },
        { x3, y1, right },
        { x3, y2, bottom },
        { x3, y3, bottom },
        { x2, y3, bottom },
        { x1, y3, left },
        { 0, y3, left },
        { 0, y2, left },
        { 0, y1, start },
        { x1, y1, top },
        { x2, y1, right },
        { x2, y2, bottom },
        { x1, y2, left },
        { 0, y1, end },
        { x1, y1, end },
    } };
}

} // namespace ta::ui
