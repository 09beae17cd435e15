#include "popupanchor_p.h"

#include "foundation/positions.h"

#include <QtQuick/QQuickWindow>

// What an open popup does with the events of the application.

namespace ta::ui {

namespace {

// More tab stops than any popup has: the walk along the focus chain ends even where the chain is
// broken and never comes back to where it started.
constexpr int kMostTabStops = 10000;

} // namespace

bool PopupAnchor::eventFilter(QObject *watched, QEvent *event)
{
    // Hiding may run a handler that destroys the receiver, which must not get the event then.
    const QPointer<QObject> receiver(watched);
    bool handled = false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        handled = d->press(static_cast<QMouseEvent *>(event)->screenPos());
        break;
    case QEvent::KeyPress:
        handled = d->key(static_cast<QKeyEvent *>(event)->key());
        break;
    case QEvent::Wheel:
        handled = d->wheel(static_cast<QWheelEvent *>(event)->globalPosition());
        break;
    case QEvent::Resize:
        // The first show of a window brings such an event, too, without any change.
        if (watched == window() && static_cast<QResizeEvent *>(event)->size() != d->windowSize)
            hide();
        break;
    case QEvent::Close:
        hide();
        break;
    default:
        return false;
    }
    return handled || !receiver;
}

bool PopupAnchorPrivate::press(const QPointF &screenPosition)
{
    if (persistent || !q->window())
        return false;
    const QPoint position = windowPosition(q->window(), screenPosition);
    if (containsScenePosition(popupItem, position))
        return false;

    const QPointer<QQuickItem> trigger = triggerItem; // hiding may destroy the anchor
    q->hide();
    return containsScenePosition(trigger, position);
}

bool PopupAnchorPrivate::wheel(const QPointF &screenPosition) const
{
    return q->window()
           && !containsScenePosition(popupItem, windowPosition(q->window(), screenPosition));
}

bool PopupAnchorPrivate::key(int key)
{
    if (persistent)
        return false;
    switch (key) {
    case Qt::Key_Escape:
        q->hide();
        return true;
    case Qt::Key_Tab:
        return tab(true);
    case Qt::Key_Backtab:
        return tab(false);
    default:
        return false;
    }
}

bool PopupAnchorPrivate::isInsidePopup(const QQuickItem *item) const
{
    return popupItem && popupItem->isAncestorOf(item);
}

// Lets Qt move the focus while it stays inside the popup. From the last tab stop it goes to the
// first: the farthest one that can be reached backwards from it without leaving the popup.
bool PopupAnchorPrivate::tab(bool forward) const
{
    if (!popup)
        return false;
    QQuickItem *focusItem = nullptr;
    if (popupItem && popupItem->window())
        focusItem = popupItem->window()->activeFocusItem();
    if (!focusItem)
        return true;

    const QQuickItem *next = focusItem->nextItemInFocusChain(forward);
    if (next == popupItem || isInsidePopup(next))
        return false;

    QQuickItem *farthest = nullptr;
    QQuickItem *candidate = focusItem->nextItemInFocusChain(!forward);
    for (int stops = 0; stops < kMostTabStops; ++stops) {
        if (!candidate || candidate == focusItem || !isInsidePopup(candidate))
            break;
        farthest = candidate;
        candidate = candidate->nextItemInFocusChain(!forward);
    }
    if (farthest)
        farthest->forceActiveFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

} // namespace ta::ui
