#include "colorswatch.h"

#include "foundation/assign.h"
#include "foundation/logging.h"

namespace ta::ui {

class ColorSwatchPrivate
{
public:
    ColorSwatchPrivate(ColorSwatch *q, const QList<QColor> &colors) : q(q), colors(colors) {}

    ColorSwatch *const q;
    QList<QColor> colors;
};

ColorSwatch::ColorSwatch(QObject *parent) : ColorSwatch(QList<QColor>(), parent) {}

ColorSwatch::ColorSwatch(const QList<QColor> &colors, QObject *parent)
    : QObject(parent), d(std::make_unique<ColorSwatchPrivate>(this, colors))
{
}

ColorSwatch::~ColorSwatch() = default;

QList<QColor> ColorSwatch::colors() const
{
    return d->colors;
}

bool ColorSwatch::insertColor(const QColor &, int)
{
    qCWarning(lcPalette, "Cannot insert colors into this color swatch");
    return false;
}

bool ColorSwatch::setColor(const QColor &, int)
{
    qCWarning(lcPalette, "Cannot modify colors in this color swatch");
    return false;
}

bool ColorSwatch::removeColor(int)
{
    qCWarning(lcPalette, "Cannot remove colors from this color swatch");
    return false;
}

bool ColorSwatch::isEmpty() const
{
    return d->colors.isEmpty();
}

void ColorSwatch::setColors(const QList<QColor> &colors)
{
    if (assign(d->colors, colors))
        Q_EMIT colorsChanged();
}

} // namespace ta::ui
