#pragma once

#include "../foundation/export.h"

#include <QtCore/qglobal.h>

namespace ta::ui {

class Palette;

/*!
    Makes palettes for colour pickers.

    Every picker asks each provider for a palette of its own when QML has completed it; a provider
    that comes or goes later changes nothing for it. A provider installs itself for as long as it
    lives. GUI thread only.
*/
class TAMBERUI_EXPORT PaletteProvider
{
    Q_DISABLE_COPY(PaletteProvider)

public:
    PaletteProvider();
    virtual ~PaletteProvider();

    /// A new palette, which the caller owns; null for none.
    virtual Palette *createPalette() const = 0;
};

} // namespace ta::ui
