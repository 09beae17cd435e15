#include "contextmenu_p.h"

#include "popupstack.h"

#include "foundation/positions.h"

#include <QtGui/QMouseEvent>
#include <QtQuick/QQuickWindow>

#include <utility>

// What a menu does with the events of its target and, while it is open, of the whole application.

namespace ta::ui {

namespace {

// The visible frame of an open menu; null where the component has none.
QQuickItem *frameOf(const QQuickItem *menuItem)
{
    return qvariant_cast<QQuickItem *>(menuItem->property("popup"));
}

QQuickItem *deepestItemAt(QQuickItem *item, const QPointF &scenePosition)
{
    for (;;) {
        const QPointF position = item->mapFromScene(scenePosition);
        QQuickItem *child = item->childAt(position.x(), position.y());
        if (!child)
            return item;
        item = child;
    }
}

} // namespace

// One press of the pointer passes here several times while the menu is open: on its way to the
// window, on its way from there to the items under the pointer, and, where the target is one of
// them, once more because the menu filters the target, too.
bool ContextMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (!d->enabled)
        return false;

    const QEvent *passedOn = std::exchange(d->passedOn, nullptr);
    // A handler may destroy the receiver, which must not get the event then, or this object.
    const QPointer<QObject> receiver(watched);
    switch (event->type()) {
    case QEvent::KeyPress:
        if (!d->menuItem)
            return false;
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
            close();
        return true;

    case QEvent::ShortcutOverride:
        // Comes before the key press, which would become a shortcut of the host instead.
        if (!d->menuItem)
            return false;
        event->accept();
        return true;

    case QEvent::MouseButtonPress: {
        auto *press = static_cast<QMouseEvent *>(event);
        if (watched != d->target) {
            if (d->menuItem && frameOf(d->menuItem)
                && !d->containsScreenPosition(press->screenPos()))
                close();
            return !receiver;
        }
        if (press->button() != Qt::RightButton || passedOn == event)
            return false;
        const QPointer<ContextMenu> guard(this);
        const bool seenAgain = PopupStack::top() == this;
        const bool taken = d->rightPress(press);
        if (guard && seenAgain && !taken)
            d->passedOn = event;
        return taken || !receiver;
    }

    case QEvent::MouseButtonRelease: {
        auto *release = static_cast<QMouseEvent *>(event);
        if (watched != d->target || release->button() != Qt::RightButton)
            return false;
        return d->rightRelease(release) || !receiver;
    }

    case QEvent::Wheel:
        if (watched == d->target)
            return false;
        return !d->menuItem
               || !d->containsScreenPosition(static_cast<QWheelEvent *>(event)->globalPosition());

    case QEvent::WindowBlocked:
        // The host shows a modal window, which needs the keys: from triggered(), perhaps, and in an
        // event loop of its own.
        if (d->menuItem && watched == d->menuItem->window())
            close();
        return !receiver;

    default:
        return false;
    }
}

// Returns whether the press is the menu's.
bool ContextMenuPrivate::rightPress(QMouseEvent *event)
{
    if (!target->window())
        return false;
    const QPoint scenePosition = windowPosition(target->window(), event->screenPos());
    const QPointer<ContextMenu> guard(q);
    const QPointer<QQuickItem> receiver(target);
    // A press is accepted until somebody says otherwise. A target that a handler destroys must not
    // become the one that grabs the mouse.
    const bool accepted = event->isAccepted();
    event->ignore();
    Q_EMIT q->contextMenuRequested(target->mapFromScene(scenePosition),
                                   deepestItemAt(target, scenePosition));
    if (!receiver)
        return true;
    event->setAccepted(accepted);
    if (!guard)
        return false;
    refused = !hasVisibleItems();
    if (!refused)
        event->accept();
    return !refused;
}

// Returns whether the menu has opened.
bool ContextMenuPrivate::rightRelease(QMouseEvent *event)
{
    if (refused || !hasVisibleItems() || !open(event->screenPos()))
        return false;
    event->accept();
    return true;
}

bool ContextMenuPrivate::containsScreenPosition(const QPointF &screenPosition) const
{
    const QQuickItem *frame = frameOf(menuItem);
    return frame && frame->window()
           && containsScenePosition(frame, windowPosition(frame->window(), screenPosition));
}

} // namespace ta::ui
