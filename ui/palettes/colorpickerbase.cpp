#include "colorpickerbase.h"

#include "colorpickercanvas.h"
#include "globaldefaultpaletteprovider.h"

#include "foundation/assign.h"
#include "foundation/logging.h"
#include "foundation/objectlist.h"

#include <QtCore/QSharedPointer>
#include <QtQuick/QQuickWindow>

#include <algorithm>

namespace ta::ui {

namespace {

bool isTransparentColor(const QColor &color)
{
    return color.alphaF() < 0.01;
}

} // namespace

class ColorPickerBasePrivate
{
public:
    explicit ColorPickerBasePrivate(ColorPickerBase *q) : q(q) {}

    void shareGlobalProvider();
    bool createPalettes();
    bool readOwnColors();
    void paletteDestroyed();
    void endPick();

    static int paletteCount(QQmlListProperty<Palette> *list);
    static Palette *paletteAt(QQmlListProperty<Palette> *list, int index);
    static int writablePaletteCount(QQmlListProperty<Palette> *list);
    static Palette *writablePaletteAt(QQmlListProperty<Palette> *list, int index);

    ColorPickerBase *const q;
    ObjectList<Palette> palettes; // children of the picker
    ObjectList<Palette> writablePalettes;
    QSharedPointer<GlobalDefaultPaletteProvider> globalProvider;
    ColorPickerBase::Mode mode = ColorPickerBase::Swatches;
    QColor color = Qt::black;
    bool bindable = false;
    bool indeterminate = false;
    bool usesTransparent = false;
    QPointer<ColorPickerCanvas> canvas; // owned by the picker

    // The provider that all pickers of the process share: written by the first of them, null again
    // when the last one is gone. GUI thread only.
    static QWeakPointer<GlobalDefaultPaletteProvider> m_globalProviderInstance;
};

QWeakPointer<GlobalDefaultPaletteProvider> ColorPickerBasePrivate::m_globalProviderInstance;

void ColorPickerBasePrivate::shareGlobalProvider()
{
    globalProvider = m_globalProviderInstance.toStrongRef();
    if (globalProvider)
        return;
    globalProvider = QSharedPointer<GlobalDefaultPaletteProvider>::create();
    m_globalProviderInstance = globalProvider;
}

// --- Palettes -----------------------------------------------------------------------------------

// The two steps of the completion return whether the picker has survived them.
bool ColorPickerBasePrivate::createPalettes()
{
    const QPointer<ColorPickerBase> guard(q);
    const QList<const PaletteProvider *> providers = Palette::providers();
    for (const PaletteProvider *provider : providers) {
        // Asking one provider may destroy another one.
        if (!provider || !Palette::providers().contains(provider))
            continue;
        Palette *palette = provider->createPalette();
        if (!guard) {
            const std::unique_ptr<Palette> unused(palette);
            return false;
        }
        if (!palette)
            continue;
        palette->setParent(q);
        palettes.append(palette);
    }
    palettes.removeAll(nullptr);
    std::stable_sort(palettes.begin(), palettes.end(), paletteLessThan);
    return true;
}

bool ColorPickerBasePrivate::readOwnColors()
{
    if (q->metaObject()->indexOfProperty("palette") < 0)
        return true;
    const QPointer<ColorPickerBase> guard(q);
    const QVariantList entries = q->property("palette").toList();
    for (const QVariant &entry : entries) {
        const QString name = entry.toString();
        // The parser complains about names that it does not know.
        if (!QColor::isValidColor(name) || !isTransparentColor(QColor(name)))
            continue;
        usesTransparent = true;
        Q_EMIT q->usesTransparentChanged();
        if (!guard)
            return false;
    }
    return true;
}

// Somebody else destroyed a palette of the picker.
void ColorPickerBasePrivate::paletteDestroyed()
{
    palettes.removeAll(nullptr);
    writablePalettes.removeAll(nullptr);
    const QPointer<ColorPickerBase> guard(q);
    Q_EMIT q->palettesChanged();
    if (guard)
        Q_EMIT q->hasCustomColorChanged();
}

int ColorPickerBasePrivate::paletteCount(QQmlListProperty<Palette> *list)
{
    return static_cast<ColorPickerBase *>(list->object)->d->palettes.count();
}

Palette *ColorPickerBasePrivate::paletteAt(QQmlListProperty<Palette> *list, int index)
{
    return objectAt(static_cast<ColorPickerBase *>(list->object)->d->palettes, index);
}

int ColorPickerBasePrivate::writablePaletteCount(QQmlListProperty<Palette> *list)
{
    return static_cast<ColorPickerBase *>(list->object)->d->writablePalettes.count();
}

Palette *ColorPickerBasePrivate::writablePaletteAt(QQmlListProperty<Palette> *list, int index)
{
    return objectAt(static_cast<ColorPickerBase *>(list->object)->d->writablePalettes, index);
}

QQmlListProperty<Palette> ColorPickerBase::palettes()
{
    return { this, nullptr, &ColorPickerBasePrivate::paletteCount,
             &ColorPickerBasePrivate::paletteAt };
}

QQmlListProperty<Palette> ColorPickerBase::writablePalettes()
{
    return { this, nullptr, &ColorPickerBasePrivate::writablePaletteCount,
             &ColorPickerBasePrivate::writablePaletteAt };
}

void ColorPickerBase::componentComplete()
{
    if (!d->createPalettes() || !d->readOwnColors())
        return;
    d->palettes.removeAll(nullptr);
    for (const auto &palette : qAsConst(d->palettes)) {
        connect(palette, &Palette::colorsChanged, this, &ColorPickerBase::hasCustomColorChanged);
        connect(palette, &QObject::destroyed, this, [this] { d->paletteDestroyed(); });
        if (!palette->isReadOnly())
            d->writablePalettes.append(palette);
    }
    const QPointer<ColorPickerBase> guard(this);
    Q_EMIT palettesChanged();
    if (guard)
        Q_EMIT hasCustomColorChanged();
    if (guard)
        QQuickItem::componentComplete();
}

// --- State --------------------------------------------------------------------------------------

ColorPickerBase::ColorPickerBase(QQuickItem *parent)
    : QQuickItem(parent), d(std::make_unique<ColorPickerBasePrivate>(this))
{
    d->shareGlobalProvider();
}

ColorPickerBase::~ColorPickerBase()
{
    delete d->canvas;
    for (const auto &palette : qAsConst(d->palettes)) {
        if (palette)
            disconnect(palette, nullptr, this, nullptr);
    }
}

ColorPickerBase::Mode ColorPickerBase::mode() const
{
    return d->mode;
}

void ColorPickerBase::setMode(Mode mode)
{
    if (assign(d->mode, mode))
        Q_EMIT modeChanged();
}

QColor ColorPickerBase::color() const
{
    return d->color;
}

void ColorPickerBase::setColor(const QColor &color)
{
    const bool wasTransparent = isTransparent();
    if (!assign(d->color, color.toRgb()))
        return;
    const QPointer<ColorPickerBase> guard(this);
    Q_EMIT colorChanged();
    if (guard)
        Q_EMIT hasCustomColorChanged();
    if (guard && isTransparent() != wasTransparent)
        Q_EMIT transparentChanged();
}

bool ColorPickerBase::isBindable() const
{
    return d->bindable;
}

void ColorPickerBase::setBindable(bool bindable)
{
    if (assign(d->bindable, bindable))
        Q_EMIT bindableChanged();
}

bool ColorPickerBase::isIndeterminate() const
{
    return d->indeterminate;
}

void ColorPickerBase::setIndeterminate(bool indeterminate)
{
    if (assign(d->indeterminate, indeterminate))
        Q_EMIT indeterminateChanged();
}

bool ColorPickerBase::usesTransparent() const
{
    return d->usesTransparent;
}

bool ColorPickerBase::isTransparent() const
{
    return isTransparentColor(d->color);
}

bool ColorPickerBase::hasCustomColor() const
{
    return std::none_of(d->palettes.begin(), d->palettes.end(), [this](const auto &palette) {
        return palette && palette->containsColor(d->color);
    });
}

void ColorPickerBase::updateColor(const QColor &color)
{
    const QColor newValue = color.toRgb();
    if (d->bindable)
        Q_EMIT updateRequested(newValue);
    else
        setColor(newValue);
}

// --- The eyedropper -----------------------------------------------------------------------------

bool ColorPickerBase::colorPickActive() const
{
    return d->canvas;
}

void ColorPickerBase::pickColor()
{
    const QPointer<ColorPickerBase> guard(this);
    abortColorPick();
    // A handler that was told of the end may have begun the next pick already.
    if (!guard || d->canvas)
        return;
    if (!window()) {
        qCWarning(lcUi, "Cannot pick a color for a picker that is in no window");
        return;
    }
    d->canvas = new ColorPickerCanvas(window());
    d->canvas->setParent(this);
    connect(d->canvas, &ColorPickerCanvas::colorPicked, this, &ColorPickerBase::setPickedColor);
    connect(d->canvas, &ColorPickerCanvas::aborted, this, &ColorPickerBase::abortColorPick);
    Q_EMIT colorPickActiveChanged();
}

void ColorPickerBase::setPickedColor(const QColor &color)
{
    const QPointer<ColorPickerBase> guard(this);
    const QPointer<ColorPickerCanvas> canvas = d->canvas;
    updateColor(color);
    // A handler may have begun the next pick, which has a canvas of its own.
    if (guard && canvas && canvas == d->canvas)
        d->endPick();
}

void ColorPickerBase::abortColorPick()
{
    if (d->canvas)
        d->endPick();
}

void ColorPickerBasePrivate::endPick()
{
    ColorPickerCanvas *ended = canvas;
    canvas.clear();
    ended->stop();
    if (ended->window()) // it may be on its way out of it
        ended->setParentItem(nullptr);
    ended->deleteLater(); // it is perhaps the one that calls
    Q_EMIT q->colorPickActiveChanged();
}

void ColorPickerBase::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange && d->canvas && d->canvas->window() != data.window)
        abortColorPick();
}

} // namespace ta::ui
