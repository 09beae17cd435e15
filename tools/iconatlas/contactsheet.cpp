#include "contactsheet.h"

#include "glyph.h"

#include "pictures/pictures.h"

#include <QtGui/QPainter>

namespace {

/// As the icons' shader draws a full highlight: one colour, near-white parts gone.
QImage tinted(QImage image, const QColor &color)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QColor pixel = QColor::fromRgba(qUnpremultiply(image.pixel(x, y)));
            const qreal luma = 0.2126 * pixel.redF() + 0.7152 * pixel.greenF()
                               + 0.0722 * pixel.blueF();
            const qreal t = qBound(0.0, (luma - 0.85) / 0.05, 1.0);
            const qreal alpha = pixel.alphaF() * (1 - t * t * (3 - 2 * t));
            pixel = color;
            pixel.setAlphaF(alpha);
            image.setPixel(x, y, qPremultiply(pixel.rgba()));
        }
    }
    return image;
}

} // namespace

QString drawContactSheet(const QDir &sources, int size, const QStringList &names,
                         const QString &picture)
{
    const int zoom = 96 / size;
    const QSize cell(size * zoom + size * 2 + 100, size * zoom + 30);
    const int columns = 6;
    QImage image(cell.width() * columns, cell.height() * ((names.count() + columns - 1) / columns),
                 QImage::Format_RGB32);
    image.fill(QColor(0xEB, 0xEB, 0xEB));
    QPainter painter(&image);
    QFont font = painter.font();
    font.setPixelSize(11);
    painter.setFont(font);
    for (int i = 0; i < names.count(); ++i) {
        const Glyph glyph(sources, size, names.at(i));
        if (!glyph.isValid())
            return glyph.error();
        const QImage once = glyph.render(1);
        const QImage twice = glyph.render(2);
        const QPoint corner(i % columns * cell.width() + 8, i / columns * cell.height() + 8);
        painter.fillRect(QRect(corner, QSize(size * zoom, size * zoom)), Qt::white);
        painter.drawImage(QRect(corner, QSize(size * zoom, size * zoom)), once);
        int x = corner.x() + size * zoom + 6;
        painter.drawImage(x, corner.y(), twice);
        int y = corner.y() + size * 2 + 4;
        const QColor grounds[] = { Qt::white, QColor(0xEB, 0xEB, 0xEB), QColor(0xBA, 0xD6, 0xBD),
                                   QColor(0x33, 0x33, 0x33) };
        for (const QColor &ground : grounds) {
            painter.fillRect(x, y, size + 2, size + 2, ground);
            painter.drawImage(x + 1, y + 1, once);
            x += size + 2;
        }
        x = corner.x() + size * zoom + size * 2 + 10;
        painter.fillRect(x, corner.y(), size + 2, size + 2, QColor(0x45, 0x73, 0x81));
        painter.drawImage(x + 1, corner.y() + 1, tinted(once, Qt::white));
        painter.setPen(Qt::black);
        painter.drawText(corner + QPoint(0, size * zoom + 13), names.at(i));
    }
    painter.end();
    return writePicture(image, picture);
}
