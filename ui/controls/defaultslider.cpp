#include "defaultslider.h"

#include "foundation/assign.h"
#include "slidergeometry_p.h"
#include "slidermaterial_p.h"

#include <QtCore/QPointer>
#include <QtQuick/QSGNode>

#include <cstring>
#include <utility>

namespace ta::ui {

namespace {

// Everything below lives on the render thread, and is made in updatePaintNode() only.

void initialize(QSGGeometryNode *node)
{
    auto *geometry = new QSGGeometry(SliderPoint2D_AttributeSet, int(SliderQuad().size()), 0,
                                     QSGGeometry::UnsignedShortType);
    geometry->setDrawingMode(QSGGeometry::DrawTriangleStrip);
    node->setGeometry(geometry);
    node->setFlag(QSGNode::OwnsGeometry);
}

void fill(QSGGeometryNode *node, const SliderQuad &quad)
{
    std::memcpy(node->geometry()->vertexData(), quad.data(), sizeof quad);
    node->markDirty(QSGNode::DirtyGeometry);
}

// Stays in the tree while it is hidden; the renderer skips it then.
class ValueBarNode : public QSGGeometryNode
{
public:
    bool isSubtreeBlocked() const override { return !m_visible; }

    void setVisible(bool visible)
    {
        if (assign(m_visible, visible))
            markDirty(DirtySubtreeBlocked);
    }

private:
    bool m_visible = false;
};

// The root of a slider's nodes: the track. The others are its children and use its material.
class SliderNode : public QSGGeometryNode
{
public:
    explicit SliderNode(bool antialiasing)
        : valueBar(new ValueBarNode), handleOpacity(new QSGOpacityNode), handle(new QSGGeometryNode)
    {
        if (antialiasing)
            setMaterial(new SliderAAMaterial);
        else
            setMaterial(new SliderSimpleMaterial);
        setFlag(OwnsMaterial);
        for (QSGGeometryNode *node : { static_cast<QSGGeometryNode *>(this),
                                       static_cast<QSGGeometryNode *>(valueBar), handle }) {
            initialize(node);
            node->setMaterial(material());
        }
        for (QSGNode *node :
             { static_cast<QSGNode *>(valueBar), static_cast<QSGNode *>(handleOpacity),
               static_cast<QSGNode *>(handle) })
            node->setFlag(OwnedByParent);
        appendChildNode(valueBar);
        appendChildNode(handleOpacity);
        handleOpacity->appendChildNode(handle);
    }

    ValueBarNode *const valueBar;
    QSGOpacityNode *const handleOpacity;
    QSGGeometryNode *const handle;
};

} // namespace

class DefaultSliderPrivate
{
public:
    enum DirtyFlag {
        DirtyTrack = 1,
        DirtyHandle = 2,
        DirtyValueBar = 4,
        DirtyNodes = 8,
        DirtyHandleOpacity = 16,
        DirtyAll = 0xFF
    };
    Q_DECLARE_FLAGS(Dirty, DirtyFlag)

    explicit DefaultSliderPrivate(DefaultSlider *q) : q(q) {}

    void markDirty(Dirty bits)
    {
        dirty |= bits;
        q->update();
    }

    // Stores, signals and marks; the handler may destroy the slider.
    template <typename Field>
    void set(Field &field, const Field &value, void (DefaultSlider::*changed)(), DirtyFlag bit)
    {
        if (!assign(field, value))
            return;
        const QPointer<DefaultSlider> guard(q);
        Q_EMIT(q->*changed)();
        if (guard)
            markDirty(bit);
    }

    SliderFrame frame() const
    {
        return { q->size(), q->margin(), q->normalizedValue(), q->antialiasing() };
    }

    DefaultSlider *const q;
    Dirty dirty = DirtyAll;
    int trackHeight = 2;
    QColor trackBaseColor = Qt::gray;
    QColor trackMaximumColor;
    int handleWidth = 3;
    QColor handleColor = Qt::gray;
    double handleOpacity = 1;
    bool valueBarVisible = false;
    bool watchesAntialiasing = false;
    float valueBarOrigin = 0;
    int valueBarHeight = 4;
    QColor valueBarColor = Qt::gray;
};
Q_DECLARE_OPERATORS_FOR_FLAGS(DefaultSliderPrivate::Dirty)

DefaultSlider::DefaultSlider(QQuickItem *parent)
    : SliderBase(parent), d(std::make_unique<DefaultSliderPrivate>(this))
{
    setFlag(ItemHasContents);
    setImplicitSize(100, 20);
    setMargin(3);
}

DefaultSlider::~DefaultSlider() = default;

int DefaultSlider::trackHeight() const
{
    return d->trackHeight;
}

void DefaultSlider::setTrackHeight(int height)
{
    d->set(d->trackHeight, height, &DefaultSlider::trackHeightChanged,
           DefaultSliderPrivate::DirtyTrack);
}

QColor DefaultSlider::trackBaseColor() const
{
    return d->trackBaseColor;
}

void DefaultSlider::setTrackBaseColor(const QColor &color)
{
    d->set(d->trackBaseColor, color, &DefaultSlider::trackBaseColorChanged,
           DefaultSliderPrivate::DirtyTrack);
}

QColor DefaultSlider::trackMaximumColor() const
{
    return d->trackMaximumColor;
}

void DefaultSlider::setTrackMaximumColor(const QColor &color)
{
    d->set(d->trackMaximumColor, color, &DefaultSlider::trackMaximumColorChanged,
           DefaultSliderPrivate::DirtyTrack);
}

int DefaultSlider::handleWidth() const
{
    return d->handleWidth;
}

void DefaultSlider::setHandleWidth(int width)
{
    d->set(d->handleWidth, width, &DefaultSlider::handleWidthChanged,
           DefaultSliderPrivate::DirtyHandle);
}

QColor DefaultSlider::handleColor() const
{
    return d->handleColor;
}

void DefaultSlider::setHandleColor(const QColor &color)
{
    d->set(d->handleColor, color, &DefaultSlider::handleColorChanged,
           DefaultSliderPrivate::DirtyHandle);
}

double DefaultSlider::handleOpacity() const
{
    return d->handleOpacity;
}

void DefaultSlider::setHandleOpacity(double opacity)
{
    if (!qIsNaN(opacity))
        d->set(d->handleOpacity, opacity, &DefaultSlider::handleOpacityChanged,
               DefaultSliderPrivate::DirtyHandleOpacity);
}

bool DefaultSlider::isValueBarVisible() const
{
    return d->valueBarVisible;
}

void DefaultSlider::setValueBarVisible(bool visible)
{
    d->set(d->valueBarVisible, visible, &DefaultSlider::valueBarVisibleChanged,
           DefaultSliderPrivate::DirtyValueBar);
}

float DefaultSlider::valueBarOrigin() const
{
    return d->valueBarOrigin;
}

void DefaultSlider::setValueBarOrigin(float origin)
{
    if (!qIsNaN(origin))
        d->set(d->valueBarOrigin, origin, &DefaultSlider::valueBarOriginChanged,
               DefaultSliderPrivate::DirtyValueBar);
}

int DefaultSlider::valueBarHeight() const
{
    return d->valueBarHeight;
}

void DefaultSlider::setValueBarHeight(int height)
{
    d->set(d->valueBarHeight, height, &DefaultSlider::valueBarHeightChanged,
           DefaultSliderPrivate::DirtyValueBar);
}

QColor DefaultSlider::valueBarColor() const
{
    return d->valueBarColor;
}

void DefaultSlider::setValueBarColor(const QColor &color)
{
    d->set(d->valueBarColor, color, &DefaultSlider::valueBarColorChanged,
           DefaultSliderPrivate::DirtyValueBar);
}

void DefaultSlider::valueChange()
{
    updateHandle();
}

// All that lies between the margins.
void DefaultSlider::marginChange()
{
    d->markDirty(DefaultSliderPrivate::DirtyTrack);
    updateHandle();
}

void DefaultSlider::updateHandle()
{
    d->markDirty(DefaultSliderPrivate::DirtyHandle | DefaultSliderPrivate::DirtyValueBar);
}

// Anti-aliasing takes another material, and other edges.
void DefaultSlider::updateMaterial()
{
    d->markDirty(DefaultSliderPrivate::DirtyAll);
}

// Only an item whose anti-aliasing was set once can have it changed: the connection waits for that,
// and comes in time for the signal that follows this call.
void DefaultSlider::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemAntialiasingHasChanged && !std::exchange(d->watchesAntialiasing, true))
        connect(this, &QQuickItem::antialiasingChanged, this, &DefaultSlider::updateMaterial);
    SliderBase::itemChange(change, value);
}

// An item that merely moves looks as before.
void DefaultSlider::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    if (newGeometry.size() != oldGeometry.size())
        d->markDirty(DefaultSliderPrivate::DirtyAll);
    SliderBase::geometryChanged(newGeometry, oldGeometry);
}

// Runs on the render thread while the GUI thread waits, so the private state needs no lock.
QSGNode *DefaultSlider::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<SliderNode *>(oldNode);
    if (!node)
        d->dirty = DefaultSliderPrivate::DirtyAll; // a fresh node carries nothing yet
    if (d->dirty & DefaultSliderPrivate::DirtyNodes) {
        delete node;
        node = new SliderNode(antialiasing());
    }
    const SliderFrame frame = d->frame();
    if (d->dirty & DefaultSliderPrivate::DirtyTrack) {
        fill(node, sliderTrack(frame, d->trackHeight, d->trackBaseColor,
                               d->trackMaximumColor.isValid() ? d->trackMaximumColor
                                                              : d->trackBaseColor));
    }
    if (d->dirty & DefaultSliderPrivate::DirtyValueBar) {
        node->valueBar->setVisible(d->valueBarVisible);
        if (d->valueBarVisible) {
            fill(node->valueBar,
                 sliderValueBar(frame, d->valueBarHeight, d->valueBarOrigin, d->valueBarColor));
        }
    }
    if (d->dirty & DefaultSliderPrivate::DirtyHandle)
        fill(node->handle, sliderHandle(frame, d->handleWidth, d->handleColor));
    if (d->dirty & DefaultSliderPrivate::DirtyHandleOpacity)
        node->handleOpacity->setOpacity(d->handleOpacity);
    d->dirty = {};
    return node;
}

} // namespace ta::ui
