#include "tooltipagent.h"

#include "foundation/assign.h"
#include "foundation/createobject.h"
#include "foundation/logging.h"
#include "foundation/rounding.h"
#include "ipopup.h"
#include "popupstack.h"
#include "scenepoint_p.h"
#include "stacking_p.h"
#include "tooltip.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QHash>
#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

#include <vector>

namespace ta::ui {

namespace {

constexpr int kRestInterval = 500; // ms
constexpr qreal kTooltipZ = 65735; // above popups and dialogs, below menus
const QUrl kDefaultDelegate(QStringLiteral("qrc:/ui/components/UiTooltipDelegate.qml"));

void logErrors(const QQmlComponent *component)
{
    const QList<QQmlError> errors = component->errors();
    for (const QQmlError &error : errors)
        qCCritical(lcUi).noquote() << error.toString();
}

} // namespace

class TooltipAgentPrivate
{
public:
    struct Entry
    {
        Tooltip *tooltip;
        QObject *parent = nullptr; // of the tooltip, when it was looked at last
        QQuickItem *item = nullptr; // the same, where it is one
    };

    explicit TooltipAgentPrivate(TooltipAgent *q) : q(q) {}

    void setVisible(bool visible);
    void releaseItem();
    void provideItem();
    bool isTarget(const QQuickItem *item, const QQuickItem *cover) const;
    QQuickItem *popupUnderPointer() const;
    QVector<QQuickItem *> itemsUnderPointer();
    Tooltip *tooltipUnderPointer();
    void show(const QString &text);

    TooltipAgent *const q;
    QTimer *showTimer = nullptr;
    std::vector<Entry> tooltips; // in any order
    QHash<QObject *, int> indexes; // where they are in there
    int removals = 0; // so many times something was taken away
    QPointF lastMousePos; // in the window, whole pixels
    bool tooltipVisible = false;
    QString tooltipText;
    QPointer<QQmlComponent> tooltipDelegate;
    bool delegateFailed = false; // and has said so
    QPointer<QQuickItem> tooltipItem;
    QMetaObject::Connection itemConnection;
};

TooltipAgent::TooltipAgent(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<TooltipAgentPrivate>(this))
{
    d->showTimer = new QTimer(this);
    d->showTimer->setInterval(kRestInterval);
    d->showTimer->setSingleShot(true);
    connect(d->showTimer, &QTimer::timeout, this, &TooltipAgent::showTooltip);
    if (QCoreApplication *application = QCoreApplication::instance())
        application->installEventFilter(this);
}

TooltipAgent::~TooltipAgent()
{
    if (QCoreApplication *application = QCoreApplication::instance())
        application->removeEventFilter(this);
    d->releaseItem();
}

TooltipAgentAttached *TooltipAgent::qmlAttachedProperties(QObject *object)
{
    return new TooltipAgentAttached(object);
}

bool TooltipAgent::tooltipVisible() const
{
    return d->tooltipVisible;
}

// Always the last step of its caller: a handler may destroy the agent.
void TooltipAgentPrivate::setVisible(bool visible)
{
    if (assign(tooltipVisible, visible))
        Q_EMIT q->tooltipVisibleChanged();
}

QString TooltipAgent::tooltipText() const
{
    return d->tooltipText;
}

QQmlComponent *TooltipAgent::tooltipDelegate() const
{
    return d->tooltipDelegate;
}

void TooltipAgent::setTooltipDelegate(QQmlComponent *component)
{
    if (!assign(d->tooltipDelegate, component))
        return;
    d->delegateFailed = false;
    const QPointer<TooltipAgent> guard(this);
    Q_EMIT tooltipDelegateChanged();
    if (!guard || !d->tooltipItem)
        return;
    d->setVisible(false);
    if (!guard || !d->tooltipItem)
        return;
    d->releaseItem();
    Q_EMIT tooltipItemChanged();
}

QQuickItem *TooltipAgent::tooltipItem() const
{
    return d->tooltipItem;
}

// --- The tooltip item ---------------------------------------------------------------------------

void TooltipAgentPrivate::releaseItem()
{
    if (!tooltipItem)
        return;
    QObject::disconnect(itemConnection);
    // An application that quits before the event loop runs again has the engine destroy it.
    tooltipItem->setParent(qmlEngine(tooltipItem));
    tooltipItem->deleteLater();
    tooltipItem.clear();
}

void TooltipAgent::classBegin()
{
    if (QQmlEngine *engine = qmlEngine(this)) {
        d->tooltipDelegate = new QQmlComponent(engine, kDefaultDelegate, this);
        d->delegateFailed = d->tooltipDelegate->isError();
        logErrors(d->tooltipDelegate);
    }
    QQuickItem::classBegin();
}

// An item that is there already moves along to the window that the agent has moved to.
void TooltipAgentPrivate::provideItem()
{
    if (tooltipItem) {
        tooltipItem->setParentItem(q->window()->contentItem());
        return;
    }
    if (!tooltipDelegate || delegateFailed)
        return;
    delegateFailed = tooltipDelegate->isError();
    if (delegateFailed)
        logErrors(tooltipDelegate);
    if (!tooltipDelegate->isReady()) // it may be the next time
        return;

    const QPointer<TooltipAgent> guard(q);
    const QPointer<QQmlComponent> delegate = tooltipDelegate;
    const auto attach = [this](QObject *object) {
        auto *attached = qobject_cast<TooltipAgentAttached *>(
            qmlAttachedPropertiesObject<TooltipAgent>(object));
        if (attached)
            attached->setAgent(q);
    };
    std::unique_ptr<QObject> object(createObject(delegate, attach, creationContext(delegate, q)));
    if (!guard || delegate != tooltipDelegate)
        return;
    auto *item = qobject_cast<QQuickItem *>(object.get());
    if (!item) {
        delegateFailed = true;
        if (object)
            qCWarning(lcUi, "A tooltip must be an item, not a %s",
                      object->metaObject()->className());
        else
            logErrors(delegate);
        return;
    }
    object.release();
    item->setParent(nullptr);
    item->setParentItem(q->window() ? q->window()->contentItem() : nullptr);
    item->setZ(kTooltipZ);
    tooltipItem = item;
    itemConnection = QObject::connect(item, &QObject::destroyed, q,
                                      &TooltipAgent::tooltipItemChanged);
    Q_EMIT q->tooltipItemChanged();
}

// --- The tooltips -------------------------------------------------------------------------------

void TooltipAgent::addTooltip(Tooltip *tooltip)
{
    if (!tooltip || d->indexes.contains(tooltip))
        return;
    d->indexes.insert(tooltip, int(d->tooltips.size()));
    d->tooltips.push_back({ tooltip });
    connect(tooltip, &QObject::destroyed, this, &TooltipAgent::tooltipDestroyed);
}

void TooltipAgent::removeTooltip(QObject *tooltip)
{
    if (!tooltip)
        return;
    const auto found = d->indexes.find(tooltip);
    if (found != d->indexes.end()) {
        const int index = *found;
        d->indexes.erase(found);
        if (index + 1 < int(d->tooltips.size())) {
            d->tooltips[index] = d->tooltips.back();
            d->indexes[d->tooltips[index].tooltip] = index;
        }
        d->tooltips.pop_back();
        ++d->removals;
    }
    tooltip->disconnect(this);
}

void TooltipAgent::tooltipDestroyed(QObject *tooltip)
{
    removeTooltip(tooltip);
}

// Whether \a item, which contains the point, may show a tooltip there: it does not where it is
// clipped away, or where the open popup that has the pointer, \a cover, lies above it.
bool TooltipAgentPrivate::isTarget(const QQuickItem *item, const QQuickItem *cover) const
{
    if (!item->isVisible() || !item->isEnabled() || item->window() != q->window())
        return false;
    for (const auto *parent = item->parentItem(); parent; parent = parent->parentItem()) {
        if (parent->clip() && !parent->clipRect().contains(parent->mapFromScene(lastMousePos)))
            return false;
    }
    return !cover || cover == item || cover->isAncestorOf(item);
}

// The item of the highest open popup that the pointer is over; null where there is none. That of a
// menu has no size: what one sees of it lies inside.
QQuickItem *TooltipAgentPrivate::popupUnderPointer() const
{
    const QQuickWindow *window = q->window();
    const QPointF scenePosition = lastMousePos;
    const auto popups = PopupStack::m_popups; // an item of a host may change them, see below
    for (auto object = popups.crbegin(); object != popups.crend(); ++object) {
        const auto *popup = qobject_cast<IPopup *>(object->data());
        const QPointer<QQuickItem> item = popup ? popup->rootItem() : nullptr;
        if (!item || item->window() != window)
            continue;
        const QPointF position = item->mapFromScene(scenePosition);
        if (item->contains(position) || (item && item->childAt(position.x(), position.y())))
            return item;
    }
    return nullptr;
}

// Goes through all tooltips and so has to be quick with those that lie elsewhere: the order of what
// is asked for, and how, is a matter of cache lines.
QVector<QQuickItem *> TooltipAgentPrivate::itemsUnderPointer()
{
    const QPointer<TooltipAgent> guard(q);
    const int removalsBefore = removals;
    const QPointer<QQuickItem> cover = popupUnderPointer();
    if (!guard)
        return {};
    ScenePoint point(lastMousePos);
    QVector<QQuickItem *> items;
    for (size_t i = 0; i < tooltips.size(); ++i) {
        Entry &entry = tooltips[i];
        QObject *parent = entry.tooltip->parent();
        if (entry.parent != parent) {
            entry.parent = parent;
            entry.item = qobject_cast<QQuickItem *>(parent);
        }
        QQuickItem *item = entry.item;
        if (!item)
            continue;
        const bool contains = item->contains(point.in(item));
        // What an item contains may be up to a host's code. Where that destroys what is being
        // looked at, nothing is shown this time.
        if (!guard || removals != removalsBefore)
            return {};
        if (contains && isTarget(item, cover) && !tooltips[i].tooltip->text().isEmpty())
            items.append(item);
    }
    return items;
}

Tooltip *TooltipAgentPrivate::tooltipUnderPointer()
{
    const QVector<QQuickItem *> items = itemsUnderPointer();
    if (items.isEmpty())
        return nullptr;
    const QObjectList siblings = topmost(items)->children();
    for (auto it = siblings.rbegin(); it != siblings.rend(); ++it) {
        const int index = indexes.value(*it, -1);
        if (index >= 0 && !tooltips[index].tooltip->text().isEmpty())
            return tooltips[index].tooltip;
    }
    return nullptr;
}

// --- The pointer --------------------------------------------------------------------------------

bool TooltipAgent::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
        if (watched != window())
            return false;
        d->lastMousePos = rounded(static_cast<QMouseEvent *>(event)->localPos());
        d->showTimer->start();
        break;
    case QEvent::MouseButtonPress:
        break;
    case QEvent::Leave: // what rests elsewhere does not rest here
        if (watched == window())
            d->showTimer->stop();
        return false;
    default:
        return false;
    }
    if (!d->tooltipVisible)
        return false;
    // A handler may destroy the receiver, which must not get the event then.
    const QPointer<QObject> receiver(watched);
    d->setVisible(false);
    return !receiver;
}

void TooltipAgent::showTooltip()
{
    QElapsedTimer timer;
    timer.start();
    const QPointer<TooltipAgent> guard(this);
    const Tooltip *tooltip = window() ? d->tooltipUnderPointer() : nullptr;
    if (!guard)
        return;
    if (tooltip && window()) { // a host's item may have taken the agent out of it just now
        d->show(tooltip->text());
        if (!guard)
            return;
    }
    qCDebug(lcUi, "Tooltip search took %lld msecs", timer.elapsed());
}

void TooltipAgentPrivate::show(const QString &text)
{
    const QPointer<TooltipAgent> guard(q);
    provideItem();
    if (!guard || !tooltipItem)
        return;
    tooltipItem->setPosition(lastMousePos);
    if (!guard)
        return;
    if (assign(tooltipText, text))
        Q_EMIT q->tooltipTextChanged();
    if (guard)
        setVisible(true);
}

} // namespace ta::ui
