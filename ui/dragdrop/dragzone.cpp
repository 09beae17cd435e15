#include "dragzone.h"

#include "dragloop_p.h"

#include "foundation/assign.h"
#include "foundation/createobject.h"
#include "foundation/logging.h"

#include <QtCore/QMimeData>
#include <QtCore/QPointer>
#include <QtGui/QDropEvent>
#include <QtQml/QJSValue>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <utility>

namespace ta::ui {

namespace {

constexpr qreal kThreshold = 25; // logical pixels, both directions added up
constexpr qreal kDragItemZ = 2147483647; // above everything but context menus

// The zone whose drag has begun and not yet ended; written on the GUI thread. A gesture belongs to
// one zone: others that see its moves, too, keep out of it. There is one pointer in all windows.
QPointer<DragZone> s_draggingZone;

// The attached object of a root, made if need be; null where the host has not registered DragZone.
DragZoneAttachedObject *attachedObject(QObject *object)
{
    const auto create = qmlAttachedPropertiesFunction(object, &DragZone::staticMetaObject);
    return create
               ? qobject_cast<DragZoneAttachedObject *>(qmlAttachedPropertiesObject(object, create))
               : nullptr;
}

} // namespace

/*
    Idle -> Pressed      the left button goes down on an item inside the zone
    Pressed -> Idle      a move without a valid payload, or while an item keeps the mouse to itself
    Pressed -> Dragging  a move beyond the threshold; doDrag() follows from the event loop
    Dragging -> Idle     the drag comes to nothing before doDrag() has called the platform
    Dragging -> Finished the platform's drag has ended
    Finished -> Pressed  as from Idle
*/
class DragZonePrivate
{
public:
    enum State { Idle = 0, Pressed = 1, Dragging = 2, Finished = 3 };

    explicit DragZonePrivate(DragZone *q) : q(q) {}

    bool handleMouseEvent(QMouseEvent *event);
    void press(const QMouseEvent *event);
    void release(const QMouseEvent *event);
    bool move(const QMouseEvent *event);
    void beginDrag();

    void doDrag();
    bool prepare(DragLoop *dragLoop);
    void execute(DragLoop *dragLoop);
    void finish(State end);
    void abandon();

    void createDragItem();
    void adopt(QObject *object);
    void handleDragEvent(QEvent *event);
    void showDragItem(const QDropEvent *event);

    DragZone *const q;
    bool dragEnabled = true;
    QPointF pressPosition; // in the coordinates of the item that was pressed
    State state = Idle;
    QPointer<QQmlComponent> dragDelegate;
    QPointer<QQuickItem> dragItem; // owned by the zone
    QPointer<DragZoneAttachedObject> dragItemProperties;
    QPointer<MimeData> mimeData;

    bool released = false; // the left button, since its press
    DragLoop *loop = nullptr; // on the stack of doDrag()
    QPointer<QObject> filteredWindow; // no QQuickWindow any more when it hides at its end
};

// --- The gesture --------------------------------------------------------------------------------

// Returns whether the zone takes the event away from the item that it is for. Where a handler has
// destroyed the zone that item is gone as well, most likely, and must not get it either.
bool DragZonePrivate::handleMouseEvent(QMouseEvent *event)
{
    if (!dragEnabled)
        return false;
    const QPointer<DragZone> guard(q);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        press(event);
        break;
    case QEvent::MouseButtonRelease:
        release(event);
        break;
    case QEvent::MouseMove:
        if (!move(event))
            return !guard;
        break;
    default:
        break;
    }
    return !guard || state == Dragging;
}

void DragZonePrivate::press(const QMouseEvent *event)
{
    if (event->buttons() != Qt::LeftButton || state == Dragging)
        return;
    pressPosition = event->localPos();
    state = Pressed;
    released = false;
    Q_EMIT q->mousePressed();
}

void DragZonePrivate::release(const QMouseEvent *event)
{
    released = released || !event->buttons().testFlag(Qt::LeftButton);
    Q_EMIT q->mouseReleased();
}

// Returns false where the gesture is somebody else's.
bool DragZonePrivate::move(const QMouseEvent *event)
{
    if (loop)
        return true;
    const QQuickItem *grabber = q->window() ? q->window()->mouseGrabberItem() : nullptr;
    if ((grabber && grabber->keepMouseGrab()) || (s_draggingZone && s_draggingZone != q)) {
        abandon();
        return false;
    }
    // A release leaves the state alone, so a click with another button may follow.
    const bool isOfAnotherButton = event->buttons() && !event->buttons().testFlag(Qt::LeftButton);
    if (state != Pressed || isOfAnotherButton)
        return true;
    if (!mimeData || !mimeData->isValid())
        state = Idle;
    else if ((event->localPos() - pressPosition).manhattanLength() >= kThreshold)
        beginDrag();
    return true;
}

void DragZonePrivate::beginDrag()
{
    const QPointer<DragZone> guard(q);
    state = Dragging;
    s_draggingZone = q;
    Q_EMIT q->dragActiveChanged();
    if (!guard)
        return;
    Q_EMIT q->dragStarted();
    // The platform's drag must not run inside the delivery of a mouse event.
    if (guard)
        QMetaObject::invokeMethod(q, "doDrag", Qt::QueuedConnection);
}

// --- The drag -----------------------------------------------------------------------------------

void DragZonePrivate::doDrag()
{
    if (state != Dragging || loop)
        return;
    // A button that is up already would never end the platform's drag.
    if (!mimeData || released) {
        finish(Idle);
        return;
    }
    const QPointer<DragZone> guard(q);
    DragLoop dragLoop(q);
    loop = &dragLoop;
    if (prepare(&dragLoop))
        execute(&dragLoop);
    if (!guard)
        return;
    loop = nullptr;
    finish(Finished);
}

// Grabbing the mouse, making the payload and the drag item run foreign code. Returns whether the
// drag can go on.
bool DragZonePrivate::prepare(DragLoop *dragLoop)
{
    const QPointer<DragZone> guard(q);
    dragLoop->endWith(q->window());
    dragLoop->endWith(q->parent());
    dragLoop->endWith(qmlEngine(q));
    dragLoop->endWith(mimeData);
    dragLoop->endWith(dragDelegate);

    q->grabMouse();
    if (!guard || dragLoop->isCancelled())
        return false;
    filteredWindow = q->window();
    if (filteredWindow)
        filteredWindow->installEventFilter(q);

    std::unique_ptr<QMimeData> payload(mimeData ? mimeData->createMimeData() : nullptr);
    if (!payload)
        qCWarning(lcUi, "The payload of a drag made no data");
    if (!guard || !payload || dragLoop->isCancelled())
        return false;
    dragLoop->setPayload(std::move(payload));
    createDragItem();
    return guard && !dragLoop->isCancelled();
}

void DragZonePrivate::execute(DragLoop *dragLoop)
{
    const QPointer<DragZone> guard(q);
    const QPointer<QObject> parent = q->parent();
    const bool hadParent = parent;
    // Without a parent, what scripts have created is theirs to collect.
    QJSValue reference;
    QQmlEngine *engine = qmlEngine(q);
    if (engine && QQmlEngine::objectOwnership(q) == QQmlEngine::JavaScriptOwnership)
        reference = engine->newQObject(q);
    q->setParent(nullptr);
    dragLoop->exec();
    if (!guard || q->parent()) // or somebody has given it another parent
        return;
    if (parent)
        q->setParent(parent);
    else if (hadParent)
        q->deleteLater();
}

void DragZonePrivate::finish(State end)
{
    const QPointer<DragZone> guard(q);
    const QPointer<QQuickItem> item = std::exchange(dragItem, nullptr);
    if (filteredWindow)
        filteredWindow->removeEventFilter(q);
    filteredWindow.clear();
    if (s_draggingZone == q)
        s_draggingZone.clear();

    state = end;
    Q_EMIT q->dragActiveChanged();
    if (guard)
        Q_EMIT q->dragEnded();
    if (item)
        item->deleteLater();
    // A handler may have begun another drag, whose grab this would be.
    if (guard && !loop && q->window() && q->window()->mouseGrabberItem() == q)
        q->ungrabMouse();
}

// The gesture comes to nothing, before the platform was called.
void DragZonePrivate::abandon()
{
    if (state == Dragging)
        finish(Idle);
    else
        state = Idle;
}

// --- The drag item ------------------------------------------------------------------------------

void DragZonePrivate::createDragItem()
{
    if (!dragDelegate)
        return;
    const QPointer<DragZone> guard(q);
    bool isItem = true;
    const QPointer<QObject> object = createObject(dragDelegate, [&](QObject *created) {
        isItem = qobject_cast<QQuickItem *>(created);
        if (guard)
            adopt(created);
    });
    if (object && !isItem) {
        qCWarning(lcUi, "A drag item must be an item, not a %s", object->metaObject()->className());
        const std::unique_ptr<QObject> unusable(object);
    }
}

// Runs between creation and completion, so that the item's bindings and completion handlers find
// what they ask for.
void DragZonePrivate::adopt(QObject *object)
{
    const QPointer<DragZone> guard(q);
    const QPointer<QObject> objectGuard(object);
    DragZoneAttachedObject *properties = attachedObject(object);
    dragItemProperties = properties;
    if (properties) {
        properties->setZone(q);
        properties->setMimeData(mimeData);
        properties->setModifiers(Qt::NoModifier);
    }
    auto *item = qobject_cast<QQuickItem *>(objectGuard.data());
    if (!guard || !item)
        return;
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    item->setParent(q);
    dragItem = item;
    item->setVisible(false);
    if (q->window())
        item->setParentItem(q->window()->contentItem());
    item->setZ(kDragItemZ);
}

void DragZonePrivate::handleDragEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
        showDragItem(static_cast<QDropEvent *>(event));
        break;
    case QEvent::DragLeave:
        if (dragItem)
            dragItem->setVisible(false);
        break;
    case QEvent::Hide:
        // Not the window's close event: the window may yet refuse it.
        if (loop)
            loop->cancel();
        break;
    default:
        break;
    }
}

void DragZonePrivate::showDragItem(const QDropEvent *event)
{
    const QPointer<QQuickItem> item = dragItem;
    const QPointer<DragZoneAttachedObject> properties = dragItemProperties;
    const Qt::KeyboardModifiers modifiers = event->keyboardModifiers();
    const QPointF hotspot = properties ? properties->hotspot() : QPointF();
    // Each of these may run a handler that destroys the item.
    if (item)
        item->setPosition(event->posF() - hotspot);
    if (item)
        item->setVisible(true);
    if (properties)
        properties->setModifiers(modifiers);
}

// --- The public class ---------------------------------------------------------------------------

DragZone::DragZone(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<DragZonePrivate>(this))
{
    setFiltersChildMouseEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
}

DragZone::~DragZone()
{
    if (d->loop)
        d->loop->abandon();
}

QQmlComponent *DragZone::dragDelegate() const
{
    return d->dragDelegate;
}

void DragZone::setDragDelegate(QQmlComponent *component)
{
    if (assign(d->dragDelegate, component))
        Q_EMIT dragDelegateChanged();
}

MimeData *DragZone::mimeData() const
{
    return d->mimeData;
}

void DragZone::setMimeData(MimeData *mimeData)
{
    if (assign(d->mimeData, mimeData))
        Q_EMIT mimeDataChanged();
}

bool DragZone::isDragEnabled() const
{
    return d->dragEnabled;
}

void DragZone::setDragEnabled(bool enabled)
{
    if (assign(d->dragEnabled, enabled))
        Q_EMIT dragEnabledChanged();
}

bool DragZone::isDragActive() const
{
    return d->state == DragZonePrivate::Dragging;
}

DragZoneAttachedObject *DragZone::qmlAttachedProperties(QObject *object)
{
    return new DragZoneAttachedObject(object);
}

// Sees the events of the window during a drag. They go on to the window, unless a handler has
// destroyed it.
bool DragZone::eventFilter(QObject *watched, QEvent *event)
{
    const QPointer<QObject> guard(watched);
    if (watched == d->filteredWindow)
        d->handleDragEvent(event);
    return !guard;
}

bool DragZone::childMouseEventFilter(QQuickItem *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return d->handleMouseEvent(static_cast<QMouseEvent *>(event));
    default:
        return false;
    }
}

bool DragZone::proxyMouseEvent(QMouseEvent *event)
{
    return d->handleMouseEvent(event);
}

bool DragZone::event(QEvent *event)
{
    // Told to go, the zone still tells that its drag has ended.
    if (event->type() == QEvent::DeferredDelete && isDragActive()) {
        const QPointer<DragZone> guard(this);
        if (d->loop)
            std::exchange(d->loop, nullptr)->abandon();
        d->finish(DragZonePrivate::Finished);
        if (!guard)
            return true;
    }
    return QQuickItem::event(event);
}

void DragZone::doDrag()
{
    d->doDrag();
}

} // namespace ta::ui
