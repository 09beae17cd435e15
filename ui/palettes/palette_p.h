#pragma once

#include "palette.h"

#include "../foundation/objectlist.h"

#include <unordered_set>

namespace ta::ui {

/// By the #rrggbb name: colours that differ in alpha alone share a bucket and stay distinct.
struct ColorNameHash
{
    size_t operator()(const QColor &color) const { return color.rgb() & RGB_MASK; }
};
using ColorSet = std::unordered_set<QColor, ColorNameHash>;

class PalettePrivate
{
public:
    explicit PalettePrivate(Palette *q) : q(q) {}

    ColorSwatch *editableSwatch(int index) const;
    void swatchDestroyed();

    Palette *const q;
    ObjectList<ColorSwatch> swatches; // not owned
    ColorSet colors;

    // Every provider there is, in the order of their installation. Providers write it from their
    // constructor and destructor, on the GUI thread; all engines and pickers share it.
    static QList<const PaletteProvider *> m_providers;
};

} // namespace ta::ui
