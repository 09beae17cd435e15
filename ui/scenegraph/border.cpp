#include "border.h"

#include "bordernode_p.h"
#include "foundation/assign.h"

namespace ta::ui {

class BorderPrivate
{
public:
    enum DirtyFlag {
        DirtyGeometry = 1,
        DirtyMaterial = 2,
        DirtyNode = 4, // it is of another style's kind
        DirtyAll = 0xFF,
    };

    explicit BorderPrivate(Border *q) : q(q) {}

    void markDirty(int bits)
    {
        dirty |= bits;
        q->update();
    }

    std::unique_ptr<BorderNode> createNode() const;

    Border *const q;
    int dirty = DirtyAll;
    QColor color = Qt::black;
    int borderWidth = 2;
    int dashWidth = 8;
    int gapWidth = 4;
    Border::BorderStyle style = Border::Dashed;
};

std::unique_ptr<BorderNode> BorderPrivate::createNode() const
{
    switch (style) {
    case Border::Solid:
        return std::make_unique<SolidBorderNode>();
    case Border::Dashed:
        return std::make_unique<DashedBorderNode>();
    }
    return nullptr;
}

Border::Border(QQuickItem *parent) : QQuickItem(parent), d(std::make_unique<BorderPrivate>(this))
{
    setFlag(ItemHasContents);
}

Border::~Border() = default;

QColor Border::color() const
{
    return d->color;
}

void Border::setColor(const QColor &color)
{
    if (!assign(d->color, color))
        return;
    d->markDirty(BorderPrivate::DirtyMaterial);
    Q_EMIT colorChanged();
}

int Border::borderWidth() const
{
    return d->borderWidth;
}

void Border::setBorderWidth(int width)
{
    if (!assign(d->borderWidth, qMax(1, width)))
        return;
    d->markDirty(BorderPrivate::DirtyGeometry | BorderPrivate::DirtyMaterial);
    Q_EMIT borderWidthChanged();
}

int Border::dashWidth() const
{
    return d->dashWidth;
}

void Border::setDashWidth(int width)
{
    if (!assign(d->dashWidth, qMax(1, width)))
        return;
    d->markDirty(BorderPrivate::DirtyMaterial);
    Q_EMIT dashWidthChanged();
}

int Border::gapWidth() const
{
    return d->gapWidth;
}

void Border::setGapWidth(int width)
{
    if (!assign(d->gapWidth, qMax(1, width)))
        return;
    d->markDirty(BorderPrivate::DirtyMaterial);
    Q_EMIT gapWidthChanged();
}

Border::BorderStyle Border::style() const
{
    return d->style;
}

void Border::setStyle(BorderStyle style)
{
    if (!assign(d->style, style))
        return;
    d->markDirty(BorderPrivate::DirtyNode | BorderPrivate::DirtyGeometry
                 | BorderPrivate::DirtyMaterial);
    Q_EMIT styleChanged();
}

void Border::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    d->markDirty(BorderPrivate::DirtyGeometry);
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
}

// Runs on the render thread while the GUI thread waits, so the private state needs no lock.
QSGNode *Border::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    if (!oldNode)
        d->dirty = BorderPrivate::DirtyAll; // a fresh node carries nothing yet

    std::unique_ptr<QSGNode> old(oldNode);
    std::unique_ptr<BorderNode> node;
    if (d->dirty & BorderPrivate::DirtyNode) {
        old.reset();
        node = d->createNode();
    } else {
        node.reset(static_cast<BorderNode *>(old.release())); // of either kind, it is one of these
    }
    if (node && d->dirty & BorderPrivate::DirtyGeometry)
        node->updateGeometry(size(), float(d->borderWidth));
    if (node && d->dirty & BorderPrivate::DirtyMaterial)
        node->updateMaterial(d->color, float(d->dashWidth), float(d->gapWidth));
    d->dirty = 0;
    return node.release();
}

} // namespace ta::ui
