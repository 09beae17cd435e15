#include "scrollposition_p.h"

#include <QtCore/QtMath>

#include <limits>

namespace ta::ui {

namespace {

constexpr int kBarWidth = 12;
constexpr qint64 kShortestStep = 10;
constexpr double kWholeWay = 110; // ms after which a single step covers all of the distance
constexpr double kLastStep = 1; // pixels
constexpr double kWheelStep = 5; // pixels for a degree
constexpr double kAutoScrollZone = 80;
constexpr double kFirstSpeed = 8;
constexpr double kAcceleration = 1.1;
constexpr double kHighestSpeed = 200;

} // namespace

double scrollRange(double contentHeight, double viewHeight)
{
    return qMax(0.0, contentHeight - viewHeight); // 0 for NaN, too
}

double boundedScrollPosition(double position, double origin, double range)
{
    return qMax(origin, qMin(position, origin + range));
}

double visibleRatio(double viewHeight, double contentHeight)
{
    return qBound(0.0, viewHeight / qMax(1.0, contentHeight), 1.0);
}

double usableRatio(double ratio)
{
    return ratio > 0 && ratio <= 1 ? ratio : 1;
}

int ScrollBarRoom::total() const
{
    // Hosts may say anything; what is added up must not overflow.
    const qint64 sum = qint64(offset) + margin + (overlapsContent ? 0 : kBarWidth);
    return int(qBound(qint64(std::numeric_limits<int>::min()), sum,
                      qint64(std::numeric_limits<int>::max())));
}

double scrolledContentWidth(double viewWidth, bool hasBar, const ScrollBarRoom &room)
{
    return qMax(0.0, hasBar ? viewWidth - room.total() : viewWidth);
}

ScrollStep scrollStep(double shown, double target, qint64 elapsed)
{
    const double part = qMin(qMax(elapsed, kShortestStep) / kWholeWay, 1.0);
    const double step = (target - shown) * part;
    if (qAbs(step) >= kLastStep)
        return { shown + step, false };
    return { target, true };
}

double wheelDistance(double ratio, int angle)
{
    return (1 - ratio) * kWheelStep * angle * (-1.0 / 8);
}

double autoScrollSpeedAt(double y, double viewHeight, double speed)
{
    if (y <= kAutoScrollZone)
        return speed < 0 ? speed : -kFirstSpeed;
    if (y >= viewHeight - kAutoScrollZone)
        return speed > 0 ? speed : kFirstSpeed;
    return 0;
}

double acceleratedScrollSpeed(double speed)
{
    return qBound(-kHighestSpeed, speed * kAcceleration, kHighestSpeed);
}

double scrollTarget(VerticalScrollView::ScrollPosition mode, double current, double viewHeight,
                    const ItemSpan &item)
{
    const double alignedBottom = item.bottom - viewHeight;
    switch (mode) {
    case VerticalScrollView::Contain:
        if (current <= item.top && item.bottom <= current + viewHeight)
            return qQNaN();
        return qAbs(alignedBottom - current) < qAbs(item.top - current) ? alignedBottom : item.top;
    case VerticalScrollView::Top:
        return item.top;
    case VerticalScrollView::Center:
        return item.top + item.height / 2 - viewHeight / 2;
    case VerticalScrollView::Bottom:
        return alignedBottom;
    }
    return qQNaN(); // QML may pass any number
}

} // namespace ta::ui
