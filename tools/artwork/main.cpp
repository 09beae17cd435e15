/*
    Renders the compiled-in images from their vector sources, and checks that the committed images
    still are what the sources draw.

        tamberui-artwork render <sources-dir> <output-dir>
        tamberui-artwork check  <sources-dir> <output-dir>
*/

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QImage>
#include <QtGui/QPainter>
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

    // Drawn large and averaged down: Qt approximates curves by lines on a grid of its own, which at
    // these sizes leaves the two halves of a ring several levels apart. 16 bits a channel, because
    // the layers of a soft shadow are so faint that rounding each of them would add up to bands.
    constexpr int oversampling = 8;
    const QSize size = artwork.size * artwork.scale;
    QImage canvas(size * oversampling, QImage::Format_RGBA64_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    renderer.render(&painter);
    painter.end();

    // Premultiplied up to the end, so that a pixel without alpha keeps no colour either.
    return { canvas.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                 .convertToFormat(QImage::Format_ARGB32_Premultiplied),
             {} };
}

/// Empty when the file opens as a PNG of 8-bit RGBA that is not interlaced. QImage converts
/// whatever it reads, so only the file's own header can tell.
QString formatError(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();

    // Signature (8 bytes), length and name of the first chunk (4 each), width and height (4 each).
    const QByteArray header = file.read(29);
    if (header.size() < 29 || !header.startsWith("\x89PNG\r\n\x1a\n")
        || header.mid(12, 4) != "IHDR")
        return QStringLiteral("not a PNG file");

    const int bitDepth = header.at(24);
    const int colorType = header.at(25);
    const int interlace = header.at(28);
    if (bitDepth != 8 || colorType != 6 || interlace != 0) {
        return QStringLiteral("not plain 8-bit RGBA: bit depth %1, colour type %2, interlace %3")
            .arg(bitDepth)
            .arg(colorType)
            .arg(interlace);
    }
    return {};
}

/// The largest difference between two images of one size, in levels of any channel. Measured with
/// the alpha multiplied in, as the images reach the screen: the colour of a pixel that is all but
/// transparent shows nowhere and is mostly rounding.
int largestDifference(const QImage &left, const QImage &right)
{
    const QImage a = left.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const QImage b = right.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        const uchar *lineA = a.constScanLine(y);
        const uchar *lineB = b.constScanLine(y);
        for (int i = 0; i < 4 * a.width(); ++i)
            largest = qMax(largest, qAbs(lineA[i] - lineB[i]));
    }
    return largest;
}

/// Writes one image; empty when that worked.
QString render(const Artwork &artwork, const QDir &sources, const QDir &output)
{
    const Drawing drawing = draw(artwork, sources);
    if (drawing.image.isNull())
        return drawing.error;
    // Quality 0 is the smallest file: a PNG loses nothing by it.
    if (!drawing.image.save(output.filePath(artwork.imageName()), "PNG", 0))
        return QStringLiteral("cannot be written");
    return {};
}

/// Compares one committed image with its source; empty when they agree.
QString check(const Artwork &artwork, const QDir &sources, const QDir &output)
{
    // Room for the rounding of another Qt or processor, too little for a change of the drawing.
    constexpr int tolerance = 2;

    const Drawing drawing = draw(artwork, sources);
    if (drawing.image.isNull())
        return drawing.error;

    const QString fileName = output.filePath(artwork.imageName());
    const QString error = formatError(fileName);
    if (!error.isEmpty())
        return error;

    const QImage committed(fileName);
    if (committed.isNull())
        return QStringLiteral("the PNG is damaged");
    if (committed.size() != drawing.image.size()) {
        return QStringLiteral("%1 x %2 pixels instead of %3 x %4")
            .arg(committed.width())
            .arg(committed.height())
            .arg(drawing.image.width())
            .arg(drawing.image.height());
    }
    const int difference = largestDifference(committed, drawing.image);
    if (difference > tolerance) {
        return QStringLiteral("differs from %1 by up to %2 levels; render it again")
            .arg(artwork.sourceName())
            .arg(difference);
    }
    return {};
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
