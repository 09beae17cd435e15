#pragma once

#include "paletteprovider.h"

namespace ta::ui {

/// Makes default palettes. The colour pickers share one, which lives as long as there are any.
class TAMBERUI_EXPORT GlobalDefaultPaletteProvider : public PaletteProvider
{
public:
    ~GlobalDefaultPaletteProvider() override;

    Palette *createPalette() const override;
};

} // namespace ta::ui
