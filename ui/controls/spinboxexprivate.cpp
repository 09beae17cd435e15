#include "spinboxexprivate.h"

#include "foundation/assign.h"
#include "spinboxnumbers_p.h"

#include <QtCore/QPointer>

namespace ta::ui {

namespace {

constexpr double kNothing = 1e-12;
constexpr int kMaximumDecimals = 10;

} // namespace

SpinBoxExPrivate::SpinBoxExPrivate(QObject *parent) : QObject(parent)
{
    updateDisplayString();
}

SpinBoxExPrivate::~SpinBoxExPrivate() = default;

double SpinBoxExPrivate::value() const
{
    return m_value;
}

void SpinBoxExPrivate::setValue(double value)
{
    if (!qIsFinite(value))
        return;
    if (qAbs(value) <= kNothing)
        value = 0;
    if (!assign(m_value, value))
        return;
    const QPointer<SpinBoxExPrivate> guard(this);
    Q_EMIT valueChanged();
    if (guard)
        updateDisplayString();
}

int SpinBoxExPrivate::decimals() const
{
    return m_decimals;
}

void SpinBoxExPrivate::setDecimals(int decimals)
{
    if (!assign(m_decimals, qBound(0, decimals, kMaximumDecimals)))
        return;
    const QPointer<SpinBoxExPrivate> guard(this);
    Q_EMIT decimalsChanged();
    if (guard)
        updateDisplayString();
}

double SpinBoxExPrivate::minimum() const
{
    return m_minimum;
}

void SpinBoxExPrivate::setMinimum(double minimum)
{
    if (qIsFinite(minimum) && assign(m_minimum, qMin(minimum, m_maximum)))
        Q_EMIT minimumChanged();
}

double SpinBoxExPrivate::maximum() const
{
    return m_maximum;
}

void SpinBoxExPrivate::setMaximum(double maximum)
{
    if (qIsFinite(maximum) && assign(m_maximum, qMax(maximum, m_minimum)))
        Q_EMIT maximumChanged();
}

QString SpinBoxExPrivate::displayString() const
{
    return m_displayString;
}

double SpinBoxExPrivate::parseNumber(const QString &text) const
{
    const double number = numberOf(text, QLocale());
    return qIsNaN(number) ? number : qMax(qMin(number, m_maximum), m_minimum);
}

double SpinBoxExPrivate::stepUp(double value) const
{
    return numberAbove(value, m_decimals, m_maximum);
}

double SpinBoxExPrivate::stepDown(double value) const
{
    return numberBelow(value, m_decimals, m_minimum);
}

void SpinBoxExPrivate::updateDisplayString()
{
    if (assign(m_displayString, numberText(m_value, m_decimals, QLocale())))
        Q_EMIT displayStringChanged();
}

} // namespace ta::ui
