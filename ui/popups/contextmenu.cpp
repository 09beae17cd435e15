#include "contextmenu_p.h"

#include "destroylater_p.h"
#include "popupstack.h"

#include "foundation/assign.h"
#include "foundation/createobject.h"
#include "foundation/logging.h"
#include "foundation/positions.h"

#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <algorithm>

namespace ta::ui {

SharedComponent ContextMenuPrivate::m_sharedItemComponent(
    "qrc:/ui/components/UiContextMenuItem.qml");

namespace {

constexpr qreal kMenuZ = 4294967295; // above all popups, dialogs and tooltips

using ItemList = QQmlListProperty<AbstractMenuItem>;

ContextMenuPrivate *menuOf(ItemList *list)
{
    return static_cast<ContextMenuPrivate *>(list->data);
}

void _ta_appendItem(ItemList *list, AbstractMenuItem *item)
{
    menuOf(list)->q->addItem(item);
}

int _ta_itemCount(ItemList *list)
{
    return menuOf(list)->items.count();
}

AbstractMenuItem *_ta_itemAt(ItemList *list, int index)
{
    return objectAt(menuOf(list)->items, index);
}

void _ta_clearItems(ItemList *list)
{
    if (clearObjects(menuOf(list)->items))
        menuOf(list)->tellItemsChanged();
}

int rankedCount(ItemList *list)
{
    return menuOf(list)->rankedCache.count();
}

AbstractMenuItem *rankedAt(ItemList *list, int index)
{
    return objectAt(menuOf(list)->rankedCache, index);
}

// A destroyed entry has no rank, and nobody sees where it stands.
bool _ta_itemLessThan(const AbstractMenuItem *a, const AbstractMenuItem *b)
{
    const QList<int> left = a ? a->rank() : QList<int>();
    const QList<int> right = b ? b->rank() : QList<int>();
    for (int i = 0; i < qMax(left.count(), right.count()); ++i) {
        if (left.value(i) != right.value(i))
            return left.value(i) < right.value(i);
    }
    return false;
}

bool holdsMouse(const QQuickItem *item)
{
    const QQuickItem *grabber = item->window() ? item->window()->mouseGrabberItem() : nullptr;
    return grabber && (grabber == item || item->isAncestorOf(grabber));
}

} // namespace

// --- The entries --------------------------------------------------------------------------------

void ContextMenuPrivate::tellItemsChanged()
{
    rankedCache.clear();
    Q_EMIT q->itemsChanged();
}

void ContextMenuPrivate::rankItems()
{
    if (rankedCache.count() == items.count())
        return;
    // The host may emit the signal, too, to have ranks that changed counted.
    QObject::connect(q, &ContextMenu::itemsChanged, q, &ContextMenu::forgetRanks,
                     Qt::UniqueConnection);
    rankedCache = items;
    std::stable_sort(rankedCache.begin(), rankedCache.end(), _ta_itemLessThan);
}

bool ContextMenuPrivate::hasVisibleItems() const
{
    return std::any_of(items.begin(), items.end(),
                       [](const auto &item) { return item && item->isVisible(); });
}

// --- The target ---------------------------------------------------------------------------------

void ContextMenuPrivate::setTarget(QQuickItem *item)
{
    if (target) {
        target->removeEventFilter(q);
        target->setAcceptedMouseButtons(savedAcceptedButtons);
    }
    target = item;
    if (target) {
        savedAcceptedButtons = target->acceptedMouseButtons();
        target->setAcceptedMouseButtons(savedAcceptedButtons | Qt::RightButton);
        target->installEventFilter(q);
    }
}

void ContextMenuPrivate::parentAsTarget()
{
    if (auto *item = qobject_cast<QQuickItem *>(q->parent()))
        setTarget(item);
}

// --- Opening and closing ------------------------------------------------------------------------

// Returns whether the menu has opened. What a handler on the way asked for last holds.
bool ContextMenuPrivate::open(const QPointF &screenPosition)
{
    const QPointer<ContextMenu> guard(q);
    q->close();
    if (!guard)
        return false;
    if (menuItem) // a handler of closed() has opened it
        return true;
    if (!target)
        return false;
    if (!target->window()) {
        qCWarning(lcUi, "A context menu cannot open while its target is in no window");
        return false;
    }

    const QPointer<QQuickItem> item = createMenuItem(
        windowPosition(target->window(), screenPosition));
    if (!guard || !item)
        return false;
    if (menuItem) { // opened while the items were made
        item->deleteLater();
        return true;
    }
    QQmlEngine::setObjectOwnership(item, QQmlEngine::JavaScriptOwnership); // it destroys itself
    menuItem = item;
    ++openings;
    itemConnection = QObject::connect(item, &QObject::destroyed, q, [this] { leave(); });
    windowConnection = QObject::connect(item->window(), &QWindow::visibleChanged, q,
                                        [this](bool visible) {
                                            if (!visible)
                                                q->close();
                                        });
    if (assign(menuVisible, true))
        Q_EMIT q->menuVisibleChanged();
    if (!guard || !item || item != menuItem)
        return true;

    if (onStack) // opened by a handler of the signals that tell that it closes
        PopupStack::pop(q);
    onStack = true;
    PopupStack::push(q);
    return true;
}

QPointer<QQuickItem> ContextMenuPrivate::createMenuItem(const QPoint &position)
{
    QQmlComponent *component = m_sharedItemComponent.get(itemComponent, q);
    if (!component) {
        qCWarning(lcUi, "A context menu cannot open without a QML engine");
        return nullptr;
    }
    const auto errors = component->errors();
    for (const QQmlError &error : errors)
        qCCritical(lcUi, "%s", qPrintable(error.toString()));
    if (component->isError())
        return nullptr;

    const QPointer<ContextMenu> guard(q);
    const ComponentReference reference = itemComponent; // also where a delegate destroys the menu
    const auto prepare = [&](QObject *created) {
        auto *item = qobject_cast<QQuickItem *>(created);
        if (!item)
            return;
        item->setParent(q);
        item->setParentItem(target->window()->contentItem());
        item->setPosition(position);
        item->setZ(kMenuZ);
        item->setProperty("contextMenu", QVariant::fromValue(q));
        item->setProperty("_ta_isPopup", true);
    };
    itemLevel = loopLevel();
    ++creations;
    const QPointer<QObject> created = createObject(component, prepare, qmlContext(q));
    if (guard)
        --creations;
    return qobject_cast<QQuickItem *>(created);
}

void ContextMenu::close()
{
    if (!d->menuItem)
        return;
    const QPointer<ContextMenu> guard(this);
    QMetaObject::invokeMethod(d->menuItem, "discard");
    if (guard)
        d->leave();
}

// The menu item fades out by itself, or is gone; for the menu it is no more.
void ContextMenuPrivate::leave()
{
    const QPointer<ContextMenu> guard(q);
    const int opening = openings;
    QObject::disconnect(itemConnection);
    QObject::disconnect(windowConnection);
    menuItem.clear();
    if (assign(menuVisible, false)) {
        Q_EMIT q->menuVisibleChanged();
        if (!guard)
            return;
        Q_EMIT q->closed();
        if (!guard)
            return;
    }
    if (onStack && opening == openings) {
        onStack = false;
        PopupStack::pop(q);
    }
}

// --- The public class ---------------------------------------------------------------------------

ContextMenu::ContextMenu(QObject *parent)
    : QObject(parent), d(std::make_unique<ContextMenuPrivate>(this))
{
}

ContextMenu::~ContextMenu()
{
    if (d->onStack)
        PopupStack::pop(this);
    // A handler of triggered() may destroy the menu, and so may a delegate. The item that is taking
    // the click, or is being made, cannot go at once then, as the others do.
    const QObjectList owned = children();
    for (QObject *child : owned) {
        auto *item = qobject_cast<QQuickItem *>(child);
        if (!item || (!d->creations && !holdsMouse(item) && item->property("clicks").toInt() == 0))
            continue;
        // An application that quits before the event loop runs again has the engine destroy it.
        item->setParent(qmlEngine(item));
        item->setClip(true); // it has no size
        destroyLater(item, d->itemLevel, 0);
    }
}

ItemList ContextMenu::items()
{
    return ItemList(this, d.get(), _ta_appendItem, _ta_itemCount, _ta_itemAt, _ta_clearItems);
}

ItemList ContextMenu::rankedItems()
{
    d->rankItems();
    return ItemList(this, d.get(), rankedCount, rankedAt);
}

bool ContextMenu::isMenuVisible() const
{
    return d->menuVisible;
}

ContextMenu::ItemStyle ContextMenu::itemStyle() const
{
    return d->itemStyle;
}

void ContextMenu::setItemStyle(ItemStyle style)
{
    if (assign(d->itemStyle, style))
        Q_EMIT itemStyleChanged();
}

bool ContextMenu::isEnabled() const
{
    return d->enabled;
}

void ContextMenu::setEnabled(bool enabled)
{
    if (!assign(d->enabled, enabled))
        return;
    const QPointer<ContextMenu> guard(this);
    Q_EMIT enabledChanged();
    if (!guard)
        return;
    if (d->enabled)
        d->parentAsTarget();
    else
        d->setTarget(nullptr);
}

void ContextMenu::addItem(AbstractMenuItem *item)
{
    d->items.append(item);
    d->tellItemsChanged();
}

void ContextMenu::removeItem(AbstractMenuItem *item)
{
    d->items.removeOne(item);
    d->tellItemsChanged();
}

void ContextMenu::showAt(QQuickItem *item, QPointF pos)
{
    if (!item || !d->target)
        return;
    const QPointer<ContextMenu> guard(this);
    const QPointer<QQuickItem> place(item);
    Q_EMIT contextMenuRequested(item->mapToItem(d->target, pos), item);
    if (guard && place && d->hasVisibleItems())
        d->open(place->mapToGlobal(pos));
}

QQuickItem *ContextMenu::rootItem() const
{
    return d->menuItem;
}

bool ContextMenu::preventAutoScroll() const
{
    return true;
}

void ContextMenu::forgetRanks()
{
    d->rankedCache.clear();
}

void ContextMenu::classBegin() {}

void ContextMenu::componentComplete()
{
    if (d->enabled && !d->target)
        d->parentAsTarget();
}

} // namespace ta::ui
