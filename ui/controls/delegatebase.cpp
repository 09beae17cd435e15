#include "delegatebase.h"

#include "pointerstate_p.h"

#include "foundation/mousegrab.h"

#include <QtQuick/QSGFlatColorMaterial>
#include <QtQuick/QSGGeometryNode>

namespace ta::ui {

class DelegateBasePrivate : public PointerState<DelegateBase>
{
public:
    enum DirtyFlag { DirtyGeometry = 1, DirtyColor = 2, DirtyAll = 0xFF };

    using PointerState::PointerState;

    void markDirty(int bits)
    {
        dirty |= bits;
        q->update();
    }

    bool active = false;
    bool defocused = false;
    int dirty = DirtyAll;
    QColor color = QColor(255, 255, 255, 0);
};

namespace {

// Lives on the render thread. Materials of one colour compare equal, so backgrounds that look alike
// go into one draw call.
class BackgroundNode : public QSGGeometryNode
{
public:
    BackgroundNode()
    {
        auto *rectangle = new QSGGeometry(QSGGeometry::defaultAttributes_Point2D(), 4);
        rectangle->setDrawingMode(QSGGeometry::DrawTriangleStrip);
        setGeometry(rectangle);
        setMaterial(new QSGFlatColorMaterial);
        setFlags(OwnsGeometry | OwnsMaterial);
    }

    void setSize(const QSizeF &size)
    {
        const auto width = float(size.width());
        const auto height = float(size.height());
        QSGGeometry::Point2D *vertices = geometry()->vertexDataAsPoint2D();
        vertices[0].set(0, 0);
        vertices[1].set(width, 0);
        vertices[2].set(0, height);
        vertices[3].set(width, height);
        markDirty(DirtyGeometry);
    }

    void setColor(const QColor &color)
    {
        static_cast<QSGFlatColorMaterial *>(material())->setColor(color);
        markDirty(DirtyMaterial);
    }
};

} // namespace

DelegateBase::DelegateBase(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<DelegateBasePrivate>(this))
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
    setFlag(ItemHasContents);
}

DelegateBase::~DelegateBase() = default;

bool DelegateBase::isHovered() const
{
    return d->hovered;
}

bool DelegateBase::isPressed() const
{
    return d->pressed;
}

bool DelegateBase::isActive() const
{
    return d->active;
}

void DelegateBase::setActive(bool active)
{
    if (assign(d->active, active))
        Q_EMIT activeChanged();
}

bool DelegateBase::isDefocused() const
{
    return d->defocused;
}

void DelegateBase::setDefocused(bool defocused)
{
    if (assign(d->defocused, defocused))
        Q_EMIT defocusedChanged();
}

QColor DelegateBase::color() const
{
    return d->color;
}

void DelegateBase::setColor(const QColor &color)
{
    if (!assign(d->color, color))
        return;
    d->markDirty(DelegateBasePrivate::DirtyColor);
    Q_EMIT colorChanged();
}

void DelegateBase::mousePressEvent(QMouseEvent *event)
{
    const QPointer<DelegateBase> guard(this);
    d->setPressed(true);
    event->accept(); // and so grab the mouse
    if (guard)
        Q_EMIT pressed(event->modifiers());
}

void DelegateBase::mouseMoveEvent(QMouseEvent *event)
{
    const bool inside = contains(event->localPos());
    d->setHoveredAndPressed(inside, inside);
    event->accept();
}

void DelegateBase::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<DelegateBase> guard(this);
    event->accept();
    d->setPressed(false);
    const bool inside = guard && contains(event->localPos());
    if (guard)
        d->setHovered(inside);
    if (guard && inside)
        Q_EMIT clicked(event->localPos(), event->modifiers());
}

void DelegateBase::mouseDoubleClickEvent(QMouseEvent *event)
{
    Q_EMIT doubleClicked(event->localPos(), event->modifiers());
}

// The end of every grab: where a release came before, there is nothing left to do.
void DelegateBase::mouseUngrabEvent()
{
    if (d->pressed)
        d->setHoveredAndPressed(false, false);
}

void DelegateBase::hoverEnterEvent(QHoverEvent *event)
{
    d->setHovered(true);
    event->accept();
}

void DelegateBase::hoverLeaveEvent(QHoverEvent *event)
{
    d->setHovered(false);
    event->accept();
}

void DelegateBase::releaseResources()
{
    endMouseGrab(this);
}

// An item that merely moves looks as before.
void DelegateBase::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    if (newGeometry.size() != oldGeometry.size())
        d->markDirty(DelegateBasePrivate::DirtyGeometry);
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
}

// Runs on the render thread while the GUI thread waits, so the private state needs no lock.
QSGNode *DelegateBase::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<BackgroundNode *>(oldNode);
    if (!node) {
        node = new BackgroundNode;
        d->dirty = DelegateBasePrivate::DirtyAll; // a fresh node carries nothing yet
    }
    if (d->dirty & DelegateBasePrivate::DirtyGeometry)
        node->setSize(size());
    if (d->dirty & DelegateBasePrivate::DirtyColor)
        node->setColor(d->color);
    d->dirty = 0;
    return node;
}

} // namespace ta::ui
