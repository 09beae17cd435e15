#pragma once

#include "../foundation/export.h"

#include <QtCore/QEasingCurve>

namespace ta::ui {

/// What a slider's track stands for. Neither bound is NaN or infinite.
struct SliderRange
{
    double minimum = 0;
    double maximum = 1;

    /// \a value, raised to the minimum and then lowered to the maximum. NaN stays NaN.
    double clamp(double value) const
    {
        const double raised = value < minimum ? minimum : value;
        return raised > maximum ? maximum : raised;
    }
};

/*!
    The value that the pointer means at \a x in a slider \a width pixels wide, whose track keeps
    \a margin pixels away from either end.

    The track is at least one pixel wide. Left and right of it, the value is that of its ends.
    Always in the range, unless the curve says NaN.
*/
TAMBERUI_PRIVATE_EXPORT double sliderValueAt(double x, double width, int margin,
                                             const SliderRange &range, const QEasingCurve &easing);

/*!
    Where on the track \a value is, as a fraction of its length: the inverse of sliderValueAt(),
    found by halving the track until the curve is within a thousandth of the range.

    A curve that never gets there ends the search after a fixed number of halvings, with the last
    midpoint. 0 for a range without extent.
*/
TAMBERUI_PRIVATE_EXPORT double sliderPositionOf(double value, const SliderRange &range,
                                                const QEasingCurve &easing);

} // namespace ta::ui
