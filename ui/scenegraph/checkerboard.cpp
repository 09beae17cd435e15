#include "checkerboard.h"

#include "checkerboardmaterial_p.h"
#include "foundation/assign.h"

#include <QtCore/QPointer>
#include <QtQuick/QSGGeometryNode>

namespace ta::ui {

class CheckerBoardPrivate
{
public:
    enum DirtyFlag { DirtyGeometry = 1, DirtyMaterial = 2, DirtyAll = 0xFF };

    explicit CheckerBoardPrivate(CheckerBoard *q) : q(q) {}

    void markDirty(int bits)
    {
        dirty |= bits;
        q->update();
    }

    template <typename Field>
    void setLook(Field &field, const Field &value, void (CheckerBoard::*changed)());

    CheckerBoard *const q;
    int dirty = DirtyAll;
    int tileSize = 12;
    QColor primaryColor = QColor(255, 255, 255);
    QColor secondaryColor = QColor(221, 221, 221);
};

template <typename Field>
void CheckerBoardPrivate::setLook(Field &field, const Field &value, void (CheckerBoard::*changed)())
{
    if (!assign(field, value))
        return;
    const QPointer<CheckerBoard> guard(q);
    Q_EMIT(q->*changed)();
    if (guard)
        markDirty(DirtyMaterial);
}

CheckerBoard::CheckerBoard(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<CheckerBoardPrivate>(this))
{
    setFlag(ItemHasContents);
}

CheckerBoard::~CheckerBoard() = default;

int CheckerBoard::tileSize() const
{
    return d->tileSize;
}

void CheckerBoard::setTileSize(int size)
{
    d->setLook(d->tileSize, qBound(2, size, 100), &CheckerBoard::tileSizeChanged);
}

QColor CheckerBoard::primaryColor() const
{
    return d->primaryColor;
}

void CheckerBoard::setPrimaryColor(const QColor &color)
{
    d->setLook(d->primaryColor, color, &CheckerBoard::primaryColorChanged);
}

QColor CheckerBoard::secondaryColor() const
{
    return d->secondaryColor;
}

void CheckerBoard::setSecondaryColor(const QColor &color)
{
    d->setLook(d->secondaryColor, color, &CheckerBoard::secondaryColorChanged);
}

void CheckerBoard::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    const QPointer<CheckerBoard> guard(this); // the base class emits signals
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
    if (guard)
        d->markDirty(CheckerBoardPrivate::DirtyGeometry);
}

// Runs on the render thread while the GUI thread waits, so the private state needs no lock.
QSGNode *CheckerBoard::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGGeometryNode *>(oldNode);
    if (!node) {
        node = new QSGGeometryNode;
        node->setGeometry(new QSGGeometry(QSGGeometry::defaultAttributes_Point2D(), 4));
        node->setMaterial(new CheckerBoardMaterial);
        node->setFlags(QSGNode::OwnsGeometry | QSGNode::OwnsMaterial);
        d->dirty = CheckerBoardPrivate::DirtyAll; // a fresh node carries nothing yet
    }
    if (d->dirty & CheckerBoardPrivate::DirtyGeometry) {
        QSGGeometry::updateRectGeometry(node->geometry(), QRectF(QPointF(), size()));
        node->markDirty(QSGNode::DirtyGeometry);
    }
    if (d->dirty & CheckerBoardPrivate::DirtyMaterial) {
        auto *material = static_cast<CheckerBoardMaterial *>(node->material());
        if (material->update(d->tileSize, d->primaryColor, d->secondaryColor))
            node->markDirty(QSGNode::DirtyMaterial);
    }
    d->dirty = 0;
    return node;
}

} // namespace ta::ui
