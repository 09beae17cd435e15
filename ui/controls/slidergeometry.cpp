#include "slidergeometry_p.h"

#include "foundation/rounding.h"

namespace ta::ui {

namespace {

struct Edges
{
    double left;
    double top;
    double right;
    double bottom;
};

SliderPoint2D point(double x, double y, float dx, float dy, const QColor &color)
{
    return { float(x),
             float(y),
             dx,
             dy,
             uchar(color.red()),
             uchar(color.green()),
             uchar(color.blue()),
             uchar(color.alpha()) };
}

SliderQuad quad(const Edges &edges, const QColor &left, const QColor &right)
{
    return { point(edges.left, edges.top, -1, -1, left),
             point(edges.right, edges.top, 1, -1, right),
             point(edges.left, edges.bottom, -1, 1, left),
             point(edges.right, edges.bottom, 1, 1, right) };
}

double fringe(const SliderFrame &frame)
{
    return frame.antialiasing ? 0.5 : 0.0;
}

} // namespace

// Both are made when the library is loaded, the set after what it points to.
const QSGGeometry::Attribute SliderPoint2D_Attributes[kSliderAttributeCount] = {
    QSGGeometry::Attribute::create(0, 2, QSGGeometry::FloatType, true),
    QSGGeometry::Attribute::create(1, 2, QSGGeometry::FloatType),
    QSGGeometry::Attribute::create(2, 4, QSGGeometry::UnsignedByteType),
};
const QSGGeometry::AttributeSet SliderPoint2D_AttributeSet = { kSliderAttributeCount,
                                                               sizeof(SliderPoint2D),
                                                               SliderPoint2D_Attributes };

SliderQuad sliderTrack(const SliderFrame &frame, int height, const QColor &left,
                       const QColor &right)
{
    const double aa = fringe(frame);
    const double middle = frame.size.height() * 0.5;
    const double half = height * 0.5 + aa;
    return quad({ frame.margin - aa, middle - half,
                  truncated(frame.size.width() - 2.0 * frame.margin) + aa, middle + half },
                left, right);
}

SliderQuad sliderHandle(const SliderFrame &frame, int width, const QColor &color)
{
    const double aa = fringe(frame);
    const double margin = frame.margin;
    const double range = truncated(frame.size.width() - margin - width % 2 - 1) - margin;
    const double center = rounded(range * frame.position) + margin;
    const double half = width * 0.5 + aa;
    return quad({ center - half, -aa, center + half, rounded(frame.size.height()) + aa }, color,
                color);
}

SliderQuad sliderValueBar(const SliderFrame &frame, int height, float origin, const QColor &color)
{
    const double aa = fringe(frame);
    const double middle = rounded(frame.size.height() * 0.5);
    const double half = height * 0.5 + aa;
    const double margin = frame.margin;
    const auto span = float(frame.size.width() - margin - 1 - margin);
    const double originX = span * origin + margin;
    const double valueX = frame.position * span + margin;
    // The vertices change sides: those of the left edge are at the right end of the bar.
    return quad({ qMax(originX, valueX) - aa, middle - half, qMin(originX, valueX) + aa,
                  middle + half },
                color, color);
}

} // namespace ta::ui
