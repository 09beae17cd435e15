#pragma once

#include "../foundation/export.h"

#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class VerticalScrollViewPrivate;

/*!
    A view that scrolls one item vertically, smoothly and by the clock.

    The wheel, Home, End, Page Up, Page Down, the scroll bar and what the host asks for move the
    content; something that is dragged near the upper or lower edge makes the view scroll by itself,
    faster and faster. The bar appears where the content is higher than the view.

    An item that has the properties \c contentY, \c contentHeight and \c visibleArea, such as a
    \c ListView, is scrolled through its \c contentY, and its own flicking is turned off. It gets
    the width and height of the view. Any other item is moved by its \c y; it gets the width of the
    view and its own implicit height, or the height of the view where that is greater.

    A child that is declared inside the view becomes its content:
    \code UiVerticalScrollView { width: 300; height: 200; Column { ... } } \endcode
    Positions are in pixels from the top of the content, unless they are said to be normalised.

    QML: \c UiVerticalScrollView. The scroll bar is written in QML that imports "tamber.Ui" 1.0;
    where it cannot be created, a critical message says why and the view scrolls without it.
*/
class TAMBERUI_EXPORT VerticalScrollView : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(
        QQuickItem *contentItem READ contentItem WRITE setContentItem NOTIFY contentItemChanged)
    Q_PROPERTY(double heightRatio READ heightRatio NOTIFY heightRatioChanged)
    Q_PROPERTY(double scrollPosition READ scrollPosition WRITE setScrollPosition NOTIFY
                   scrollPositionChanged)
    Q_PROPERTY(double normalizedScrollPosition READ normalizedScrollPosition WRITE
                   setNormalizedScrollPosition NOTIFY scrollPositionChanged)
    Q_PROPERTY(int scrollbarOffset READ scrollbarOffset WRITE setScrollbarOffset NOTIFY
                   scrollbarOffsetChanged)
    Q_PROPERTY(int scrollbarMargin READ scrollbarMargin WRITE setScrollbarMargin NOTIFY
                   scrollbarMarginChanged)
    Q_PROPERTY(bool scrollbarOverlapsContent READ scrollbarOverlapsContent WRITE
                   setScrollbarOverlapsContent NOTIFY scrollbarOverlapsContentChanged)
    Q_PROPERTY(bool clipViewport READ clipViewport WRITE setClipViewport NOTIFY clipViewportChanged)
    Q_PROPERTY(bool dragAutoScroll READ dragAutoScroll WRITE setDragAutoScroll NOTIFY
                   dragAutoScrollChanged)
    Q_CLASSINFO("DefaultProperty", "contentItem")

public:
    /// Where scrollTo() brings an item: \c Contain moves as little as is needed to see it whole.
    enum ScrollPosition : int { Contain = 0, Top = 1, Center = 2, Bottom = 3 };
    Q_ENUM(ScrollPosition)

    explicit VerticalScrollView(QQuickItem *parent = nullptr);
    ~VerticalScrollView() override;

    /// The item that is scrolled, not owned; null once it is destroyed. It becomes a child item of
    /// the view's clipping viewport, and the one before it stays there. A plain item that comes
    /// with a negative \c y is scrolled that far already. Null is ignored; an object that is no
    /// item, and an item that the view is inside of, are refused with a warning.
    QQuickItem *contentItem() const;
    void setContentItem(QObject *object);

    /// The visible part of the content, 0 to 1; 1 where all of it is visible, and without content.
    /// Brought up to date before each frame.
    double heightRatio() const;

    /// What is shown at the upper edge: for plain content 0 at the top. During an animation where
    /// it is by now, while what is set is where it goes. Setting it starts an animation or gives
    /// the running one another target, unless it is \a immediate. Out of range stands for the
    /// nearer end; NaN is ignored, and so is everything while there is no content.
    double scrollPosition() const;
    void setScrollPosition(double position, bool immediate = false);

    /// The same as a part of the way, 0 at the top to 1 at the bottom. 0 while nothing can be
    /// scrolled. Reading counts from where the content begins, setting from position 0. The two
    /// differ in a flickable whose \c originY is not 0, such as a list with a header: there, set
    /// scrollPosition.
    double normalizedScrollPosition() const;
    void setNormalizedScrollPosition(double position, bool immediate = false);

    // These three count from the next time that the view or its content changes its size.

    /// Pixels between the scroll bar and the right edge of the view. 0 by default.
    int scrollbarOffset() const;
    void setScrollbarOffset(int offset);

    /// Pixels between the content and the scroll bar. 5 by default.
    int scrollbarMargin() const;
    void setScrollbarMargin(int margin);

    /// Whether the content extends below the scroll bar. False by default.
    bool scrollbarOverlapsContent() const;
    void setScrollbarOverlapsContent(bool overlaps);

    /// Whether content outside of the view is cut off. True by default.
    bool clipViewport() const;
    void setClipViewport(bool clip);

    /// Whether the view scrolls by itself while something is dragged within 80 pixels of its upper
    /// or lower edge. True by default. A popup on top may forbid it to the views behind it.
    bool dragAutoScroll() const;
    void setDragAutoScroll(bool enabled);

public Q_SLOTS:
    /// Sets normalizedScrollPosition.
    void scrollTo(double position, bool immediate = false);
    /// Scrolls to \a item, which lies anywhere inside the content; any other one is ignored.
    void scrollTo(QQuickItem *item, ta::ui::VerticalScrollView::ScrollPosition position = Contain,
                  bool immediate = false);
    /// Scrolls as little as is needed to see \a item whole.
    void ensureVisible(QQuickItem *item);

Q_SIGNALS:
    void contentItemChanged();
    void heightRatioChanged();
    void scrollPositionChanged();
    void scrollbarOffsetChanged();
    void scrollbarMarginChanged();
    void scrollbarOverlapsContentChanged();
    void clipViewportChanged();
    void dragAutoScrollChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void componentComplete() override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void updatePolish() override;

private Q_SLOTS:
    void updateContentHeight();
    void autoScroll();

private:
    friend class VerticalScrollViewPrivate;
    const std::unique_ptr<VerticalScrollViewPrivate> d;
};

} // namespace ta::ui
