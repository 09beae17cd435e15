/*
    Renders the compiled-in images from their vector sources, and checks that the committed images
    still are what the sources draw.

        tamberui-artwork render <sources-dir> <output-dir>
        tamberui-artwork check  <sources-dir> <output-dir>
*/

#include "pictures/pictures.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtSvg/QSvgRenderer>

#include <cstdio>

namespace {

/// One PNG to draw: the source's base name, the size at scale 1, and the scale to draw it at.
struct Artwork
{
    const char *name;
    QSize size;
    int scale = 1;

    QString sourceName() const { return QString::fromLatin1(name) + QLatin1String(".svg"); }

    QString imageName() const
    {
        return QString::fromLatin1(name)
               + (scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale))
               + QLatin1String(".png");
    }
};

// The components lay themselves out around these sizes, so they are a promise of their own and
// not whatever a source happens to say.
const Artwork artworks[] = {
    { "checkmark", { 18, 18 } },
    { "color-hue-saturation-handle", { 13, 13 } },
    { "color-hue-saturation-handle", { 13, 13 }, 2 },
    { "color-lightness-handle", { 25, 17 } },
    { "color-lightness-handle", { 25, 17 }, 2 },
    { "color-transparent", { 22, 22 } },
    { "dialog-shadow", { 75, 75 } },
    { "dropdown-indicator", { 10, 5 } },
    { "infotip-peak-down", { 19, 10 } },
    { "infotip-peak-up", { 19, 10 } },
    { "loadindicator", { 128, 128 } },
    { "progressbar-overlay", { 17, 10 } },
    { "spinbox-arrow-down", { 7, 4 } },
    { "spinbox-arrow-up", { 7, 4 } },
    { "tooltip-border", { 28, 36 } },
};

/// An image, or why there is none.
struct Drawing
{
    QImage image;
    QString error;
};

Drawing draw(const Artwork &artwork, const QDir &sources)
{
    QSvgRenderer renderer(sources.filePath(artwork.sourceName()));
    if (!renderer.isValid())
        return { {}, QStringLiteral("%1 cannot be read").arg(artwork.sourceName()) };
    if (renderer.defaultSize() != artwork.size) {
        return { {},
                 QStringLiteral("%1 is %2 x %3, not %4 x %5")
                     .arg(artwork.sourceName())
                     .arg(renderer.defaultSize().width())
                     .arg(renderer.defaultSize().height())
                     .arg(artwork.size.width())
                     .arg(artwork.size.height()) };
    }

    const auto paint = [&](QPainter *painter) { renderer.render(painter); };
    return { drawPicture(artwork.size * artwork.scale, paint), {} };
}

/// Writes one image; empty when that worked.
QString render(const Artwork &artwork, const QDir &sources, const QDir &output)
{
    const Drawing drawing = draw(artwork, sources);
    if (drawing.image.isNull())
        return drawing.error;
    return writePicture(drawing.image, output.filePath(artwork.imageName()));
}

/// Compares one committed image with its source; empty when they agree.
QString check(const Artwork &artwork, const QDir &sources, const QDir &output)
{
    const Drawing drawing = draw(artwork, sources);
    if (drawing.image.isNull())
        return drawing.error;
    return comparePicture(drawing.image, output.filePath(artwork.imageName()));
}

} // namespace

int main(int argc, char **argv)
{
    // Images and vectors without text need neither fonts nor a platform, hence no GUI application.
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments().mid(1);
    const QString command = arguments.value(0);
    if (arguments.size() != 3
        || (command != QLatin1String("render") && command != QLatin1String("check"))) {
        std::fputs("usage: tamberui-artwork render|check <sources-dir> <output-dir>\n", stderr);
        return 2;
    }

    const QDir sources(arguments.at(1));
    const QDir output(arguments.at(2));
    const auto process = command == QLatin1String("render") ? render : check;

    int failures = 0;
    for (const Artwork &artwork : artworks) {
        const QString error = process(artwork, sources, output);
        if (error.isEmpty())
            continue;
        std::fprintf(stderr, "%s: %s\n", qPrintable(artwork.imageName()), qPrintable(error));
        ++failures;
    }
    return failures == 0 ? 0 : 1;
}
