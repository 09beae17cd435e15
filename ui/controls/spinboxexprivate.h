#pragma once

#include "../foundation/export.h"

#include <QtCore/QObject>

#include <limits>

namespace ta::ui {

/*!
    The numbers of a spin box whose look the host writes in QML: how the value is written, what a
    typed text means, and what is one step above and below.

    A step is one unit of the last decimal. Texts are in the locale of \c QLocale() as it is when
    they are made or read.

    QML: \c UiSpinBoxExPrivate of "tamber.Ui.Private" 1.0.
*/
class TAMBERUI_EXPORT SpinBoxExPrivate : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY valueChanged)
    Q_PROPERTY(int decimals READ decimals WRITE setDecimals NOTIFY decimalsChanged)
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum NOTIFY minimumChanged)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum NOTIFY maximumChanged)
    Q_PROPERTY(QString displayString READ displayString NOTIFY displayStringChanged)

public:
    explicit SpinBoxExPrivate(QObject *parent = nullptr);
    ~SpinBoxExPrivate() override;

    /// 0 by default. What is written need not lie between the bounds: input does, by the three
    /// methods below. NaN and infinities are ignored; what is within 1e-12 of 0 is stored as 0.
    double value() const;
    void setValue(double value);

    /// Digits after the decimal point, moved into 0 to 10; 1 by default.
    int decimals() const;
    void setDecimals(int decimals);

    /// The bounds of input; the lowest and the highest finite number by default. Neither passes the
    /// other: a minimum above the maximum is stored as the maximum, and the other way round. NaN
    /// and infinities are ignored. The value stays as it is.
    double minimum() const;
    void setMinimum(double minimum);
    double maximum() const;
    void setMaximum(double maximum);

    /// The value as it is to be shown, without group separators.
    QString displayString() const;

    /// What \a text says in the user's locale, or else in the C locale, moved between the bounds;
    /// NaN where it is no number.
    Q_INVOKABLE double parseNumber(const QString &text) const;

    /// \a value, snapped to the nearest whole number of steps (halves to even), and a step more or
    /// less, but not beyond the bound on that side. NaN for NaN and infinities.
    Q_INVOKABLE double stepUp(double value) const;
    Q_INVOKABLE double stepDown(double value) const;

Q_SIGNALS:
    void valueChanged();
    void decimalsChanged();
    void minimumChanged();
    void maximumChanged();
    void displayStringChanged();

private:
    void updateDisplayString();

    double m_value = 0;
    double m_maximum = std::numeric_limits<double>::max();
    double m_minimum = std::numeric_limits<double>::lowest();
    int m_decimals = 1;
    QString m_displayString;
};

} // namespace ta::ui
