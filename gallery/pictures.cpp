#include "pictures.h"

#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtCore/QUrl>
#include <QtCore/QtMath>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace {

constexpr int kWallPictures = 16;
constexpr QSize kWallSize(960, 640);

struct Sample
{
    const char *file;
    const char *format;
    QSize size;
};
constexpr Sample kSamples[] = {
    { "bay.jpg", "JPEG", { 3000, 2000 } },   { "ridge.png", "PNG", { 1200, 800 } },
    { "tower.jpg", "JPEG", { 600, 1200 } },  { "shore.bmp", "BMP", { 640, 640 } },
    { "valley.ppm", "PPM", { 1600, 500 } },  { "hill.xpm", "XPM", { 160, 120 } },
    { "badge.png", "PNG", { 256, 256 } },    { "tile.ico", "ICO", { 48, 48 } },
    { "drawing.svg", "SVG", { 1200, 900 } }, { "notes.txt", nullptr, { 0, 0 } },
};

// One line of hills from the left to the right edge, closed below.
QPainterPath hills(const QSizeF &size, qreal horizon, qreal roughness, QRandomGenerator &random)
{
    const qreal phase = random.generateDouble() * 2 * M_PI;
    const qreal waves = 1 + random.generateDouble() * 2;
    const qreal height = size.height();
    QPainterPath path(QPointF(0, height));
    constexpr int kSteps = 64;
    for (int i = 0; i <= kSteps; ++i) {
        const qreal t = qreal(i) / kSteps;
        const qreal wave = qSin(phase + t * waves * 2 * M_PI) * 0.6
                           + qSin(phase * 3 + t * waves * 5 * M_PI) * 0.3
                           + qSin(phase * 7 + t * waves * 13 * M_PI) * 0.1;
        path.lineTo(t * size.width(), (horizon - wave * roughness) * height);
    }
    path.lineTo(size.width(), height);
    path.closeSubpath();
    return path;
}

// Sky, sun and hills; each number has colours and lines of its own.
void paintLandscape(QPainter *painter, const QSizeF &size, uint number)
{
    QRandomGenerator random(number * 7919 + 17);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    const qreal hue = std::fmod(0.54 + number * 0.381966, 1.0); // far from the ones before
    const auto color = [](qreal h, qreal saturation, qreal lightness) {
        return QColor::fromHslF(std::fmod(h + 1, 1.0), saturation, lightness);
    };
    QLinearGradient sky(0, 0, 0, size.height() * 0.75);
    sky.setColorAt(0, color(hue, 0.38, 0.56));
    sky.setColorAt(1, color(hue + 0.08, 0.50, 0.90));
    painter->fillRect(QRectF(QPointF(), size), sky);

    const QPointF sun((0.2 + random.generateDouble() * 0.6) * size.width(),
                      (0.18 + random.generateDouble() * 0.2) * size.height());
    const qreal radius = qMin(size.width(), size.height()) * 0.09;
    painter->setBrush(QColor(0xff, 0xf4, 0xd6));
    painter->drawEllipse(sun, radius, radius);

    constexpr int kLayers = 4;
    for (int layer = 0; layer < kLayers; ++layer) {
        const qreal depth = qreal(layer) / (kLayers - 1);
        painter->setBrush(color(hue + 0.02 * layer, 0.22 + 0.1 * depth, 0.66 - 0.44 * depth));
        painter->drawPath(hills(size, 0.50 + 0.13 * layer, 0.13 - 0.025 * layer, random));
    }
}

QImage landscape(const QSize &size, uint number)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    paintLandscape(&painter, size, number);
    return image;
}

// With transparent corners.
QImage badge(const QSize &size, uint number)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath circle;
    circle.addEllipse(QRectF(QPointF(), size));
    painter.setClipPath(circle);
    paintLandscape(&painter, size, number);
    return image;
}

QByteArray drawing()
{
    return R"(<svg xmlns="http://www.w3.org/2000/svg" width="1200" height="900">
<rect width="1200" height="900" fill="#f4efe6"/>
<circle cx="820" cy="300" r="120" fill="#e8b04b"/>
<path d="M0 640 L320 300 L560 560 L760 380 L1200 760 V900 H0 Z" fill="#4f6175"/>
<path d="M0 760 L260 560 L640 800 L900 640 L1200 800 V900 H0 Z" fill="#2f3b4a"/>
</svg>)";
}

} // namespace

Pictures::Pictures(QObject *parent) : QObject(parent)
{
    uint number = 0;
    for (const Sample &sample : kSamples) {
        const QString name = QLatin1String(sample.file);
        QString path = m_folder.filePath(name);
        if (name.endsWith(QLatin1String(".svg")) || name.endsWith(QLatin1String(".txt"))) {
            QFile file(path);
            if (file.open(QIODevice::WriteOnly))
                file.write(sample.format ? drawing() : "This file is no picture.");
        } else if (name == QLatin1String("badge.png") || name.endsWith(QLatin1String(".ico"))) {
            path = addFile(name, badge(sample.size, number));
        } else {
            path = addFile(name, landscape(sample.size, number));
        }
        m_samples.append(QVariantMap {
            { QStringLiteral("url"), QUrl::fromLocalFile(path) },
            { QStringLiteral("format"), QLatin1String(sample.format) },
            { QStringLiteral("width"), sample.size.width() },
            { QStringLiteral("height"), sample.size.height() },
        });
        ++number;
    }
    for (int i = 0; i < kWallPictures; ++i) {
        const QString path = addFile(QStringLiteral("wall-%1.jpg").arg(i),
                                     landscape(kWallSize, 100 + uint(i)));
        m_wall.append(QUrl::fromLocalFile(path));
    }
}

Pictures::~Pictures() = default;

QSize Pictures::wallSize() const
{
    return kWallSize;
}

QString Pictures::addFile(const QString &name, const QImage &picture)
{
    const QString path = m_folder.filePath(name);
    if (!picture.save(path))
        qWarning("gallery: cannot write %s", qUtf8Printable(path));
    return path;
}
