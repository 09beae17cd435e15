#pragma once

#include <QtCore/QDir>
#include <QtCore/QStringList>

/// The design sizes that there are atlases for, in logical pixels.
constexpr int kAtlasSizes[] = { 16, 24, 32 };

/// The names of all glyphs of a size, in the order of the atlas, from names/<size>.txt. The empty
/// cell at the beginning is not in the list.
QStringList glyphNames(const QDir &sources, int size);

/// Draws the two atlases of a size (each from the vectors, not one from the other) and writes the
/// table of their glyphs. Empty when that worked, else why not.
QString drawAtlases(const QDir &sources, const QDir &output, int size);

/// Compares the atlases and the table of a size with what the sources draw; empty when they agree.
QString checkAtlases(const QDir &sources, const QDir &output, int size);
