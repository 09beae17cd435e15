#include "pictures.h"

#include <QtCore/QFile>
#include <QtGui/QPainter>

namespace {

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

} // namespace

QImage drawPicture(const QSize &size, const std::function<void(QPainter *)> &draw)
{
    constexpr int oversampling = 8;
    QImage canvas(size * oversampling, QImage::Format_RGBA64_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    draw(&painter);
    painter.end();
    return canvas.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QString writePicture(const QImage &picture, const QString &fileName)
{
    // Quality 0 is the smallest file: a PNG loses nothing by it.
    return picture.save(fileName, "PNG", 0) ? QString() : QStringLiteral("cannot be written");
}

QString comparePicture(const QImage &picture, const QString &fileName)
{
    constexpr int tolerance = 2;

    const QString error = formatError(fileName);
    if (!error.isEmpty())
        return error;
    const QImage committed(fileName);
    if (committed.isNull())
        return QStringLiteral("the PNG is damaged");
    if (committed.size() != picture.size()) {
        return QStringLiteral("%1 x %2 pixels instead of %3 x %4")
            .arg(committed.width())
            .arg(committed.height())
            .arg(picture.width())
            .arg(picture.height());
    }
    const int difference = largestDifference(committed, picture);
    if (difference > tolerance)
        return QStringLiteral("differs from its source by up to %1 levels; draw it again")
            .arg(difference);
    return {};
}
