#include "atlas.h"

#include "glyph.h"

#include "pictures/pictures.h"

#include <QtCore/QFile>
#include <QtGui/QPainter>

namespace {

constexpr int kGap = 2; // pixels between two cells, at either scale

/// The grid of an atlas.
struct Grid
{
    int size; ///< of the image at scale 1, in pixels
    int columns;
};

Grid grid(int size)
{
    switch (size) {
    case 16:
        return { 256, 8 };
    case 24:
        return { 512, 12 };
    default:
        return { 256, 7 };
    }
}

QString imageName(int size, int scale)
{
    return QStringLiteral("icons_%1%2.png")
        .arg(size)
        .arg(scale == 1 ? QString() : QStringLiteral("@2x"));
}

QString tableName(int size)
{
    return QStringLiteral("icons_%1.inc").arg(size);
}

/// The place of a glyph in its grid; cell 0 is the empty one.
QPoint cell(int size, int index)
{
    return QPoint(index % grid(size).columns, index / grid(size).columns);
}

/// The atlas of a size at a scale, or null and why not.
QImage draw(const QDir &sources, int size, int scale, QString *error)
{
    QImage atlas(QSize(grid(size).size, grid(size).size) * scale,
                 QImage::Format_ARGB32_Premultiplied);
    atlas.fill(Qt::transparent);
    QPainter painter(&atlas);
    const QStringList names = glyphNames(sources, size);
    for (int i = 0; i < names.count(); ++i) {
        const Glyph glyph(sources, size, names.at(i));
        if (!glyph.isValid()) {
            *error = glyph.error();
            return {};
        }
        painter.drawImage(cell(size, i + 1) * (size * scale + kGap), glyph.render(scale));
    }
    return atlas;
}

QByteArray table(const QDir &sources, int size)
{
    QByteArray table = "// Written by tamberui-iconatlas; the names are in its sources.\n";
    const QStringList names = glyphNames(sources, size);
    for (int i = 0; i < names.count(); ++i) {
        const QPoint place = cell(size, i + 1);
        table += "{ \"" + names.at(i).toLatin1() + "\", " + QByteArray::number(place.x()) + ", "
                 + QByteArray::number(place.y()) + " },\n";
    }
    return table;
}

} // namespace

QStringList glyphNames(const QDir &sources, int size)
{
    QFile file(sources.filePath(QStringLiteral("names/%1.txt").arg(size)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromLatin1(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QString drawAtlases(const QDir &sources, const QDir &output, int size)
{
    QString error;
    for (int scale : { 1, 2 }) {
        const QImage image = draw(sources, size, scale, &error);
        if (error.isEmpty())
            error = writePicture(image, output.filePath(imageName(size, scale)));
        if (!error.isEmpty())
            return error;
    }
    QFile file(output.filePath(tableName(size)));
    if (!file.open(QIODevice::WriteOnly) || file.write(table(sources, size)) < 0)
        return file.errorString();
    return {};
}

QString checkAtlases(const QDir &sources, const QDir &output, int size)
{
    QString error;
    for (int scale : { 1, 2 }) {
        const QImage image = draw(sources, size, scale, &error);
        if (error.isEmpty())
            error = comparePicture(image, output.filePath(imageName(size, scale)));
        if (!error.isEmpty())
            return imageName(size, scale) + QLatin1String(": ") + error;
    }
    QFile file(output.filePath(tableName(size)));
    if (!file.open(QIODevice::ReadOnly) || file.readAll() != table(sources, size))
        return tableName(size) + QLatin1String(" is not the table of the names; draw it again");
    return {};
}
