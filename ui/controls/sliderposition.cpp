#include "sliderposition_p.h"

#include <QtCore/QtMath>

namespace ta::ui {

namespace {

constexpr double kTolerance = 0.001;
constexpr int kHalvings = 53; // the bits of a double: more would not tell two positions apart

} // namespace

double sliderValueAt(double x, double width, int margin, const SliderRange &range,
                     const QEasingCurve &easing)
{
    const double trackWidth = qMax(1.0, width - 2.0 * margin); // 1 for NaN, too
    const double fraction = easing.valueForProgress((x - margin) / trackWidth);
    return range.clamp(range.minimum + (range.maximum - range.minimum) * fraction);
}

double sliderPositionOf(double value, const SliderRange &range, const QEasingCurve &easing)
{
    if (range.minimum >= range.maximum)
        return 0;
    const double target = (value - range.minimum) / (range.maximum - range.minimum);
    double low = 0;
    double high = 1;
    double position = 0.5;
    double fraction = easing.valueForProgress(position);
    for (int i = 0; i < kHalvings && !(qAbs(fraction - target) < kTolerance); ++i) {
        if (fraction > target)
            high = position;
        else
            low = position;
        position = (low + high) / 2;
        fraction = easing.valueForProgress(position);
    }
    return position;
}

} // namespace ta::ui
