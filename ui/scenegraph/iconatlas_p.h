#pragma once

#include "../foundation/export.h"

namespace ta::ui {

/// The place of one glyph in the grid of an atlas.
struct IconAtlasEntry
{
    const char *name; ///< Latin-1
    int column;
    int row;
};

/// A compiled-in image with a grid of glyphs, and the table of what is where. Entry 0 has the empty
/// name and a transparent cell.
struct IconAtlas
{
    int cellSize; ///< in pixels of the image
    int entryCount;
    int dataSize; ///< of the PNG, in bytes
    float cellFraction; ///< a cell's size as a part of the image's width
    float gapFraction; ///< the same of the gap between two cells
    const IconAtlasEntry *entries;
    const unsigned char *data; ///< the PNG
};

TAMBERUI_PRIVATE_EXPORT const IconAtlas &iconAtlas_16();
TAMBERUI_PRIVATE_EXPORT const IconAtlas &iconAtlas_24();
TAMBERUI_PRIVATE_EXPORT const IconAtlas &iconAtlas_32();
TAMBERUI_PRIVATE_EXPORT const IconAtlas &iconAtlas_16_2x();
TAMBERUI_PRIVATE_EXPORT const IconAtlas &iconAtlas_24_2x();
TAMBERUI_PRIVATE_EXPORT const IconAtlas &iconAtlas_32_2x();

/// What the caches distinguish: the size, with a bit of its own where the screen has more than
/// about one device pixel to a logical one.
int iconAtlasKey(int size, double devicePixelRatio);

/// The atlas for glyphs of \a size logical pixels on a screen of \a devicePixelRatio; above 1.1 it
/// is one that was drawn at twice the size. A size that has no atlas gets a warning and the 24
/// pixel atlas of ordinary screens.
TAMBERUI_PRIVATE_EXPORT const IconAtlas &getAtlas(int size, double devicePixelRatio);

} // namespace ta::ui
