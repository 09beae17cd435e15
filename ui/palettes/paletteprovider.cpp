#include "paletteprovider.h"

#include "palette.h"

namespace ta::ui {

PaletteProvider::PaletteProvider()
{
    Palette::installProvider(this);
}

PaletteProvider::~PaletteProvider()
{
    Palette::uninstallProvider(this);
}

} // namespace ta::ui
