#include "verticalscrollview.h"

#include "foundation/assign.h"
#include "foundation/createobject.h"
#include "foundation/logging.h"
#include "foundation/positions.h"
#include "foundation/sharedcomponent.h"
#include "popups/ipopup.h"
#include "popups/popupstack.h"
#include "scrollposition_p.h"

#include <QtCore/QDateTime>
#include <QtCore/QMetaMethod>
#include <QtCore/QTimer>
#include <QtCore/QtMath>
#include <QtQml/QQmlContext>

#include <cmath>
#include <utility>

namespace ta::ui {

namespace {

constexpr int kAnimationInterval = 10; // ms
constexpr int kAutoScrollInterval = 16; // ms
constexpr int kSettlingTime = 100; // ms
// Positions beyond either end of any content.
constexpr double kTop = -2147483647.0;
constexpr double kBottom = 4294967295.0;
// How often the geometry may be updated before the application handles events again. Content whose
// size follows from the size it is given may never come to rest.
constexpr int kMostUpdates = 50;
constexpr int kUpdatesToSettle = 5;

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

class VerticalScrollViewPrivate
{
public:
    // Where an animation of a flickable goes. A list knows its ends only roughly until it gets
    // there, and so a target at an end moves with that end.
    enum class Aim { Place, Top, Bottom };

    explicit VerticalScrollViewPrivate(VerticalScrollView *q);

    bool scrollsFlickable() const { return contentItem && isFlickable; }
    double contentNumber(const char *property) const
    {
        return contentItem->property(property).toDouble();
    }
    double contentY() const { return contentNumber("contentY"); }
    double originY() const { return scrollsFlickable() ? contentNumber("originY") : 0; }
    double range() const;
    bool isAnimating() const { return animationTimerId != 0; }

    void connectContent();
    void showPosition(double position);
    void startAnimation(double from);
    void stopAnimation();
    void advanceAnimation();
    void takeAim();
    void aimAgain();

    void scheduleGeometry();
    void updateFlickable();
    void updatePlainItem();
    void setHeightRatio(double ratio);
    void setContentWidth();

    void drag(const QPointF &scenePosition);
    bool mayAutoScroll() const;
    void stopAutoScroll();

    void setWindow(QQuickWindow *window);

    void createScrollBar();

    // Compiled when the first view of an engine is completed, gone with the last one.
    static SharedComponent m_sharedScrollBar;

    VerticalScrollView *const q;
    QPointer<QQuickItem> contentItem;
    QQuickItem *const viewport; // a child of the view
    double scrollPosition = 0; // the target, and for plain content at rest what is shown
    double heightRatio = 1;
    ScrollBarRoom scrollBarRoom;
    QTimer *const autoScrollTimer; // a child of the view
    double autoScrollSpeed = 0; // 0 while the timer is stopped
    bool isFlickable = false;
    bool dragAutoScroll = true;
    bool polishPending = false;
    int animationTimerId = 0;
    qint64 animationLastTick = 0;
    double animatedPosition = 0;

    Aim aim = Aim::Place;
    qint64 arrival = 0; // when an animation first reached its target, 0 before
    int geometryUpdates = 0; // since the application handled events
    bool hasNarrowContent = false; // as beside a scroll bar
    QPointer<QQuickItem> scrollBar;
    ComponentReference scrollBarComponent;
    QPointer<QQuickWindow> filteredWindow;
};

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
    arrival = 0;
    animationTimerId = q->startTimer(kAnimationInterval, Qt::CoarseTimer);
}

void VerticalScrollViewPrivate::stopAnimation()
{
    if (isAnimating())
        q->killTimer(std::exchange(animationTimerId, 0));
}

void VerticalScrollViewPrivate::takeAim()
{
    const double origin = originY();
    if (scrollPosition <= origin)
        aim = Aim::Top;
    else
        aim = scrollPosition >= origin + range() ? Aim::Bottom : Aim::Place;
}

void VerticalScrollViewPrivate::aimAgain()
{
    const double origin = originY();
    double target = scrollPosition;
    if (aim == Aim::Top)
        target = origin;
    else if (aim == Aim::Bottom)
        target = origin + range();
    target = boundedScrollPosition(target, origin, range());
    if (qIsFinite(target))
        scrollPosition = target;
}

// The state is settled before anything is shown: a handler reads it, and may ask for more.
void VerticalScrollViewPrivate::advanceAnimation()
{
    // At the end of a flickable the animation waits for what the rows that have come into view mean
    // for that end, unless somebody else moves on meanwhile.
    if (!contentItem || (arrival != 0 && contentY() != scrollPosition)) {
        stopAnimation();
        return;
    }
    if (isFlickable)
        aimAgain();
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const ScrollStep step = scrollStep(animatedPosition, scrollPosition, now - animationLastTick);
    animationLastTick = now;
    animatedPosition = step.position;
    if (!step.isLast) {
        arrival = 0;
        showPosition(isFlickable ? std::floor(animatedPosition) : std::ceil(animatedPosition));
        return;
    }
    if (arrival == 0)
        arrival = now;
    if (!isFlickable || aim == Aim::Place || qAbs(now - arrival) >= kSettlingTime)
        stopAnimation();
    showPosition(scrollPosition);
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
        stopAutoScroll();
        return;
    }
    autoScrollSpeed = speed;
    if (!autoScrollTimer->isActive())
        autoScrollTimer->start();
}

// The next time begins slowly again.
void VerticalScrollViewPrivate::stopAutoScroll()
{
    autoScrollTimer->stop();
    autoScrollSpeed = 0;
}

// The window's drags pass through the view.
void VerticalScrollViewPrivate::setWindow(QQuickWindow *window)
{
    stopAutoScroll();
    if (filteredWindow)
        filteredWindow->removeEventFilter(q);
    filteredWindow = window;
    if (window)
        window->installEventFilter(q);
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
        if (immediate) {
            d->stopAnimation();
            d->showPosition(target);
            return;
        }
        d->scrollPosition = target;
        d->takeAim();
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
        setScrollPosition(d->originY() + d->range() * position, immediate);
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

bool VerticalScrollView::dragAutoScroll() const
{
    return d->dragAutoScroll;
}

void VerticalScrollView::setDragAutoScroll(bool enabled)
{
    if (!assign(d->dragAutoScroll, enabled))
        return;
    if (!enabled)
        d->stopAutoScroll();
    Q_EMIT dragAutoScrollChanged();
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

// Installed on the window that the view is in; consumes nothing.
bool VerticalScrollView::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragMove:
        d->drag(static_cast<QDragMoveEvent *>(event)->posF());
        break;
    case QEvent::DragLeave:
    case QEvent::Drop:
        d->stopAutoScroll();
        break;
    default:
        break;
    }
    return QQuickItem::eventFilter(watched, event);
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

void VerticalScrollView::autoScroll()
{
    const QPointer<VerticalScrollView> guard(this);
    setScrollPosition(scrollPosition() + d->autoScrollSpeed);
    if (guard)
        d->autoScrollSpeed = acceleratedScrollSpeed(d->autoScrollSpeed);
}

} // namespace ta::ui
