#pragma once

#include "../foundation/export.h"
#include "verticalscrollview.h"

namespace ta::ui {

// What a vertical scroll view computes. Lengths, positions and distances are in pixels and grow
// downwards, durations in milliseconds, speeds in pixels per tick of the auto-scroll timer.

/// How far \a contentHeight can be scrolled in a view \a viewHeight high; 0 where it fits.
TAMBERUI_PRIVATE_EXPORT double scrollRange(double contentHeight, double viewHeight);

/// \a position, lowered to the end of the range and then raised to \a origin, its beginning. NaN
/// becomes the end.
TAMBERUI_PRIVATE_EXPORT double boundedScrollPosition(double position, double origin, double range);

/// The part of \a contentHeight that a view \a viewHeight high shows, 0 to 1.
TAMBERUI_PRIVATE_EXPORT double visibleRatio(double viewHeight, double contentHeight);

/// What a flickable says about itself, made usable: above 0 and at most 1. Anything else is 1.
TAMBERUI_PRIVATE_EXPORT double usableRatio(double ratio);

/// What room the content leaves for the scroll bar on its right.
struct ScrollBarRoom
{
    int offset = 0; ///< between the bar and the edge of the view
    int margin = 5; ///< between the content and the bar
    bool overlapsContent = false; ///< the bar itself needs no room

    int total() const;
};

/// The width of content beside a scroll bar, where there is one, in a view \a viewWidth wide; never
/// negative.
TAMBERUI_PRIVATE_EXPORT double scrolledContentWidth(double viewWidth, bool hasBar,
                                                    const ScrollBarRoom &room);

/// One step of a scroll animation.
struct ScrollStep
{
    double position; ///< where the animation is by now; the target itself after the last step
    bool isLast;
};

/*!
    Goes from \a shown towards \a target.

    An eleventh of the way in 10 ms, and proportionally more where \a elapsed is longer; less counts
    as 10, so a clock that was set back slows nothing down. A step that is shorter than a pixel is
    the last one.
*/
TAMBERUI_PRIVATE_EXPORT ScrollStep scrollStep(double shown, double target, qint64 elapsed);

/// How far the wheel scrolls when it is turned by \a angle eighths of a degree, upwards positive:
/// 75 pixels for one notch in endless content, less the more of the content is visible.
TAMBERUI_PRIVATE_EXPORT double wheelDistance(double ratio, int angle);

/// The speed at which a view scrolls by itself while something is dragged \a y below its upper
/// edge: \a speed where it leads to the near edge already, the first speed in that direction
/// otherwise, and 0 away from both edges. In a low view, what is near both edges scrolls up.
TAMBERUI_PRIVATE_EXPORT double autoScrollSpeedAt(double y, double viewHeight, double speed);

/// The speed that follows \a speed: a tenth faster, up to a limit.
TAMBERUI_PRIVATE_EXPORT double acceleratedScrollSpeed(double speed);

/// An item as its content sees it.
struct ItemSpan
{
    double top;
    double bottom;
    double height; ///< of the item itself, which differs from the span of one that is scaled
};

/// Where a view \a viewHeight high that is at \a current scrolls to show \a item as \a mode says;
/// NaN where it stays.
TAMBERUI_PRIVATE_EXPORT double scrollTarget(VerticalScrollView::ScrollPosition mode, double current,
                                            double viewHeight, const ItemSpan &item);

} // namespace ta::ui
