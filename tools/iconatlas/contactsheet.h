#pragma once

#include <QtCore/QDir>
#include <QtCore/QStringList>

/// Draws a contact sheet of the glyphs \a names of a size into \a picture: each enlarged and at
/// scale 1 and 2, on several grounds, and as its highlight shows it. For judging drawings before
/// they are in the atlas. Empty when that worked, else why not.
QString drawContactSheet(const QDir &sources, int size, const QStringList &names,
                         const QString &picture);
