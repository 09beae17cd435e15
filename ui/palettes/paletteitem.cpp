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
// all the rest, so another one is told only what is new to it. It may be gone afterwards.
void tell(const QPointer<QObject> &patch, const PatchState &state,
          const PatchState *known = nullptr)
{
    const auto set = [&](const char *name, const QVariant &value) {
        if (patch)
            patch->setProperty(name, value);
    };
    if (!known || known->color != state.color)
        set("color", state.color);
    if (!known || known->colorPicker != state.colorPicker)
        set("colorPicker", QVariant::fromValue<QQuickItem *>(state.colorPicker));
    if (!known || known->swatchIndex != state.swatchIndex)
        set("swatchIndex", state.swatchIndex);
    if (!known || known->colorIndex != state.colorIndex)
        set("colorIndex", state.colorIndex);
}

} // namespace

class PaletteItemPrivate
{
public:
    explicit PaletteItemPrivate(PaletteItem *q) : q(q) {}

    bool canShow() const;
    void follow(const QList<ColorSwatch *> &swatches);
    void rebuild();
    QVector<PatchInfo> wantedPatches(const QList<ColorSwatch *> &swatches) const;
    QVector<PatchInfo> takePatches();
    QQuickItem *createPatch(const PatchState &state);
    bool addPatch(QVector<PatchInfo> &spare, const PatchState &state);

    PaletteItem *const q;
    QPointer<ColorPickerBase> colorPicker;
    QPointer<Palette> palette;
    QQmlComponent *component = nullptr; // child of the item, created on first need
    QVector<PatchInfo> patches; // in display order; the items are owned by the item
    ObjectList<ColorSwatch> followed;
    bool rebuilding = false;
    bool outdated = false; // what is shown, or what a rebuild that goes on will show
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

// What the patches are to show; the items that show it are found later.
QVector<PatchInfo> PaletteItemPrivate::wantedPatches(const QList<ColorSwatch *> &swatches) const
{
    QVector<PatchInfo> wanted;
    for (int swatchIndex = 0; swatchIndex < swatches.count(); ++swatchIndex) {
        const QList<QColor> colors = swatches.at(swatchIndex)->colors();
        for (int colorIndex = 0; colorIndex < colors.count(); ++colorIndex) {
            wanted.append({ nullptr,
                            false,
                            { colors.at(colorIndex), colorPicker, swatchIndex, colorIndex } });
        }
        wanted.append({ nullptr, true, {} });
    }
    return wanted;
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
    const QPointer<PaletteItem> guard(q);
    std::unique_ptr<QObject> object(createObject(
        component,
        [&](QObject *created) {
            QQmlEngine::setObjectOwnership(created, QQmlEngine::CppOwnership);
            if (auto *patch = qobject_cast<QQuickItem *>(created))
                patch->setParentItem(guard);
            tell(created, state);
        },
        qmlContext(q)));
    auto *patch = qobject_cast<QQuickItem *>(object.get());
    if (!guard || !patch)
        return nullptr;
    patch->setParent(guard);
    object.release();
    return patch;
}

// Returns whether the item is still there.
bool PaletteItemPrivate::addPatch(QVector<PatchInfo> &spare, const PatchState &state)
{
    const QPointer<PaletteItem> guard(q);
    PatchInfo patch;
    while (!patch.item && !spare.isEmpty())
        patch = spare.takeLast();
    if (patch.item)
        tell(patch.item.data(), state, &patch.state);
    else
        patch.item = createPatch(state);
    if (guard && patch.item) {
        patch.state = state;
        patches.append(patch);
    }
    return guard;
}

// The patches tell handlers what happens to them, and those may destroy swatches and the item.
void PaletteItemPrivate::rebuild()
{
    const bool shows = canShow();
    if (shows && !component) {
        component = new QQmlComponent(qmlEngine(q),
                                      QUrl(QStringLiteral("qrc:/ui/components/UiColorPatch.qml")),
                                      q);
    }
    if (component && !component->isReady())
        return;

    const QPointer<PaletteItem> guard(q);
    const QList<ColorSwatch *> swatches = palette ? palette->swatches() : QList<ColorSwatch *>();
    follow(swatches);
    const QVector<PatchInfo> wanted = shows ? wantedPatches(swatches) : QVector<PatchInfo>();
    QVector<PatchInfo> spare = takePatches();
    for (const PatchInfo &patch : wanted) {
        if (patch.separator)
            patches.append(patch);
        else if (!addPatch(spare, patch.state))
            return;
    }
    for (const PatchInfo &patch : qAsConst(spare)) {
        if (!patch.item)
            continue;
        patch.item->deleteLater();
        patch.item->setParentItem(nullptr);
    }
    if (guard)
        q->polish();
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

// A change in the middle of a rebuild makes another one follow it.
void PaletteItem::updatePatches()
{
    d->outdated = true;
    if (d->rebuilding)
        return;
    const QPointer<PaletteItem> guard(this);
    d->rebuilding = true;
    while (guard && d->outdated) {
        d->outdated = false;
        d->rebuild();
    }
    if (guard)
        d->rebuilding = false;
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
