/*
    Renders the compiled-in images from their vector sources, and checks that the committed images
    still are what the sources draw.

        tamberui-artwork render <repository>
        tamberui-artwork check  <repository>
*/

#include "pictures/pictures.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtSvg/QSvgRenderer>

#include <cstdio>

namespace {

const char *const kSources = "tools/artwork/sources";
const char *const kLibrary = "ui/images";
const char *const kKit = "kit/images";

/// One PNG to draw: the source's base name, the size at scale 1, the scale to draw it at, and the
/// folder that it goes to.
struct Artwork
{
    const char *name;
    QSize size;
    int scale = 1;
    const char *folder = kLibrary;

    QString sourceName() const
    {
        return QStringLiteral("%1/%2.svg").arg(QLatin1String(kSources), QLatin1String(name));
    }

    QString imageName() const
    {
        return QLatin1String(folder) + QLatin1Char('/') + QLatin1String(name)
               + (scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale))
               + QLatin1String(".png");
    }
};

// The components lay themselves out around these sizes, so they are a promise of their own and
// not whatever a source happens to say.
const Artwork artworks[] = {
    { "checkmark", { 18, 18 } },
    { "checkmark", { 18, 18 }, 2, kKit },
    { "color-hue-saturation-handle", { 13, 13 } },
    { "color-hue-saturation-handle", { 13, 13 }, 2 },
    { "color-lightness-handle", { 25, 17 } },
    { "color-lightness-handle", { 25, 17 }, 2 },
    { "color-transparent", { 22, 22 } },
    { "color-transparent", { 22, 22 }, 2, kKit },
    { "dialog-shadow", { 75, 75 } },
    { "dialog-shadow", { 75, 75 }, 2, kKit },
    { "dropdown-indicator", { 10, 5 } },
    { "dropdown-indicator", { 10, 5 }, 2, kKit },
    { "infotip-peak-down", { 19, 10 } },
    { "infotip-peak-down", { 19, 10 }, 2, kKit },
    { "infotip-peak-up", { 19, 10 } },
    { "infotip-peak-up", { 19, 10 }, 2, kKit },
    { "loadindicator", { 128, 128 } },
    { "progressbar-overlay", { 17, 10 } },
    { "spinbox-arrow-down", { 7, 4 } },
    { "spinbox-arrow-down", { 7, 4 }, 2, kKit },
    { "spinbox-arrow-up", { 7, 4 } },
    { "spinbox-arrow-up", { 7, 4 }, 2, kKit },
    { "tooltip-border", { 28, 36 } },
    { "tooltip-border", { 28, 36 }, 2, kKit },
};

/// An image, or why there is none.
struct Drawing
{
    QImage image;
    QString error;
};

Drawing draw(const Artwork &artwork, const QDir &repository)
{
    QSvgRenderer renderer(repository.filePath(artwork.sourceName()));
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
QString render(const Artwork &artwork, const QDir &repository)
{
    const Drawing drawing = draw(artwork, repository);
    if (drawing.image.isNull())
        return drawing.error;
    return writePicture(drawing.image, repository.filePath(artwork.imageName()));
}

/// Compares one committed image with its source; empty when they agree.
QString check(const Artwork &artwork, const QDir &repository)
{
    const Drawing drawing = draw(artwork, repository);
    if (drawing.image.isNull())
        return drawing.error;
    return comparePicture(drawing.image, repository.filePath(artwork.imageName()));
}

} // namespace

int main(int argc, char **argv)
{
    // Images and vectors without text need neither fonts nor a platform, hence no GUI application.
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments().mid(1);
    const QString command = arguments.value(0);
    if (arguments.size() != 2
        || (command != QLatin1String("render") && command != QLatin1String("check"))) {
        std::fputs("usage: tamberui-artwork render|check <repository>\n", stderr);
        return 2;
    }

    const QDir repository(arguments.at(1));
    const auto process = command == QLatin1String("render") ? render : check;

    int failures = 0;
    for (const Artwork &artwork : artworks) {
        const QString error = process(artwork, repository);
        if (error.isEmpty())
            continue;
        std::fprintf(stderr, "%s: %s\n", qPrintable(artwork.imageName()), qPrintable(error));
        ++failures;
    }
    return failures == 0 ? 0 : 1;
}
