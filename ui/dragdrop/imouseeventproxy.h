#pragma once

#include <QtCore/QObject>

class QMouseEvent;

namespace ta::ui {

/// Receives mouse events that another item got first, as a drag zone does from controls that hold
/// the mouse grab themselves. Nobody destroys a receiver through this interface.
class IMouseEventProxy
{
public:
    /// Returns true while the receiver has made a drag of the gesture; the caller then leaves the
    /// event alone.
    virtual bool proxyMouseEvent(QMouseEvent *event) = 0;

protected:
    ~IMouseEventProxy() = default;
};

} // namespace ta::ui

Q_DECLARE_INTERFACE(ta::ui::IMouseEventProxy, "tamber.interface.MouseEventProxy")
