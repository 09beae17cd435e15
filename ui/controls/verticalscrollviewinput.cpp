#include "verticalscrollview_p.h"

#include "foundation/assign.h"
#include "foundation/positions.h"
#include "popups/ipopup.h"
#include "popups/popupstack.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QDropEvent>

// Scrolling by keys and wheel, and while something is dragged.

namespace ta::ui {

namespace {

// Positions beyond either end of any content.
constexpr double kTop = -2147483647.0;
constexpr double kBottom = 4294967295.0;

// Whether the move that windows are told of just now is the one before a drop, with which no view
// begins to scroll again. GUI thread only.
bool s_tellsBeforeDrop = false;

} // namespace

// --- Keys and wheel -----------------------------------------------------------------------------

void VerticalScrollView::keyPressEvent(QKeyEvent *event)
{
    double target = 0;
    switch (event->key()) {
    case Qt::Key_Home:
        target = kTop;
        break;
    case Qt::Key_End:
        target = kBottom;
        break;
    case Qt::Key_PageUp:
        target = scrollPosition() - height();
        break;
    case Qt::Key_PageDown:
        target = scrollPosition() + height();
        break;
    default:
        event->ignore();
        return;
    }
    event->accept();
    setScrollPosition(target);
}

// A turn that cannot scroll anything here is left to what lies around the view.
void VerticalScrollView::wheelEvent(QWheelEvent *event)
{
    const int angle = event->angleDelta().y();
    event->setAccepted(angle != 0 && d->heightRatio < 1);
    if (!event->isAccepted())
        return;
    const bool isShown = d->scrollsFlickable() && !d->isAnimating();
    const double base = isShown ? d->contentY() : d->scrollPosition;
    setScrollPosition(base + wheelDistance(d->heightRatio, angle));
}

// --- Scrolling while something is dragged -------------------------------------------------------

bool VerticalScrollViewPrivate::mayAutoScroll() const
{
    if (!q->isVisible())
        return false;
    const auto *popup = qobject_cast<IPopup *>(PopupStack::top());
    if (!popup || !popup->preventAutoScroll())
        return true;
    const QQuickItem *root = popup->rootItem();
    return root && (root == q || root->isAncestorOf(q));
}

void VerticalScrollViewPrivate::drag(const QPointF &scenePosition)
{
    if (!dragAutoScroll)
        return;
    double speed = 0;
    if (mayAutoScroll() && containsScenePosition(q, scenePosition))
        speed = autoScrollSpeedAt(q->mapFromScene(scenePosition).y(), q->height(), autoScrollSpeed);
    if (speed == 0) {
        autoScrollTimer->stop();
        return;
    }
    autoScrollSpeed = speed;
    if (!autoScrollTimer->isActive())
        autoScrollTimer->start();
}

// The window's drags pass through the view.
void VerticalScrollViewPrivate::setWindow(QQuickWindow *window)
{
    autoScrollTimer->stop();
    if (filteredWindow)
        filteredWindow->removeEventFilter(q);
    filteredWindow = window;
    if (window)
        window->installEventFilter(q);
}

bool VerticalScrollView::dragAutoScroll() const
{
    return d->dragAutoScroll;
}

void VerticalScrollView::setDragAutoScroll(bool enabled)
{
    if (!assign(d->dragAutoScroll, enabled))
        return;
    if (!enabled)
        d->autoScrollTimer->stop();
    Q_EMIT dragAutoScrollChanged();
}

void VerticalScrollView::autoScroll()
{
    const QPointer<VerticalScrollView> guard(this);
    setScrollPosition(scrollPosition() + d->autoScrollSpeed);
    if (guard)
        d->autoScrollSpeed = acceleratedScrollSpeed(d->autoScrollSpeed);
}

// The window tells its items of a drag when the pointer moves, not when they scroll under it. What
// has scrolled since is told now, or the drop would go to the item that was here before.
void VerticalScrollViewPrivate::tellBeforeDrop(QObject *window, const QDropEvent *event)
{
    if (q->scrollPosition() == positionAtDragMove || !containsScenePosition(q, event->posF()))
        return;
    QDragMoveEvent move(event->pos(), event->possibleActions(), event->mimeData(),
                        event->mouseButtons(), event->keyboardModifiers());
    const QScopedValueRollback<bool> telling(s_tellsBeforeDrop, true);
    QCoreApplication::sendEvent(window, &move);
}

// Installed on the window that the view is in; consumes nothing, unless a handler has destroyed the
// window.
bool VerticalScrollView::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
        // One drag that comes back to the edge goes on as fast as it was, the next begins slowly.
        d->autoScrollSpeed = 0;
        break;
    case QEvent::DragMove:
        d->positionAtDragMove = scrollPosition();
        if (!s_tellsBeforeDrop)
            d->drag(static_cast<QDragMoveEvent *>(event)->posF());
        break;
    case QEvent::Drop: {
        d->autoScrollTimer->stop();
        const QPointer<QObject> window(watched);
        d->tellBeforeDrop(watched, static_cast<QDropEvent *>(event));
        return !window;
    }
    case QEvent::DragLeave:
        d->autoScrollTimer->stop();
        break;
    default:
        break;
    }
    return false;
}

} // namespace ta::ui
