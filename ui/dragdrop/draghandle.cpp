#include "draghandle.h"

#include "foundation/assign.h"
#include "foundation/mousegrab.h"
#include "foundation/rounding.h"

#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>

#include <utility>

namespace ta::ui {

class DragHandlePrivate
{
public:
    explicit DragHandlePrivate(DragHandle *q) : q(q) {}

    void beginDrag(const QPoint &screenPosition);
    void endDrag();

    DragHandle *const q;
    bool active = false;
    DragHandle::DragDirection activeDirection = DragHandle::Horizontal; // while active
    QPoint startPosition; // on the screen
    DragHandle::DragDirection direction = DragHandle::Horizontal;
};

void DragHandlePrivate::beginDrag(const QPoint &screenPosition)
{
    if (std::exchange(active, true))
        return;
    startPosition = screenPosition;
    activeDirection = direction;
    QGuiApplication::setOverrideCursor(q->cursor());
    Q_EMIT q->dragBegin();
}

void DragHandlePrivate::endDrag()
{
    if (!std::exchange(active, false))
        return;
    QGuiApplication::restoreOverrideCursor();
    Q_EMIT q->dragEnd();
}

DragHandle::DragHandle(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<DragHandlePrivate>(this))
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setCursor(Qt::SizeHorCursor);
    setKeepMouseGrab(true);
    setAcceptHoverEvents(true);
}

DragHandle::~DragHandle()
{
    if (d->active)
        QGuiApplication::restoreOverrideCursor();
}

DragHandle::DragDirection DragHandle::direction() const
{
    return d->direction;
}

void DragHandle::setDirection(DragDirection direction)
{
    if (!assign(d->direction, direction))
        return;
    const QPointer<DragHandle> guard(this);
    Q_EMIT directionChanged();
    if (guard)
        setCursor(d->direction == Vertical ? Qt::SizeVerCursor : Qt::SizeHorCursor);
}

void DragHandle::mousePressEvent(QMouseEvent *event)
{
    const QPointer<DragHandle> guard(this);
    d->beginDrag(rounded(event->screenPos()));
    event->setAccepted(guard); // Qt gives the mouse grab to who accepts
}

void DragHandle::mouseMoveEvent(QMouseEvent *event)
{
    if (!d->active)
        return;
    const QPoint way = rounded(event->screenPos()) - d->startPosition;
    Q_EMIT dragUpdate(d->activeDirection == Vertical ? way.y() : way.x());
}

void DragHandle::mouseReleaseEvent(QMouseEvent *)
{
    d->endDrag();
}

// The mouse goes elsewhere: the handle was disabled, hidden or taken out of its window.
void DragHandle::mouseUngrabEvent()
{
    d->endDrag();
}

void DragHandle::releaseResources()
{
    endMouseGrab(this);
}

} // namespace ta::ui
