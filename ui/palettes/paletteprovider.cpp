#include "paletteprovider.h"

#include "palette.h"

namespace ta::ui {

PaletteProvider::PaletteProvider()
{
    Palette::installProvider(this);
}

// Somebody may have installed it once more.
PaletteProvider::~PaletteProvider()
{
    while (Palette::providers().contains(this))
        Palette::uninstallProvider(this);
}

} // namespace ta::ui
