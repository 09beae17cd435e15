#include "popupanchor_p.h"

#include "destroylater_p.h"
#include "dialog_p.h"
#include "focusitem_p.h"
#include "popupbackground.h"
#include "popupplacement_p.h"
#include "popupstack.h"

#include "foundation/assign.h"
#include "foundation/createobject.h"
#include "foundation/logging.h"
#include "foundation/rounding.h"
#include "foundation/turn.h"

#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <utility>

namespace ta::ui {

namespace {

constexpr qreal kLayerZ = 65635; // above all ordinary content and the eyedropper, below tooltips
constexpr int kReleaseDelay = 700; // ms that a hidden popup item has for its animation

} // namespace

// --- The popup item -----------------------------------------------------------------------------

void PopupAnchorPrivate::createLayer()
{
    if (popupLayer)
        return;
    popupLayer = new QQuickItem;
    popupLayer->setEnabled(false);
    popupLayer->setParent(q);
    popupLayer->setParentItem(q->window()->contentItem());
    popupLayer->setZ(kLayerZ);
}

void PopupAnchorPrivate::createPopupItem()
{
    creationPending = !canCreate();
    if (creationPending)
        return;
    createLayer();
    if (!popup)
        return;
    if (popupItem) {
        QObject::disconnect(itemConnection);
        popupItem->deleteLater();
        popupItem.clear();
    }

    const QPointer<PopupAnchor> guard(q);
    creating = true;
    bool isItem = true;
    const QPointer<QObject> object = createObject(popup, [&](QObject *created) {
        auto *item = qobject_cast<QQuickItem *>(created);
        isItem = item;
        if (item)
            adopt(item);
    });
    if (object && !isItem) {
        qCWarning(lcUi, "A popup must be an item, not a %s", object->metaObject()->className());
        const std::unique_ptr<QObject> unusable(object);
    }
    if (!guard)
        return;
    creating = false;
    Q_EMIT q->popupItemChanged();
}

// Runs between creation and completion, so that the component's completion handlers find the item
// inside the layer.
void PopupAnchorPrivate::adopt(QQuickItem *item)
{
    popupItem = item;
    itemEngine = qmlEngine(item);
    itemLevel = loopLevel();
    item->setEnabled(false);
    item->setParent(nullptr);
    item->setParentItem(popupLayer);
    new PopupBackground(item);
    item->setProperty("_ta_isPopup", true);
    itemConnection = QObject::connect(item, &QObject::destroyed, q,
                                      [this] { popupItemDestroyed(); });
}

// Somebody else destroyed the item. A popup that is shown without one would filter the
// application's events with nothing on the screen, so it closes.
void PopupAnchorPrivate::popupItemDestroyed()
{
    if (creating) // it never came to be, which createPopupItem() tells
        return;
    const QPointer<PopupAnchor> guard(q);
    Q_EMIT q->popupItemChanged();
    if (guard && !popupItem)
        q->setPopupVisible(false);
}

void PopupAnchorPrivate::releasePopupItem()
{
    QQuickItem *item = popupItem;
    popupItem.clear();
    QObject::disconnect(itemConnection);
    // An application may quit before the delay is over; the item then goes with its engine.
    item->setParent(itemEngine);
    destroyLater(item, itemLevel, kReleaseDelay);
}

// --- Showing and hiding -------------------------------------------------------------------------

void PopupAnchor::setPopupVisible(bool visible)
{
    if (!assign(d->popupVisible, visible))
        return;
    ++d->visibilityChanges;
    const Turn turn(this, d->visibilityChanges);
    if (visible)
        d->rememberFocus();

    if (visible)
        Q_EMIT aboutToShow();
    else
        Q_EMIT aboutToHide();
    if (turn.isOver())
        return;
    Q_EMIT popupVisibleChanged();
    if (turn.isOver())
        return;

    if (visible)
        d->present();
    else
        d->dismiss();
}

// The anchor got a window, or QML has finished constructing it: do what had to wait for that.
void PopupAnchorPrivate::resume()
{
    if (!canCreate())
        return;
    const Turn turn(q, visibilityChanges);
    if (creationPending)
        createPopupItem();
    if (!turn.isOver() && popupVisible && popupItem)
        present();
}

// Puts the popup on the screen; what is done already stays as it is.
void PopupAnchorPrivate::present()
{
    const Turn turn(q, visibilityChanges);
    if (!popupItem) {
        createPopupItem();
        if (turn.isOver() || !popupItem)
            return;
    }
    q->updateAnchorPosition();
    if (turn.isOver())
        return;
    setPopupEnabled(true);
    if (turn.isOver())
        return;
    joinStack();
}

void PopupAnchorPrivate::dismiss()
{
    const Turn turn(q, visibilityChanges);
    creationPending = creationPending && popupCreationPolicy == PopupAnchor::InstantCreation;
    if (popupItem)
        q->updateAnchorPosition();
    if (turn.isOver())
        return;
    returnFocus();
    if (turn.isOver())
        return;
    setPopupEnabled(false);
    if (turn.isOver())
        return;
    leaveStack();
    if (popupItem && popupCreationPolicy == PopupAnchor::OnDemandCreation) {
        releasePopupItem();
        Q_EMIT q->popupItemChanged();
    }
}

// What an item of the popup itself has was taken from another one before.
void PopupAnchorPrivate::rememberFocus()
{
    QQuickItem *item = focusItem(q->window());
    if (!isInside(popupItem, item))
        previousFocusItem = item;
}

// A popup that has the focus gives it back before it is disabled: nobody would have it then, and
// the dialog below would not get a key any more.
void PopupAnchorPrivate::returnFocus()
{
    if (popupItem)
        DialogPrivate::bequeathFocus(popupItem, previousFocusItem);
    QQuickItem *item = std::exchange(previousFocusItem, nullptr);
    const bool hasFocus = popupItem && isInside(popupItem, focusItem(popupItem->window()));
    if (hasFocus && item && item->isEnabled() && item->isVisible())
        item->forceActiveFocus();
}

void PopupAnchorPrivate::setPopupEnabled(bool enabled)
{
    const Turn turn(q, visibilityChanges);
    if (popupItem)
        popupItem->setEnabled(enabled);
    if (!turn.isOver() && popupLayer)
        popupLayer->setEnabled(enabled);
}

void PopupAnchorPrivate::joinStack()
{
    QQuickWindow *window = q->window();
    if (onStack || !window)
        return;
    onStack = true;
    windowSize = window->size();
    // Emitted on the render thread where there is one: the automatic connection queues it then.
    frameConnection = QObject::connect(window, &QQuickWindow::beforeSynchronizing, q,
                                       &PopupAnchor::updateAnchorPosition);
    // A popup below the top of the stack does not see the close event of its window.
    windowConnection = QObject::connect(window, &QWindow::visibleChanged, q, [this](bool visible) {
        if (!visible)
            q->hide();
    });
    PopupStack::push(q);
}

void PopupAnchorPrivate::leaveStack()
{
    if (!onStack)
        return;
    onStack = false;
    QObject::disconnect(frameConnection);
    QObject::disconnect(windowConnection);
    PopupStack::pop(q);
}

// --- Placement ----------------------------------------------------------------------------------

void PopupAnchor::updateAnchorPosition()
{
    if (window())
        d->follow();
}

// Runs once a frame while the popup is shown. Setting an item's geometry or emitting a distance may
// run handlers that destroy the item or the anchor, or that cause another placement, whose numbers
// are newer than those here.
void PopupAnchorPrivate::follow()
{
    const QPointer<PopupAnchor> guard(q);
    const int number = ++placements;
    const auto isOver = [&] { return !guard || placements != number; };

    const QPoint anchor = rounded(q->mapToScene(QPointF()));
    const QSizeF windowSize = q->window()->contentItem()->size();
    QPoint layer = anchor;

    if (autoLayout && popupItem) {
        QSize trigger(0, 0);
        if (const QQuickItem *parent = q->parentItem())
            trigger = QSize(truncated(parent->width()), truncated(parent->height()));
        const QSize implicit(truncated(popupItem->implicitWidth()),
                             truncated(popupItem->implicitHeight()));
        const PopupPlacement placement = placePopup(anchor, trigger, implicit, windowSize);
        layer = placement.layer;

        popupItem->setX(placement.popupX);
        if (isOver())
            return;
        if (popupItem)
            popupItem->setHeight(placement.popupHeight);
        if (isOver())
            return;
        if (popupItem)
            popupItem->setY(placement.popupY);
        if (isOver())
            return;
    }
    if (popupLayer)
        popupLayer->setPosition(layer);

    const struct
    {
        int PopupAnchorPrivate::*field;
        int value;
        void (PopupAnchor::*changed)();
    } distances[] = {
        { &PopupAnchorPrivate::distanceTop, layer.y(), &PopupAnchor::distanceTopChanged },
        { &PopupAnchorPrivate::distanceBottom, truncated(windowSize.height() - layer.y()),
          &PopupAnchor::distanceBottomChanged },
        { &PopupAnchorPrivate::distanceLeft, layer.x(), &PopupAnchor::distanceLeftChanged },
        { &PopupAnchorPrivate::distanceRight, truncated(windowSize.width() - layer.x()),
          &PopupAnchor::distanceRightChanged },
    };
    for (const auto &distance : distances) {
        if (isOver())
            return;
        if (assign(this->*distance.field, distance.value))
            Q_EMIT(q->*distance.changed)();
    }
}

// --- The public class ---------------------------------------------------------------------------

PopupAnchor::PopupAnchor(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<PopupAnchorPrivate>(this))
{
}

PopupAnchor::~PopupAnchor()
{
    if (d->popupItem)
        d->releasePopupItem();
}

QQmlComponent *PopupAnchor::popup() const
{
    return d->popup;
}

void PopupAnchor::setPopup(QQmlComponent *component)
{
    if (!assign(d->popup, component))
        return;
    if (d->popupCreationPolicy == InstantCreation || d->popupItem) {
        const QPointer<PopupAnchor> guard(this);
        d->createPopupItem();
        if (!guard)
            return;
        // An item that replaces the one on the screen is shown in its place.
        if (d->popupVisible && d->popupItem)
            d->present();
        else if (d->onStack && !d->popupItem)
            hide();
        if (!guard)
            return;
    }
    Q_EMIT popupChanged();
}

QQuickItem *PopupAnchor::popupItem() const
{
    return d->popupItem;
}

bool PopupAnchor::isPopupVisible() const
{
    return d->popupVisible;
}

bool PopupAnchor::isPersistent() const
{
    return d->persistent;
}

void PopupAnchor::setPersistent(bool persistent)
{
    if (assign(d->persistent, persistent))
        Q_EMIT persistentChanged();
}

bool PopupAnchor::autoLayout() const
{
    return d->autoLayout;
}

void PopupAnchor::setAutoLayout(bool autoLayout)
{
    if (assign(d->autoLayout, autoLayout))
        Q_EMIT autoLayoutChanged();
}

bool PopupAnchor::preventAutoScroll() const
{
    return d->preventAutoScroll;
}

void PopupAnchor::setPreventAutoScroll(bool prevent)
{
    if (assign(d->preventAutoScroll, prevent))
        Q_EMIT preventAutoScrollChanged();
}

int PopupAnchor::distanceTop() const
{
    return d->distanceTop;
}

int PopupAnchor::distanceBottom() const
{
    return d->distanceBottom;
}

int PopupAnchor::distanceLeft() const
{
    return d->distanceLeft;
}

int PopupAnchor::distanceRight() const
{
    return d->distanceRight;
}

PopupAnchor::PopupCreationPolicy PopupAnchor::popupCreationPolicy() const
{
    return d->popupCreationPolicy;
}

void PopupAnchor::setPopupCreationPolicy(PopupCreationPolicy policy)
{
    if (!assign(d->popupCreationPolicy, policy))
        return;
    if (policy == OnDemandCreation) {
        d->creationPending = d->creationPending && d->popupVisible;
    } else if (!d->popupItem) {
        const QPointer<PopupAnchor> guard(this);
        d->createPopupItem();
        if (guard && d->popupVisible && d->popupItem)
            d->present();
        if (!guard)
            return;
    }
    Q_EMIT popupCreationPolicyChanged();
}

QQuickItem *PopupAnchor::triggerItem() const
{
    return d->triggerItem;
}

void PopupAnchor::setTriggerItem(QQuickItem *item)
{
    if (assign(d->triggerItem, item))
        Q_EMIT triggerItemChanged();
}

QQuickItem *PopupAnchor::rootItem() const
{
    return d->popupItem;
}

void PopupAnchor::show()
{
    setPopupVisible(true);
}

void PopupAnchor::hide()
{
    setPopupVisible(false);
}

void PopupAnchor::componentComplete()
{
    QQuickItem::componentComplete();
    d->resume();
}

void PopupAnchor::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change != ItemSceneChange)
        return;
    if (d->popupLayer)
        d->popupLayer->setParentItem(data.window ? data.window->contentItem() : nullptr);
    if (data.window)
        d->resume();
    else if (d->onStack)
        hide();
}

} // namespace ta::ui
