#include "palette_p.h"

#include "colorswatch.h"

#include "foundation/logging.h"

#include <algorithm>
#include <utility>

namespace ta::ui {

QList<const PaletteProvider *> PalettePrivate::m_providers;

// Where an edit goes; null, after a warning, where there is no such swatch.
ColorSwatch *PalettePrivate::editableSwatch(int index) const
{
    ColorSwatch *swatch = objectAt(swatches, index);
    if (!swatch)
        qCWarning(lcPalette, "No swatch with index %d in this palette", index);
    return swatch;
}

void PalettePrivate::swatchDestroyed()
{
    swatches.removeAll(nullptr);
    const QPointer<Palette> guard(q);
    Q_EMIT q->swatchesChanged();
    if (guard)
        q->updateColors();
}

Palette::Palette(QObject *parent) : QObject(parent), d(std::make_unique<PalettePrivate>(this)) {}

// The swatches may die with the palette or after it; what they tell then would come too late.
Palette::~Palette()
{
    for (const auto &swatch : qAsConst(d->swatches)) {
        if (swatch)
            disconnect(swatch, nullptr, this, nullptr);
    }
}

QString Palette::name() const
{
    return QString();
}

QUrl Palette::icon() const
{
    return QUrl();
}

bool Palette::isReadOnly() const
{
    return true;
}

bool Palette::insertColor(const QColor &color, int index, int swatchIndex)
{
    if (isReadOnly()) {
        qCWarning(lcPalette, "Cannot add color to read-only palette");
        return false;
    }
    ColorSwatch *swatch = d->editableSwatch(swatchIndex);
    return swatch && swatch->insertColor(color.toRgb(), index);
}

bool Palette::setColor(const QColor &color, int index, int swatchIndex)
{
    if (isReadOnly()) {
        qCWarning(lcPalette, "Cannot set color in read-only palette");
        return false;
    }
    ColorSwatch *swatch = d->editableSwatch(swatchIndex);
    return swatch && swatch->setColor(color.toRgb(), index);
}

bool Palette::removeColor(int index, int swatchIndex)
{
    if (isReadOnly()) {
        qCWarning(lcPalette, "Cannot remove color from read-only palette");
        return false;
    }
    ColorSwatch *swatch = d->editableSwatch(swatchIndex);
    return swatch && swatch->removeColor(index);
}

QList<ColorSwatch *> Palette::swatches() const
{
    QList<ColorSwatch *> swatches;
    for (const auto &swatch : qAsConst(d->swatches)) {
        if (swatch)
            swatches.append(swatch);
    }
    return swatches;
}

bool Palette::containsColor(const QColor &color) const
{
    return d->colors.count(color) > 0;
}

bool Palette::isEmpty() const
{
    const QList<ColorSwatch *> all = swatches();
    return std::all_of(all.begin(), all.end(),
                       [](const auto *swatch) { return swatch->isEmpty(); });
}

void Palette::insertSwatch(ColorSwatch *swatch, int index)
{
    if (!swatch)
        return;
    if (!d->swatches.removeOne(swatch)) {
        connect(swatch, &ColorSwatch::colorsChanged, this, &Palette::updateColors);
        connect(swatch, &QObject::destroyed, this, [this] { d->swatchDestroyed(); });
    }
    const bool isPlace = index >= 0 && index < d->swatches.count();
    d->swatches.insert(isPlace ? index : d->swatches.count(), swatch);

    const QPointer<Palette> guard(this);
    Q_EMIT swatchesChanged();
    if (guard)
        updateColors();
}

void Palette::removeSwatch(ColorSwatch *swatch)
{
    if (!swatch)
        return;
    const QPointer<Palette> guard(this);
    if (d->swatches.contains(swatch)) {
        disconnect(swatch, nullptr, this, nullptr);
        d->swatches.removeOne(swatch);
        Q_EMIT swatchesChanged();
    }
    if (guard)
        updateColors();
}

void Palette::updateColors()
{
    ColorSet colors;
    const QList<ColorSwatch *> all = swatches();
    for (const ColorSwatch *swatch : all) {
        const QList<QColor> ofSwatch = swatch->colors();
        colors.insert(ofSwatch.begin(), ofSwatch.end());
    }
    if (colors == d->colors)
        return;
    d->colors = std::move(colors);
    Q_EMIT colorsChanged();
}

void Palette::installProvider(PaletteProvider *provider)
{
    PalettePrivate::m_providers.append(provider);
}

void Palette::uninstallProvider(PaletteProvider *provider)
{
    PalettePrivate::m_providers.removeOne(provider);
}

QList<const PaletteProvider *> Palette::providers()
{
    return PalettePrivate::m_providers;
}

bool paletteLessThan(const Palette *a, const Palette *b)
{
    return a->sortInfo() < b->sortInfo();
}

} // namespace ta::ui
