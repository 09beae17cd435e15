#include "popupbackground.h"

#include <QtGui/QCursor>

namespace ta::ui {

namespace {

// Positioners and layouts make room for a child that has a size; one that follows theirs would grow
// with them without end.
bool arrangesChildren(const QQuickItem *item)
{
    return item->inherits("QQuickBasePositioner") || item->inherits("QQuickLayout");
}

} // namespace

PopupBackground::PopupBackground(QQuickItem *parent) : QQuickItem(parent)
{
    Q_ASSERT(parent);

    // No ancestor or filter may take over an interaction that began here.
    setKeepMouseGrab(true);
    setKeepTouchGrab(true);

    setZ(-100);
    if (!arrangesChildren(parent)) {
        setSize(parent->size());
        connect(parent, &QQuickItem::widthChanged, this, &PopupBackground::updateWidth);
        connect(parent, &QQuickItem::heightChanged, this, &PopupBackground::updateHeight);
    }

    setAcceptHoverEvents(true);
    setAcceptTouchEvents(true);
    setAcceptedMouseButtons(Qt::AllButtons);
    setCursor(Qt::ArrowCursor); // the shapes of items below must not show through
}

PopupBackground::~PopupBackground() = default;

bool PopupBackground::contains(const QPointF &point) const
{
    const QQuickItem *popup = parentItem();
    return popup && QRectF(QPointF(), popup->size()).contains(mapToItem(popup, point));
}

void PopupBackground::updateWidth()
{
    if (const QQuickItem *popup = parentItem())
        setWidth(popup->width());
}

void PopupBackground::updateHeight()
{
    if (const QQuickItem *popup = parentItem())
        setHeight(popup->height());
}

void PopupBackground::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    if (QQuickItem *popup = parentItem())
        popup->forceActiveFocus();
}

void PopupBackground::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
}

void PopupBackground::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
}

void PopupBackground::wheelEvent(QWheelEvent *event)
{
    event->accept();
}

void PopupBackground::touchEvent(QTouchEvent *event)
{
    event->accept();
}

void PopupBackground::hoverEnterEvent(QHoverEvent *event)
{
    event->accept();
}

void PopupBackground::hoverMoveEvent(QHoverEvent *event)
{
    event->accept();
}

void PopupBackground::hoverLeaveEvent(QHoverEvent *event)
{
    event->accept();
}

} // namespace ta::ui
