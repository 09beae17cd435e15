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

namespace ta::ui {

namespace {

// What a patch is told; it knows the rest by itself.
struct PatchState
{
    QColor color;
    QPointer<ColorPickerBase> colorPicker;
    int swatchIndex = 0;
    int colorIndex = 0;
};

struct PatchInfo
{
    QPointer<QQuickItem> item; // null for a separator
    bool separator = false;
    PatchState state;
};

// A patch that was made just now knows nothing. Looking a property up by its name takes longer than
// all the rest, so another one is told only what is new to it.
void tell(QObject *patch, const PatchState &state, const PatchState *known = nullptr)
{
    if (!known || known->color != state.color)
        patch->setProperty("color", state.color);
    if (!known || known->colorPicker != state.colorPicker)
        patch->setProperty("colorPicker", QVariant::fromValue<QQuickItem *>(state.colorPicker));
    if (!known || known->swatchIndex != state.swatchIndex)
        patch->setProperty("swatchIndex", state.swatchIndex);
    if (!known || known->colorIndex != state.colorIndex)
        patch->setProperty("colorIndex", state.colorIndex);
}

} // namespace

class PaletteItemPrivate
{
public:
    explicit PaletteItemPrivate(PaletteItem *q) : q(q) {}

    bool canShow() const;
    void follow(const QList<ColorSwatch *> &swatches);
    QVector<PatchInfo> takePatches();
    QQuickItem *createPatch(const PatchState &state);
    void addPatch(QVector<PatchInfo> &spare, const PatchState &state);

    PaletteItem *const q;
    QPointer<ColorPickerBase> colorPicker;
    QPointer<Palette> palette;
    QQmlComponent *component = nullptr; // child of the item, created on first need
    QVector<PatchInfo> patches; // in display order; the items are owned by the item
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

// All the patches, to be used again. The last one comes first: taken from the end, each gets back
// the place that it had, so a change moves no hover and no ring.
QVector<PatchInfo> PaletteItemPrivate::takePatches()
{
    QVector<PatchInfo> taken;
    for (int i = patches.count() - 1; i >= 0; --i) {
        if (patches.at(i).item)
            taken.append(patches.at(i));
    }
    patches.clear();
    return taken;
}

// Null where none can be made. The patch knows its picker and colour before its bindings run, which
// need both.
QQuickItem *PaletteItemPrivate::createPatch(const PatchState &state)
{
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

void PaletteItemPrivate::addPatch(QVector<PatchInfo> &spare, const PatchState &state)
{
    PatchInfo patch;
    while (!patch.item && !spare.isEmpty())
        patch = spare.takeLast();
    if (patch.item)
        tell(patch.item, state, &patch.state);
    else
        patch.item = createPatch(state);
    if (!patch.item)
        return;
    patch.state = state;
    patches.append(patch);
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

    QVector<PatchInfo> spare = d->takePatches();
    const QList<ColorSwatch *> swatches = d->palette ? d->palette->swatches()
                                                     : QList<ColorSwatch *>();
    d->follow(swatches);
    for (int swatchIndex = 0; canShow && swatchIndex < swatches.count(); ++swatchIndex) {
        const QList<QColor> colors = swatches.at(swatchIndex)->colors();
        for (int colorIndex = 0; colorIndex < colors.count(); ++colorIndex) {
            d->addPatch(spare, { colors.at(colorIndex), d->colorPicker, swatchIndex, colorIndex });
        }
        d->patches.append({ nullptr, true, {} });
    }
    for (const PatchInfo &patch : qAsConst(spare)) {
        if (!patch.item)
            continue;
        patch.item->setParentItem(nullptr);
        patch.item->deleteLater();
    }
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
