#include "verticalscrollview_p.h"

#include "foundation/assign.h"
#include "foundation/createobject.h"
#include "foundation/logging.h"

#include <QtCore/QDateTime>
#include <QtCore/QMetaMethod>
#include <QtCore/QtMath>
#include <QtQml/QQmlContext>

#include <cmath>
#include <utility>

namespace ta::ui {

namespace {

constexpr int kAnimationInterval = 10; // ms
constexpr int kAutoScrollInterval = 16; // ms
// How often the geometry may be updated before the application handles events again. Content whose
// size follows from the size it is given may never come to rest.
constexpr int kMostUpdates = 50;
constexpr int kUpdatesToSettle = 5;
constexpr int kMostCorrections = 5;

bool hasProperty(const QObject *object, const char *name)
{
    return object->metaObject()->indexOfProperty(name) >= 0;
}

void connectNotifier(QObject *object, const char *property, QObject *receiver, const char *method,
                     Qt::ConnectionType type = Qt::AutoConnection)
{
    const QMetaObject *meta = object->metaObject();
    const QMetaProperty changing = meta->property(meta->indexOfProperty(property));
    const QMetaObject *receiving = receiver->metaObject();
    if (changing.hasNotifySignal())
        QObject::connect(object, changing.notifySignal(), receiver,
                         receiving->method(receiving->indexOfMethod(method)), type);
}

} // namespace

SharedComponent VerticalScrollViewPrivate::m_sharedScrollBar(
    "qrc:/ui/components/UiVerticalScrollBar.qml");

VerticalScrollViewPrivate::VerticalScrollViewPrivate(VerticalScrollView *q)
    : q(q), viewport(new QQuickItem(q)), autoScrollTimer(new QTimer(q))
{
    autoScrollTimer->setInterval(kAutoScrollInterval);
    QObject::connect(autoScrollTimer, &QTimer::timeout, q, &VerticalScrollView::autoScroll);
}

double VerticalScrollViewPrivate::range() const
{
    const double height = isFlickable ? contentNumber("contentHeight") : contentItem->height();
    return scrollRange(height, q->height());
}

// --- Content ------------------------------------------------------------------------------------

void VerticalScrollViewPrivate::connectContent()
{
    if (isFlickable) {
        // Queued: the flickable updates its visibleArea only after that signal.
        connectNotifier(contentItem, "contentHeight", q, "updateContentHeight()",
                        Qt::QueuedConnection);
        connectNotifier(contentItem, "contentY", q, "scrollPositionChanged()");
        connectNotifier(contentItem, "originY", q, "scrollPositionChanged()");
    } else {
        QObject::connect(contentItem, &QQuickItem::implicitHeightChanged, q,
                         &VerticalScrollView::updateContentHeight);
    }
    QObject::connect(contentItem, &QObject::destroyed, q, &VerticalScrollView::updateContentHeight);
}

// What is shown changes without another target.
void VerticalScrollViewPrivate::showPosition(double position)
{
    if (isFlickable) {
        contentItem->setProperty("contentY", position); // announced by the flickable
        return;
    }
    const QPointer<VerticalScrollView> guard(q);
    contentItem->setY(-position);
    if (guard)
        Q_EMIT q->scrollPositionChanged();
}

// --- Animation ----------------------------------------------------------------------------------

void VerticalScrollViewPrivate::startAnimation(double from)
{
    animationLastTick = QDateTime::currentMSecsSinceEpoch();
    animatedPosition = from;
    animationTimerId = q->startTimer(kAnimationInterval, Qt::CoarseTimer);
}

void VerticalScrollViewPrivate::stopAnimation()
{
    if (isAnimating())
        q->killTimer(std::exchange(animationTimerId, 0));
}

// The state is settled before anything is shown: a handler reads it, and may ask for more.
void VerticalScrollViewPrivate::advanceAnimation()
{
    if (!contentItem) {
        stopAnimation();
        return;
    }
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const ScrollStep step = scrollStep(animatedPosition, scrollPosition, now - animationLastTick);
    animationLastTick = now;
    animatedPosition = step.position;
    if (!step.isLast) {
        showPosition(isFlickable ? std::floor(animatedPosition) : std::ceil(animatedPosition));
        return;
    }
    stopAnimation();
    if (isFlickable && corrections > 0)
        scheduleGeometry();
    showPosition(scrollPosition);
}

// A list knows where it begins and ends only roughly until the rows there have been made. What was
// asked for beyond an end (as Home and End do) is bounded again when the list says that it has
// another size, and in a few frames after the arrival, unless somebody else moves on meanwhile:
// otherwise End would stop above the last row, or below it.
void VerticalScrollViewPrivate::boundTargetAgain()
{
    const bool rests = !isAnimating();
    if (!contentItem || (rests && corrections == 0))
        return;
    if (rests && contentY() != scrollPosition) {
        corrections = 0;
        return;
    }
    const double target = boundedScrollPosition(requestedPosition, originY(), range());
    if (qIsFinite(target))
        scrollPosition = target;
    if (!rests)
        return;
    --corrections;
    if (scrollPosition != contentY())
        startAnimation(contentY());
    else if (corrections > 0)
        scheduleGeometry();
}

// --- Geometry -----------------------------------------------------------------------------------

void VerticalScrollViewPrivate::scheduleGeometry()
{
    if (polishPending || geometryUpdates >= kMostUpdates)
        return;
    polishPending = true;
    q->polish();
}

void VerticalScrollViewPrivate::setHeightRatio(double ratio)
{
    if (assign(heightRatio, ratio))
        Q_EMIT q->heightRatioChanged();
}

void VerticalScrollViewPrivate::setContentWidth()
{
    if (!contentItem)
        return;
    // Content that fits only beside the bar that it does without then stays narrow.
    hasNarrowContent = heightRatio < 1 || (hasNarrowContent && geometryUpdates >= kUpdatesToSettle);
    contentItem->setWidth(scrolledContentWidth(q->width(), hasNarrowContent, scrollBarRoom));
}

void VerticalScrollViewPrivate::updateFlickable()
{
    const QPointer<VerticalScrollView> guard(q);
    contentItem->setHeight(q->height());
    if (!guard)
        return;
    double ratio = 1;
    if (contentItem) {
        if (const auto *area = contentItem->property("visibleArea").value<QObject *>())
            ratio = usableRatio(area->property("heightRatio").toDouble());
    }
    setHeightRatio(ratio);
    if (guard)
        setContentWidth();
    if (guard)
        boundTargetAgain();
}

void VerticalScrollViewPrivate::updatePlainItem()
{
    const QPointer<VerticalScrollView> guard(q);
    if (contentItem)
        contentItem->setHeight(qMax(q->height(), contentItem->implicitHeight()));
    if (!guard)
        return;
    setHeightRatio(contentItem ? visibleRatio(q->height(), contentItem->height()) : 1);
    if (guard)
        setContentWidth();
    if (guard)
        q->setScrollPosition(scrollPosition, false);
}

// --- The scroll bar -----------------------------------------------------------------------------

void VerticalScrollViewPrivate::createScrollBar()
{
    QQmlComponent *component = m_sharedScrollBar.get(scrollBarComponent, q);
    if (!component) // completed by hand, without an engine
        return;
    if (component->isReady()) {
        const auto prepare = [this](QObject *bar) {
            scrollBar = qobject_cast<QQuickItem *>(bar);
            bar->setParent(q);
            scrollBar->setParentItem(q);
            bar->setProperty("scrollView", QVariant::fromValue(q));
        };
        createObject(component, prepare, qmlContext(q));
    }
    if (!scrollBar)
        qCCritical(lcUi, "Cannot create a scroll bar: %s", qPrintable(component->errorString()));
}

// --- The public class ---------------------------------------------------------------------------

VerticalScrollView::VerticalScrollView(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<VerticalScrollViewPrivate>(this))
{
    d->viewport->setClip(true);
    connect(d->viewport, &QQuickItem::clipChanged, this, &VerticalScrollView::clipViewportChanged);
    d->setWindow(window()); // no change is announced while an item is being constructed
}

VerticalScrollView::~VerticalScrollView()
{
    if (d->contentItem)
        QObject::disconnect(d->contentItem, nullptr, this, nullptr);
    delete d->scrollBar; // while what its bindings read is still there
}

QQuickItem *VerticalScrollView::contentItem() const
{
    return d->contentItem;
}

// Handlers may set other content or destroy anything meanwhile.
void VerticalScrollView::setContentItem(QObject *object)
{
    if (!object || object == d->contentItem)
        return;
    auto *item = qobject_cast<QQuickItem *>(object);
    if (!item) {
        qCWarning(lcUi, "Cannot set object of type %s as contentItem",
                  object->metaObject()->className());
        return;
    }
    if (item == this || item == d->viewport || item->isAncestorOf(this)) {
        qCWarning(lcUi, "Cannot set an item as contentItem of a view inside it");
        return;
    }

    const double before = scrollPosition();
    if (d->contentItem)
        QObject::disconnect(d->contentItem, nullptr, this, nullptr);
    d->stopAnimation();
    d->corrections = 0;
    d->contentItem = item;
    d->isFlickable = hasProperty(item, "contentY") && hasProperty(item, "contentHeight")
                     && hasProperty(item, "visibleArea");
    if (!d->isFlickable)
        d->scrollPosition = qMax(0.0, -item->y());

    const QPointer<VerticalScrollView> guard(this);
    const auto isCurrent = [&] { return guard && item == d->contentItem; };
    if (d->isFlickable && hasProperty(item, "interactive"))
        item->setProperty("interactive", false);
    if (isCurrent())
        d->connectContent();
    if (isCurrent())
        item->setParentItem(d->viewport);
    if (!guard)
        return;
    Q_EMIT contentItemChanged();
    if (!guard)
        return;
    d->scheduleGeometry();
    if (isCurrent() && !qFuzzyCompare(before, scrollPosition()))
        Q_EMIT scrollPositionChanged();
}

double VerticalScrollView::heightRatio() const
{
    return d->heightRatio;
}

double VerticalScrollView::scrollPosition() const
{
    if (d->scrollsFlickable())
        return d->contentY();
    return d->isAnimating() ? d->animatedPosition : d->scrollPosition;
}

void VerticalScrollView::setScrollPosition(double position, bool immediate)
{
    if (!d->contentItem || qIsNaN(position))
        return;
    const double target = boundedScrollPosition(position, d->originY(), d->range());
    if (!qIsFinite(target)) // in content that has no end
        return;
    if (d->isFlickable) {
        d->corrections = 0;
        if (immediate) {
            d->stopAnimation();
            d->showPosition(target);
            return;
        }
        d->scrollPosition = target;
        d->requestedPosition = position;
        if (target != position)
            d->corrections = kMostCorrections;
        if (!d->isAnimating())
            d->startAnimation(d->contentY());
        return;
    }

    if (!assign(d->scrollPosition, target))
        return;
    if (immediate) {
        d->stopAnimation();
        d->showPosition(target);
        return;
    }
    if (!d->isAnimating())
        d->startAnimation(-d->contentItem->y());
    Q_EMIT scrollPositionChanged();
}

double VerticalScrollView::normalizedScrollPosition() const
{
    const double range = d->contentItem ? d->range() : 0;
    return range > 0 ? (scrollPosition() - d->originY()) / range : 0;
}

void VerticalScrollView::setNormalizedScrollPosition(double position, bool immediate)
{
    if (d->contentItem)
        setScrollPosition(d->range() * position, immediate);
}

int VerticalScrollView::scrollbarOffset() const
{
    return d->scrollBarRoom.offset;
}

void VerticalScrollView::setScrollbarOffset(int offset)
{
    if (assign(d->scrollBarRoom.offset, offset))
        Q_EMIT scrollbarOffsetChanged();
}

int VerticalScrollView::scrollbarMargin() const
{
    return d->scrollBarRoom.margin;
}

void VerticalScrollView::setScrollbarMargin(int margin)
{
    if (assign(d->scrollBarRoom.margin, margin))
        Q_EMIT scrollbarMarginChanged();
}

bool VerticalScrollView::scrollbarOverlapsContent() const
{
    return d->scrollBarRoom.overlapsContent;
}

void VerticalScrollView::setScrollbarOverlapsContent(bool overlaps)
{
    if (assign(d->scrollBarRoom.overlapsContent, overlaps))
        Q_EMIT scrollbarOverlapsContentChanged();
}

bool VerticalScrollView::clipViewport() const
{
    return d->viewport->clip();
}

void VerticalScrollView::setClipViewport(bool clip)
{
    d->viewport->setClip(clip);
}

void VerticalScrollView::scrollTo(double position, bool immediate)
{
    setNormalizedScrollPosition(position, immediate);
}

void VerticalScrollView::scrollTo(QQuickItem *item, ScrollPosition position, bool immediate)
{
    QQuickItem *content = d->contentItem;
    if (!item || !content || !(item == content || content->isAncestorOf(item))
        || !(content->height() > 0))
        return;
    // A flickable does not move itself but what is in it.
    const double moved = d->isFlickable ? d->contentY() : 0;
    const ItemSpan span { item->mapToItem(content, QPointF()).y() + moved,
                          item->mapToItem(content, QPointF(0, item->height())).y() + moved,
                          item->height() };
    setScrollPosition(scrollTarget(position, scrollPosition(), height(), span), immediate);
}

void VerticalScrollView::ensureVisible(QQuickItem *item)
{
    scrollTo(item, Contain, false);
}

void VerticalScrollView::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == d->animationTimerId)
        d->advanceAnimation();
    else
        QQuickItem::timerEvent(event);
}

void VerticalScrollView::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemSceneChange)
        d->setWindow(data.window);
    QQuickItem::itemChange(change, data);
}

void VerticalScrollView::componentComplete()
{
    d->viewport->setSize(size());
    d->createScrollBar();
    QQuickItem::componentComplete();
}

void VerticalScrollView::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    const QPointer<VerticalScrollView> guard(this);
    d->viewport->setSize(newGeometry.size());
    if (!guard)
        return;
    d->scheduleGeometry();
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
}

void VerticalScrollView::updatePolish()
{
    // Cleared first: setting the width may give the content another height.
    d->polishPending = false;
    if (++d->geometryUpdates == 1)
        QMetaObject::invokeMethod(
            this, [this] { d->geometryUpdates = 0; }, Qt::QueuedConnection);
    if (d->scrollsFlickable())
        d->updateFlickable();
    else
        d->updatePlainItem();
}

void VerticalScrollView::updateContentHeight()
{
    d->scheduleGeometry();
}

} // namespace ta::ui
