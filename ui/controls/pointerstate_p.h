#pragma once

#include "foundation/assign.h"

#include <QtCore/QPointer>

#include <utility>

namespace ta::ui {

/*!
    Hover and press of a control: the base of its private state.

    \a Control is an item with the signals hoveredChanged() and pressedChanged(). Becoming disabled
    ends both, hover first.
*/
template <typename Control>
class PointerState
{
public:
    explicit PointerState(Control *q) : q(q) {}

    void setHovered(bool value)
    {
        if (!assign(hovered, value))
            return;
        watchEnabled();
        Q_EMIT q->hoveredChanged();
    }

    void setPressed(bool value)
    {
        if (!assign(pressed, value))
            return;
        watchEnabled();
        Q_EMIT q->pressedChanged();
    }

    /// Hovered first; a handler of its signal may destroy the control.
    void setHoveredAndPressed(bool hoveredValue, bool pressedValue)
    {
        const QPointer<Control> guard(q);
        setHovered(hoveredValue);
        if (guard)
            setPressed(pressedValue);
    }

    Control *const q;
    bool hovered = false;
    bool pressed = false;

private:
    // A control that never saw hover or press needs no connection: the first one to a signal of
    // QQuickItem costs more memory than all the rest of a button.
    void watchEnabled()
    {
        if (std::exchange(watchesEnabled, true))
            return;
        // An item whose parent is disabled becomes enabled when it is destroyed; this is gone then.
        QObject::connect(q, &Control::enabledChanged, q, [this, control = q] {
            if (!control->isEnabled())
                setHoveredAndPressed(false, false);
        });
    }

    bool watchesEnabled = false;
};

} // namespace ta::ui
