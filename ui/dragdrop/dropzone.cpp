#include "dropzone.h"

#include "foundation/assign.h"
#include "foundation/objectlist.h"
#include "foundation/turn.h"

#include <QtQuick/QQuickWindow>

#include <initializer_list>

namespace ta::ui {

// The zone holds a drag while there is an active handler, and is idle while there is none. What
// takes it from one to the other is a turn.
class DropZonePrivate
{
public:
    using HandlerList = QQmlListProperty<DropHandler>;
    using Signal = void (DropZone::*)();

    explicit DropZonePrivate(DropZone *q) : q(q) {}

    static DropZonePrivate *of(HandlerList *list)
    {
        return static_cast<DropZone *>(list->object)->d.get();
    }
    static void appendDropHandler(HandlerList *list, DropHandler *handler);
    static int dropHandlerCount(HandlerList *list);
    static DropHandler *dropHandlerAt(HandlerList *list, int index);
    static void clearDropHandlers(HandlerList *list);

    QPointer<DropHandler> findTaker(const QMimeData *data) const;
    Turn beginTurn();
    bool announce(std::initializer_list<Signal> changes);
    void updateDragPosition(const QPointF &position);
    void watch();
    void unwatch();
    void leave();

    DropZone *const q;
    qreal dragX = 0;
    qreal dragY = 0;
    QPointer<QObject> dragSource;
    ObjectList<DropHandler> dropHandlers;
    QPointer<DropHandler> activeDropHandler;
    int turns = 0;
    int moves = 0;
    QMetaObject::Connection handlerConnection; // both only while a drag is held
    QMetaObject::Connection windowConnection;
};

// --- The list of handlers -----------------------------------------------------------------------

void DropZonePrivate::appendDropHandler(HandlerList *list, DropHandler *handler)
{
    DropZonePrivate *d = of(list);
    d->dropHandlers.append(handler);
    Q_EMIT d->q->dropHandlersChanged();
}

int DropZonePrivate::dropHandlerCount(HandlerList *list)
{
    return of(list)->dropHandlers.count();
}

DropHandler *DropZonePrivate::dropHandlerAt(HandlerList *list, int index)
{
    return objectAt(of(list)->dropHandlers, index);
}

void DropZonePrivate::clearDropHandlers(HandlerList *list)
{
    DropZonePrivate *d = of(list);
    if (clearObjects(d->dropHandlers))
        Q_EMIT d->q->dropHandlersChanged();
}

// --- The drag over the zone ---------------------------------------------------------------------

// A handler is the host's code: it may change the list, and destroy itself or the zone.
QPointer<DropHandler> DropZonePrivate::findTaker(const QMimeData *data) const
{
    const ObjectList<DropHandler> handlers = dropHandlers;
    for (const QPointer<DropHandler> &handler : handlers) {
        if (handler && handler->isEnabled() && handler->acceptsMimeData(data))
            return handler;
    }
    return nullptr;
}

Turn DropZonePrivate::beginTurn()
{
    ++turns;
    return Turn(q, turns);
}

// Returns whether the turn goes on after the last signal.
bool DropZonePrivate::announce(std::initializer_list<Signal> changes)
{
    const Turn turn(q, turns);
    for (const Signal change : changes) {
        Q_EMIT(q->*change)();
        if (turn.isOver())
            return false;
    }
    return true;
}

void DropZonePrivate::updateDragPosition(const QPointF &position)
{
    ++moves;
    const Turn move(q, moves);
    if (assign(dragX, position.x()))
        Q_EMIT q->dragXChanged();
    if (!move.isOver() && assign(dragY, position.y()))
        Q_EMIT q->dragYChanged();
}

// Neither the end of its handler nor the way to another window is told to an item with a drag over
// it. The first connection to a signal of QQuickItem costs memory, so there is none without a drag.
void DropZonePrivate::watch()
{
    unwatch();
    handlerConnection = QObject::connect(activeDropHandler, &QObject::destroyed, q,
                                         [this] { leave(); });
    windowConnection = QObject::connect(q, &QQuickItem::windowChanged, q, [this] { leave(); });
}

void DropZonePrivate::unwatch()
{
    QObject::disconnect(handlerConnection);
    QObject::disconnect(windowConnection);
}

void DropZonePrivate::leave()
{
    beginTurn();
    unwatch();
    activeDropHandler = nullptr;
    dragSource = nullptr;
    if (announce({ &DropZone::dragExit, &DropZone::dragSourceChanged,
                   &DropZone::containsDragChanged, &DropZone::activeDropHandlerChanged }))
        updateDragPosition(QPointF());
}

// --- The public class ---------------------------------------------------------------------------

DropZone::DropZone(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<DropZonePrivate>(this))
{
    setFlag(ItemAcceptsDrops);
}

DropZone::~DropZone()
{
    d->unwatch();
}

bool DropZone::containsDrag() const
{
    return d->activeDropHandler;
}

double DropZone::dragX() const
{
    return d->dragX;
}

double DropZone::dragY() const
{
    return d->dragY;
}

QObject *DropZone::dragSource() const
{
    return d->dragSource;
}

QQmlListProperty<DropHandler> DropZone::dropHandlers()
{
    return QQmlListProperty<DropHandler>(this, nullptr, &DropZonePrivate::appendDropHandler,
                                         &DropZonePrivate::dropHandlerCount,
                                         &DropZonePrivate::dropHandlerAt,
                                         &DropZonePrivate::clearDropHandlers);
}

DropHandler *DropZone::activeDropHandler() const
{
    return d->activeDropHandler;
}

void DropZone::dragEnterEvent(QDragEnterEvent *event)
{
    const QPointer<DropZone> guard(this);
    const QPointer<DropHandler> taker = d->findTaker(event->mimeData());
    if (!guard || !taker) {
        event->ignore();
        return;
    }
    const Turn turn = d->beginTurn();
    d->activeDropHandler = taker;
    event->accept();
    d->updateDragPosition(event->posF());
    if (!turn.isOver() && d->activeDropHandler) {
        d->dragSource = event->source();
        d->watch();
        d->announce({ &DropZone::dragEnter, &DropZone::containsDragChanged,
                      &DropZone::dragSourceChanged, &DropZone::activeDropHandlerChanged });
    } else if (!turn.isOver()) {
        d->updateDragPosition(QPointF()); // the handler is gone before anybody was told of the drag
    }
    event->setAccepted(guard && d->activeDropHandler);
}

void DropZone::dragMoveEvent(QDragMoveEvent *event)
{
    if (!d->activeDropHandler)
        return;
    const QPointer<DropZone> guard(this);
    d->updateDragPosition(event->posF());
    event->setAccepted(guard && d->activeDropHandler);
}

void DropZone::dragLeaveEvent(QDragLeaveEvent *)
{
    if (d->activeDropHandler)
        d->leave();
}

void DropZone::dropEvent(QDropEvent *event)
{
    const Turn turn = d->beginTurn();
    d->unwatch(); // from here on the drag ends as a drop, whoever goes
    if (d->activeDropHandler)
        d->updateDragPosition(event->posF());
    if (turn.isOver())
        return;
    if (const QPointer<DropHandler> handler = d->activeDropHandler) {
        const QVariant value = handler->extractMimeData(event->mimeData());
        const Qt::KeyboardModifiers modifiers = event->keyboardModifiers();
        if (!turn.isOver() && handler)
            Q_EMIT drop(value, modifiers);
        if (handler)
            Q_EMIT handler->drop(value, modifiers);
        if (turn.isOver())
            return;
    }
    d->activeDropHandler = nullptr;
    d->dragSource = nullptr;
    if (d->announce({ &DropZone::activeDropHandlerChanged, &DropZone::dragSourceChanged,
                      &DropZone::containsDragChanged }))
        d->updateDragPosition(QPointF());
}

} // namespace ta::ui
