#pragma once

#include "foundation/sharedcomponent.h"
#include "scrollposition_p.h"
#include "verticalscrollview.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtQuick/QQuickWindow>

namespace ta::ui {

class VerticalScrollViewPrivate
{
public:
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
    void boundTargetAgain();

    void scheduleGeometry();
    void updateFlickable();
    void updatePlainItem();
    void setHeightRatio(double ratio);
    void setContentWidth();

    void drag(const QPointF &scenePosition);
    bool mayAutoScroll() const;
    void tellBeforeDrop(QObject *window, const QDropEvent *event);

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
    double autoScrollSpeed = 0; // kept while the timer is stopped, until the next drag
    double positionAtDragMove = 0; // shown when the window told of a drag last
    bool isFlickable = false;
    bool dragAutoScroll = true;
    bool polishPending = false;
    int animationTimerId = 0;
    qint64 animationLastTick = 0;
    double animatedPosition = 0;

    double requestedPosition = 0; // in a flickable, before it was bounded
    int corrections = 0; // of a target that was bounded, still allowed after arriving there
    int geometryUpdates = 0; // since the application handled events
    bool hasNarrowContent = false; // as beside a scroll bar
    QPointer<QQuickItem> scrollBar;
    ComponentReference scrollBarComponent;
    QPointer<QQuickWindow> filteredWindow;
};

} // namespace ta::ui
