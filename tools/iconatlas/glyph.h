#pragma once

#include <QtCore/QDir>
#include <QtCore/QString>
#include <QtGui/QImage>

/*!
    One glyph, drawn from its source.

    A source is an SVG document of \c size design pixels a side. References to shapes that it does
    not define itself (\c{<use xlink:href="#sheet"/>}) find them in the motifs of its size: the
    children of motifs/<size>.svg.

    A badge cuts a gap out of what lies under it. Two comments on lines of their own split the
    source in three parts: what stands between \c{<!-- cut -->} and \c{<!-- over -->} erases what
    was drawn before it, and what follows is drawn on top.
*/
class Glyph
{
public:
    /// Reads glyphs/<size>/<name>.svg below \a sources. isValid() tells whether that worked.
    Glyph(const QDir &sources, int size, const QString &name);

    bool isValid() const { return m_error.isEmpty(); }
    /// Why the glyph cannot be drawn.
    QString error() const { return m_error; }

    /// The glyph at \a scale times its design size, premultiplied.
    QImage render(int scale) const;

private:
    QByteArray document(const QString &part) const;

    int m_size;
    QString m_motifs;
    QString m_parts[3]; // drawn, erased, drawn
    QString m_error;
};
