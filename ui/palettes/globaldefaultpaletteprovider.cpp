#include "globaldefaultpaletteprovider.h"

#include "globaldefaultpalette.h"

namespace ta::ui {

GlobalDefaultPaletteProvider::~GlobalDefaultPaletteProvider() = default;

Palette *GlobalDefaultPaletteProvider::createPalette() const
{
    return new GlobalDefaultPalette;
}

} // namespace ta::ui
