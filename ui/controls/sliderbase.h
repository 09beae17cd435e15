#pragma once

#include "../foundation/export.h"

#include <QtCore/QEasingCurve>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class SliderBasePrivate;

/*!
    The behaviour of a horizontal slider whose look the host writes in QML.

    The left mouse button drags the value along the pointer; the middle button resets it. An easing
    curve lets equal distances stand for unequal steps of the value; \l normalizedValue leads back
    to the place of the handle. It draws nothing and knows neither keys nor wheel.

    Each bound that is set drags along the other one and the value. In a QML document the order does
    not matter: what it says about the value holds once all of it is read.

    QML: \c UiSliderBase of "tamber.Ui.Private" 1.0.
*/
class TAMBERUI_EXPORT SliderBase : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY valueChanged)
    Q_PROPERTY(
        double minimumValue READ minimumValue WRITE setMinimumValue NOTIFY minimumValueChanged)
    Q_PROPERTY(
        double maximumValue READ maximumValue WRITE setMaximumValue NOTIFY maximumValueChanged)
    Q_PROPERTY(double normalizedValue READ normalizedValue NOTIFY normalizedValueChanged)
    Q_PROPERTY(double resetValue READ resetValue WRITE setResetValue NOTIFY resetValueChanged)
    Q_PROPERTY(bool hovered READ hovered NOTIFY hoveredChanged)
    Q_PROPERTY(bool pressed READ pressed NOTIFY pressedChanged)
    Q_PROPERTY(int margin READ margin WRITE setMargin NOTIFY marginChanged)
    Q_PROPERTY(bool bindable READ isBindable WRITE setBindable NOTIFY bindableChanged)
    Q_PROPERTY(QEasingCurve easing READ easing WRITE setEasing NOTIFY easingChanged)

public:
    explicit SliderBase(QQuickItem *parent = nullptr);
    ~SliderBase() override;

    /// Between the bounds; what is written is moved there, and NaN is ignored. 0.5 by default.
    double value() const;
    void setValue(double value);

    /// The bounds, 0 and 1 by default. Setting one moves the other and the value where they would
    /// be on the wrong side of it. NaN and infinity are ignored.
    double minimumValue() const;
    void setMinimumValue(double minimum);
    double maximumValue() const;
    void setMaximumValue(double maximum);

    /// Where the handle belongs: 0 at the left end of the track, 1 at the right one, exact to a
    /// thousandth. Computed on each call. 0 while both bounds are equal.
    double normalizedValue() const;

    /// What reset() goes back to, moved between the bounds by then. NaN, the default, stands for
    /// none.
    double resetValue() const;
    void setResetValue(double value);

    /// Whether the pointer is over the slider.
    bool hovered() const;

    /// Whether the left button is dragging.
    bool pressed() const;

    /// How many pixels at either end are not part of the track. 0 by default.
    int margin() const;
    void setMargin(int margin);

    /// Whether what the user picks is only reported, by updateRequested(), and left to the host to
    /// write. False by default.
    bool isBindable() const;
    void setBindable(bool bindable);

    /// Leads from the position on the track to the value, both as a fraction of the whole. Linear
    /// by default. A new curve leaves the value where it is and does not announce normalizedValue.
    QEasingCurve easing() const;
    void setEasing(const QEasingCurve &easing);

    /// Goes back to resetValue as if the user had picked it; without one, asks for it by
    /// resetRequested().
    Q_INVOKABLE void reset();

Q_SIGNALS:
    void valueChanged();
    void minimumValueChanged();
    void maximumValueChanged();
    void normalizedValueChanged();
    void resetValueChanged();
    void marginChanged();
    void hoveredChanged();
    void pressedChanged();
    void bindableChanged();
    void easingChanged();
    /// The user picked \a newValue on a bindable slider, be it the value it has.
    void updateRequested(double newValue);
    void resetRequested();

protected:
    void componentComplete() override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;

    /// Called before each valueChanged() and marginChanged(), for what a derived class shows of
    /// them: a connection would cost it more memory than the rest of the slider. They do nothing
    /// here.
    virtual void valueChange();
    virtual void marginChange();

private:
    friend class SliderBasePrivate;
    const std::unique_ptr<SliderBasePrivate> d;
};

} // namespace ta::ui
