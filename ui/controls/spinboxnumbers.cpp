#include "spinboxnumbers_p.h"

#include <cmath>

namespace ta::ui {

namespace {

// Powers of ten up to this one are exact, and so is the rounding of their reciprocals.
constexpr double kPowers[] = { 1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10 };

double stepOf(int decimals)
{
    return 1 / kPowers[qBound(0, decimals, 10)];
}

double snapped(double value, double step)
{
    return value - std::remainder(value, step);
}

} // namespace

double numberAbove(double value, int decimals, double maximum)
{
    if (!qIsFinite(value))
        return qQNaN();
    const double step = stepOf(decimals);
    return qMin(snapped(value, step) + step, maximum);
}

double numberBelow(double value, int decimals, double minimum)
{
    if (!qIsFinite(value))
        return qQNaN();
    const double step = stepOf(decimals);
    return qMax(snapped(value, step) - step, minimum);
}

QString numberText(double value, int decimals, QLocale locale)
{
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(value, 'f', decimals);
}

double numberOf(const QString &text, const QLocale &locale)
{
    bool ok = false;
    double number = locale.toDouble(text, &ok);
    if (!ok)
        number = QLocale::c().toDouble(text, &ok);
    return ok ? number : qQNaN();
}

} // namespace ta::ui
