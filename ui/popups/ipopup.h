#pragma once

#include <QtCore/QObject>

class QQuickItem;

namespace ta::ui {

/// What the library asks of an open popup. A popup class lists it in Q_INTERFACES, so that
/// \c qobject_cast<IPopup *> works on what PopupStack::top() returns.
class IPopup
{
public:
    virtual ~IPopup() = default;

    /// The item that holds the visible content; null while the popup is not open.
    virtual QQuickItem *rootItem() const = 0;
    /// Whether views behind the popup must not scroll by themselves while something is dragged.
    virtual bool preventAutoScroll() const = 0;
};

} // namespace ta::ui

Q_DECLARE_INTERFACE(ta::ui::IPopup, "tamber.IPopup/1.0")
