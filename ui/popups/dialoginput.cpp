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
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return d->press(watched, static_cast<QMouseEvent *>(event)->screenPos());
    case QEvent::KeyPress:
        d->heldKey = static_cast<QKeyEvent *>(event)->key();
        return d->key(watched, d->heldKey);
    case QEvent::KeyRelease:
        d->heldKey = 0;
        return false;
    case QEvent::Wheel:
        return !d->isOwnWindow(watched) && !isInsidePopup(watched) && d->isOutside(watched);
    case QEvent::HoverEnter:
        return !isInsidePopup(watched) && d->isOutside(watched);
    case QEvent::Shortcut:
        return d->isOutside(watched);
    case QEvent::Resize:
    case QEvent::Close: {
        // A handler may destroy the receiver, which must not get the event then.
        const QPointer<QObject> receiver(watched);
        if (event->type() == QEvent::Close)
            d->windowCloses();
        else if (d->autoSize)
            d->updateDialogSize();
        return watched && !receiver;
    }
    default:
        return false;
    }
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

// Any window of the application, that of the dialog included: nothing is to fade then.
void DialogPrivate::windowCloses()
{
    if (host && flags.testFlag(Dialog::RejectOnCloseEvent))
        end(&DialogPrivate::discardImmediate, [this] { Q_EMIT q->rejected(); });
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
