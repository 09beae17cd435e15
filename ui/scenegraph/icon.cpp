#include "icon.h"

#include "iconatlas_p.h"
#include "iconimages_p.h"
#include "iconnode_p.h"

#include "foundation/assign.h"

#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtQuick/QQuickWindow>

namespace ta::ui {

class IconPrivate : public IconImagesUser
{
public:
    enum DirtyFlag { DirtyGeometry = 1, DirtyMaterial = 2, DirtyAll = ~0 };

    explicit IconPrivate(Icon *q) : q(q) {}

    // Stores, signals and then asks for a frame; the handler may destroy the icon.
    template <typename Value>
    void set(Value &field, const Value &value, void (Icon::*changed)(), int dirtyBits)
    {
        if (!assign(field, value))
            return;
        const QPointer<Icon> guard(q);
        Q_EMIT(q->*changed)();
        if (guard)
            markDirty(dirtyBits);
    }

    void markDirty(int bits)
    {
        dirty |= bits;
        q->update();
    }

    Icon *const q;
    QString iconName;
    double disabled = 0;
    double highlight = 0;
    QColor highlightColor = Qt::white;
    Icon::IconSize iconSize = Icon::Icon_24x24;
    int dirty = DirtyAll;
};

namespace {

// QML makes a string of its own for every icon that names a glyph; the icons keep one for all of
// them.
QString sharedName(const QString &name)
{
    static const QSet<QString> names = [] {
        QSet<QString> all;
        for (const IconAtlas *atlas : { &iconAtlas_16(), &iconAtlas_24(), &iconAtlas_32() }) {
            for (int i = 0; i < atlas->entryCount; ++i)
                all.insert(QString::fromLatin1(atlas->entries[i].name));
        }
        return all;
    }();
    const auto shared = names.constFind(name);
    return shared == names.constEnd() ? name : *shared;
}

// NaN, which is no amount, counts as none.
double amount(double value)
{
    return qIsNaN(value) ? 0 : qBound(0.0, value, 1.0);
}

} // namespace

Icon::Icon(QQuickItem *parent) : QQuickItem(parent), d(std::make_unique<IconPrivate>(this))
{
    setFlag(ItemHasContents);
    setImplicitSize(d->iconSize, d->iconSize);
}

Icon::~Icon() = default;

QString Icon::iconName() const
{
    return d->iconName;
}

void Icon::setIconName(const QString &name)
{
    d->set(d->iconName, sharedName(name), &Icon::iconNameChanged, IconPrivate::DirtyGeometry);
}

Icon::IconSize Icon::iconSize() const
{
    return d->iconSize;
}

void Icon::setIconSize(IconSize size)
{
    if (!assign(d->iconSize, size))
        return;
    const QPointer<Icon> guard(this);
    setImplicitSize(size, size);
    if (guard)
        Q_EMIT iconSizeChanged();
    if (guard)
        d->markDirty(IconPrivate::DirtyGeometry | IconPrivate::DirtyMaterial);
}

double Icon::disabled() const
{
    return d->disabled;
}

void Icon::setDisabled(double disabled)
{
    d->set(d->disabled, amount(disabled), &Icon::disabledChanged, IconPrivate::DirtyMaterial);
}

double Icon::highlight() const
{
    return d->highlight;
}

void Icon::setHighlight(double highlight)
{
    d->set(d->highlight, amount(highlight), &Icon::highlightChanged, IconPrivate::DirtyMaterial);
}

QColor Icon::highlightColor() const
{
    return d->highlightColor;
}

void Icon::setHighlightColor(const QColor &color)
{
    d->set(d->highlightColor, color, &Icon::highlightColorChanged, IconPrivate::DirtyMaterial);
}

QStringList Icon::iconNamesForSize(IconSize size) const
{
    const IconAtlas &atlas = getAtlas(size, window() ? window()->effectiveDevicePixelRatio() : 1.0);
    QStringList names;
    names.reserve(atlas.entryCount);
    for (int i = 0; i < atlas.entryCount; ++i)
        names.append(QString::fromLatin1(atlas.entries[i].name));
    return names;
}

void Icon::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged)
        d->markDirty(IconPrivate::DirtyGeometry | IconPrivate::DirtyMaterial);
}

// Runs on the render thread while the GUI thread waits.
QSGNode *Icon::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<IconNode *>(oldNode);
    if (!node) {
        node = new IconNode;
        d->dirty = IconPrivate::DirtyAll;
    }
    if (d->dirty & IconPrivate::DirtyGeometry)
        node->updateGeometry(d->iconSize, window()->effectiveDevicePixelRatio(), d->iconName);
    if (d->dirty & IconPrivate::DirtyMaterial) {
        node->updateMaterial(window(), d->iconName, d->iconSize, d->disabled, d->highlight,
                             d->highlightColor);
    }
    d->dirty = 0;
    return node;
}

} // namespace ta::ui
