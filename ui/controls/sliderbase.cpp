#include "sliderbase.h"

#include "pointerstate_p.h"
#include "sliderposition_p.h"

#include <QtCore/QtMath>

namespace ta::ui {

class SliderBasePrivate : public PointerState<SliderBase>
{
public:
    using PointerState::PointerState;

    SliderRange range() const { return { minimumValue, maximumValue }; }

    const QEasingCurve &curve() const
    {
        static const QEasingCurve linear;
        return easing ? *easing : linear;
    }

    void updateValue(double candidate);
    void storeValue(double newValue);
    void announceValue();
    void pick(const QMouseEvent *event);

    double value = 0.5;
    double minimumValue = 0;
    double maximumValue = 1;
    bool bindable = false;
    qint32 margin = 0;
    double resetValue = qQNaN();
    double writtenValue = qQNaN(); // by the document that is being read, if any
    std::unique_ptr<QEasingCurve> easing; // none while linear: a curve allocates more than the rest
};

// What the user picked: for the host to write where it said so.
void SliderBasePrivate::updateValue(double candidate)
{
    if (qIsNaN(candidate)) // by a curve of the host's own
        return;
    if (bindable)
        Q_EMIT q->updateRequested(candidate);
    else
        storeValue(candidate);
}

void SliderBasePrivate::storeValue(double newValue)
{
    if (!assign(value, newValue))
        return;
    const QPointer<SliderBase> guard(q);
    announceValue();
    if (guard)
        Q_EMIT q->normalizedValueChanged();
}

void SliderBasePrivate::announceValue()
{
    q->valueChange();
    Q_EMIT q->valueChanged();
}

void SliderBasePrivate::pick(const QMouseEvent *event)
{
    updateValue(sliderValueAt(event->localPos().x(), q->width(), margin, range(), curve()));
}

SliderBase::SliderBase(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<SliderBasePrivate>(this))
{
    setAcceptedMouseButtons(Qt::LeftButton | Qt::MiddleButton);
    setAcceptHoverEvents(true);
    setActiveFocusOnTab(false);
    setKeepMouseGrab(true); // no flickable around it takes over a drag
}

SliderBase::~SliderBase() = default;

double SliderBase::value() const
{
    return d->value;
}

void SliderBase::setValue(double value)
{
    if (qIsNaN(value))
        return;
    if (!isComponentComplete())
        d->writtenValue = value;
    d->storeValue(d->range().clamp(value));
}

double SliderBase::minimumValue() const
{
    return d->minimumValue;
}

// Handlers may set anything meanwhile, so each step looks at what is stored by then.
void SliderBase::setMinimumValue(double minimum)
{
    if (!qIsFinite(minimum) || !assign(d->minimumValue, minimum))
        return;
    const QPointer<SliderBase> guard(this);
    Q_EMIT minimumValueChanged();
    if (guard && d->minimumValue > d->maximumValue) {
        d->maximumValue = d->minimumValue;
        Q_EMIT maximumValueChanged();
    }
    if (guard && d->minimumValue > d->value) {
        d->value = d->minimumValue;
        d->announceValue();
    }
    if (guard)
        Q_EMIT normalizedValueChanged();
}

double SliderBase::maximumValue() const
{
    return d->maximumValue;
}

void SliderBase::setMaximumValue(double maximum)
{
    if (!qIsFinite(maximum) || !assign(d->maximumValue, maximum))
        return;
    const QPointer<SliderBase> guard(this);
    Q_EMIT maximumValueChanged();
    if (guard && d->minimumValue > d->maximumValue) {
        d->minimumValue = d->maximumValue;
        Q_EMIT minimumValueChanged();
    }
    if (guard && d->value > d->maximumValue) {
        d->value = d->maximumValue;
        d->announceValue();
    }
    if (guard)
        Q_EMIT normalizedValueChanged();
}

double SliderBase::normalizedValue() const
{
    return sliderPositionOf(d->value, d->range(), d->curve());
}

double SliderBase::resetValue() const
{
    return d->resetValue;
}

void SliderBase::setResetValue(double value)
{
    if (assign(d->resetValue, value))
        Q_EMIT resetValueChanged();
}

bool SliderBase::hovered() const
{
    return d->hovered;
}

bool SliderBase::pressed() const
{
    return d->pressed;
}

int SliderBase::margin() const
{
    return d->margin;
}

void SliderBase::setMargin(int margin)
{
    if (!assign(d->margin, margin))
        return;
    marginChange();
    Q_EMIT marginChanged();
}

bool SliderBase::isBindable() const
{
    return d->bindable;
}

void SliderBase::setBindable(bool bindable)
{
    if (assign(d->bindable, bindable))
        Q_EMIT bindableChanged();
}

QEasingCurve SliderBase::easing() const
{
    return d->curve();
}

void SliderBase::setEasing(const QEasingCurve &easing)
{
    if (d->curve() == easing)
        return;
    d->easing = std::make_unique<QEasingCurve>(easing);
    Q_EMIT easingChanged();
}

void SliderBase::reset()
{
    if (qIsNaN(d->resetValue))
        Q_EMIT resetRequested();
    else
        d->updateValue(d->range().clamp(d->resetValue));
}

void SliderBase::valueChange() {}

void SliderBase::marginChange() {}

// QML assigns in an order of its own, so the value may have come before its bounds.
void SliderBase::componentComplete()
{
    QQuickItem::componentComplete();
    setValue(d->writtenValue);
}

void SliderBase::mousePressEvent(QMouseEvent *event)
{
    event->accept(); // and so grab the mouse
    if (event->buttons().testFlag(Qt::MiddleButton)) {
        reset();
        return;
    }
    const QPointer<SliderBase> guard(this);
    d->pick(event);
    // A handler may have disabled the slider, which has then lost the grab and sees no release.
    if (guard && isEnabled())
        d->setPressed(true);
}

void SliderBase::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
    if (!event->buttons().testFlag(Qt::MiddleButton))
        d->pick(event);
}

void SliderBase::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    if (!event->buttons().testFlag(Qt::MiddleButton))
        d->setPressed(false);
}

void SliderBase::hoverEnterEvent(QHoverEvent *event)
{
    event->accept();
    d->setHovered(true);
}

void SliderBase::hoverLeaveEvent(QHoverEvent *event)
{
    event->accept();
    d->setHovered(false);
}

} // namespace ta::ui
