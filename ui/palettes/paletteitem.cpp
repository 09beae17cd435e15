#include "paletteitem.h"

#include "colorswatch.h"
#include "palettelayout_p.h"

#include "foundation/assign.h"
#include "foundation/createobject.h"
#include "foundation/objectlist.h"

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQml/qqml.h>

#include <algorithm>

namespace ta::ui {

namespace {

struct PatchInfo
{
    QPointer<QQuickItem> item; // null for a separator
    bool separator = false;
};

// What a patch is told; it knows the rest by itself.
struct PatchState
{
    QColor color;
    int swatchIndex = 0;
    int colorIndex = 0;
};

} // namespace

class PaletteItemPrivate
{
public:
    explicit PaletteItemPrivate(PaletteItem *q) : q(q) {}

    bool canShow() const;
    void follow(const QList<ColorSwatch *> &swatches);
    QQuickItem *takePatch(const PatchState &state);
    void tell(QObject *patch, const PatchState &state) const;

    PaletteItem *const q;
    QPointer<ColorPickerBase> colorPicker;
    QPointer<Palette> palette;
    QQmlComponent *component = nullptr; // child of the item, created on first need
    QVector<PatchInfo> patches; // in display order
    // The live patches, owned by the item, the last one first: those that are taken from the end
    // again have the places that they had before, so a change moves no hover and no ring.
    ObjectList<QQuickItem> patchItems;
    ObjectList<ColorSwatch> followed;
};

bool PaletteItemPrivate::canShow() const
{
    const QQmlContext *context = qmlContext(q);
    return palette && colorPicker && context && context->isValid();
}

// A palette tells when its set of colours changes, but not when two colours change places or one
// comes a second time; the swatches do.
void PaletteItemPrivate::follow(const QList<ColorSwatch *> &swatches)
{
    ObjectList<ColorSwatch> wanted;
    for (ColorSwatch *swatch : swatches)
        wanted.append(swatch);
    if (wanted == followed)
        return;
    for (const auto &swatch : qAsConst(followed)) {
        if (swatch)
            QObject::disconnect(swatch, nullptr, q, nullptr);
    }
    followed = wanted;
    for (ColorSwatch *swatch : swatches)
        QObject::connect(swatch, &ColorSwatch::colorsChanged, q, &PaletteItem::updatePatches);
}

void PaletteItemPrivate::tell(QObject *patch, const PatchState &state) const
{
    patch->setProperty("color", state.color);
    patch->setProperty("colorPicker", QVariant::fromValue<QQuickItem *>(colorPicker));
    patch->setProperty("swatchIndex", state.swatchIndex);
    patch->setProperty("colorIndex", state.colorIndex);
}

// A patch that is free, or a new one; null where none can be made.
QQuickItem *PaletteItemPrivate::takePatch(const PatchState &state)
{
    while (!patchItems.isEmpty()) {
        if (QQuickItem *patch = patchItems.takeLast()) {
            tell(patch, state);
            return patch;
        }
    }
    // It knows its picker and colour before its bindings run, which need both.
    QObject *object = createObject(
        component,
        [&](QObject *created) {
            QQmlEngine::setObjectOwnership(created, QQmlEngine::CppOwnership);
            created->setParent(q);
            if (auto *patch = qobject_cast<QQuickItem *>(created))
                patch->setParentItem(q);
            tell(created, state);
        },
        qmlContext(q));
    return qobject_cast<QQuickItem *>(object);
}

PaletteItem::PaletteItem(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<PaletteItemPrivate>(this))
{
}

PaletteItem::~PaletteItem() = default;

Palette *PaletteItem::palette() const
{
    return d->palette;
}

void PaletteItem::setPalette(Palette *palette)
{
    if (d->palette == palette)
        return;
    if (d->palette)
        disconnect(d->palette, nullptr, this, nullptr);
    d->palette = palette;
    if (palette) {
        connect(palette, &Palette::colorsChanged, this, &PaletteItem::updatePatches);
        connect(palette, &Palette::swatchesChanged, this, &PaletteItem::updatePatches);
    }
    const QPointer<PaletteItem> guard(this);
    Q_EMIT paletteChanged();
    if (guard)
        updatePatches();
}

ColorPickerBase *PaletteItem::colorPicker() const
{
    return d->colorPicker;
}

void PaletteItem::setColorPicker(ColorPickerBase *picker)
{
    if (!assign(d->colorPicker, picker))
        return;
    const QPointer<PaletteItem> guard(this);
    Q_EMIT colorPickerChanged();
    if (guard)
        updatePatches();
}

void PaletteItem::updatePatches()
{
    const bool canShow = d->canShow();
    if (canShow && !d->component) {
        d->component = new QQmlComponent(qmlEngine(this),
                                         QUrl(
                                             QStringLiteral("qrc:/ui/components/UiColorPatch.qml")),
                                         this);
    }
    if (d->component && !d->component->isReady())
        return;

    d->patches.clear();
    ObjectList<QQuickItem> used;
    const QList<ColorSwatch *> swatches = d->palette ? d->palette->swatches()
                                                     : QList<ColorSwatch *>();
    d->follow(swatches);
    for (int swatchIndex = 0; canShow && swatchIndex < swatches.count(); ++swatchIndex) {
        const QList<QColor> colors = swatches.at(swatchIndex)->colors();
        for (int colorIndex = 0; colorIndex < colors.count(); ++colorIndex) {
            QQuickItem *patch = d->takePatch({ colors.at(colorIndex), swatchIndex, colorIndex });
            if (!patch)
                continue;
            d->patches.append({ patch, false });
            used.append(patch);
        }
        d->patches.append({ nullptr, true });
    }
    for (const auto &patch : qAsConst(d->patchItems)) {
        if (!patch)
            continue;
        patch->setParentItem(nullptr);
        patch->deleteLater();
    }
    std::reverse(used.begin(), used.end());
    d->patchItems = used;
    polish();
}

void PaletteItem::updatePolish()
{
    // What is bound to the places of the patches may run code that changes the palette.
    const QPointer<PaletteItem> guard(this);
    const QVector<PatchInfo> patches = d->patches;
    PaletteLayout layout(width());
    for (const PatchInfo &patch : patches) {
        if (patch.separator) {
            layout.endSwatch();
        } else if (patch.item) {
            patch.item->setPosition(
                layout.place(QSizeF(patch.item->implicitWidth(), patch.item->implicitHeight())));
        }
    }
    if (guard)
        setImplicitHeight(layout.height());
}

void PaletteItem::geometryChanged(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
    if (newGeometry.width() != oldGeometry.width())
        polish();
}

} // namespace ta::ui
