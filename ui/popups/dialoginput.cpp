#include "dialog_p.h"

#include "foundation/positions.h"

#include <QtGui/QGuiApplication>

// What a dialog on top of the popup stack does with the events of the application. One physical
// press comes more than once: the window gets it first, then items.

namespace ta::ui {

namespace {

bool isInsidePopup(const QObject *watched)
{
    for (const auto *item = qobject_cast<const QQuickItem *>(watched); item;
         item = item->parentItem()) {
        if (item->property("_ta_isPopup").toBool())
            return true;
    }
    return false;
}

const QWindow *windowOf(const QObject *watched)
{
    for (; watched; watched = watched->parent()) {
        if (const auto *item = qobject_cast<const QQuickItem *>(watched))
            return item->window();
        if (const auto *window = qobject_cast<const QWindow *>(watched))
            return window;
    }
    return nullptr;
}

} // namespace

bool Dialog::eventFilter(QObject *watched, QEvent *event)
{
    if (QGuiApplication::modalWindow())
        return false;
    // Closing may run a handler that destroys the receiver, which must not get the event then.
    const QPointer<QObject> receiver(watched);
    bool handled = false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        handled = d->press(watched, static_cast<QMouseEvent *>(event)->screenPos());
        break;
    case QEvent::KeyPress:
        d->heldKey = static_cast<QKeyEvent *>(event)->key();
        handled = d->key(watched, static_cast<QKeyEvent *>(event)->key());
        break;
    case QEvent::KeyRelease:
        d->heldKey = 0;
        return false;
    case QEvent::Wheel:
        handled = !d->isOwnWindow(watched) && !isInsidePopup(watched) && d->isOutside(watched);
        break;
    case QEvent::HoverEnter:
        handled = !isInsidePopup(watched) && d->isOutside(watched);
        break;
    case QEvent::Shortcut:
        handled = d->isOutside(watched);
        break;
    case QEvent::Resize:
        if (d->autoSize)
            d->updateDialogSize();
        break;
    case QEvent::Close:
        if (d->host && d->flags.testFlag(RejectOnCloseEvent))
            d->end(&DialogPrivate::discardImmediate, [this] { Q_EMIT rejected(); });
        break;
    default:
        return false;
    }
    return handled || (watched && !receiver);
}

bool DialogPrivate::press(QObject *watched, const QPointF &screenPosition)
{
    if (isOwnWindow(watched) || isInsidePopup(watched) || isBlind(watched))
        return false;
    const QPointer<QObject> receiver(watched);
    const QPointer<Dialog> guard(q);
    if (flags.testFlag(Dialog::RejectOnClickOutside) && contentScope && contentScope->window()
        && !containsScenePosition(contentScope,
                                  windowPosition(contentScope->window(), screenPosition)))
        q->reject();
    return !guard || !receiver || isOutside(watched);
}

bool DialogPrivate::key(QObject *watched, int key)
{
    if (isBlind(watched))
        return false;
    switch (key) {
    case Qt::Key_Backtab:
        return tab("backtabPressed");
    case Qt::Key_Tab:
        return tab("tabPressed");
    case Qt::Key_Escape:
        if (flags.testFlag(Dialog::RejectOnEscape))
            q->reject();
        return true;
    default:
        return !isOwnWindow(watched) && isOutside(watched);
    }
}

// Moving the focus is the business of the box's QML, whose \a signal says where to.
bool DialogPrivate::tab(const char *signal)
{
    if (content && content->property("disableTabOverride").toBool())
        return false;
    if (contentScope)
        QMetaObject::invokeMethod(contentScope, signal);
    return true;
}

// Whether the dialog cannot be seen while the user works in another window, which it would block
// for a reason that nobody could find.
bool DialogPrivate::isBlind(const QObject *watched) const
{
    if (!window() || window()->isVisible())
        return false;
    const QWindow *other = windowOf(watched);
    return other && other != window() && other->isVisible();
}

// Whether \a watched is neither inside the box nor belongs to the dialog.
bool DialogPrivate::isOutside(const QObject *watched) const
{
    if (isBlind(watched))
        return false;
    const QQuickItem *item = nullptr;
    for (const QObject *object = watched; object; object = object->parent()) {
        if (object == q)
            return false;
        if (!item)
            item = qobject_cast<const QQuickItem *>(object);
    }
    for (; item; item = item->parentItem()) {
        if (item == contentScope)
            return false;
    }
    return true;
}

} // namespace ta::ui
