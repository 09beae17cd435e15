#include "glyph.h"

#include "pictures/pictures.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

namespace {

QString read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What stands inside the root element of \a document; null if there is none.
QString body(const QString &document)
{
    static const QRegularExpression root(QStringLiteral("<svg[^>]*>(.*)</svg>"),
                                         QRegularExpression::DotMatchesEverythingOption);
    return root.match(document).captured(1);
}

} // namespace

Glyph::Glyph(const QDir &sources, int size, const QString &name) : m_size(size)
{
    const QString path = sources.filePath(QStringLiteral("glyphs/%1/%2.svg").arg(size).arg(name));
    const QString drawing = body(read(path));
    if (drawing.isEmpty()) {
        m_error = QStringLiteral("%1 cannot be read").arg(path);
        return;
    }
    m_motifs = body(read(sources.filePath(QStringLiteral("motifs/%1.svg").arg(size))));
    m_parts[0] = drawing.section(QLatin1String("<!-- cut -->"), 0, 0);
    const QString rest = drawing.section(QLatin1String("<!-- cut -->"), 1);
    m_parts[1] = rest.section(QLatin1String("<!-- over -->"), 0, 0);
    m_parts[2] = rest.section(QLatin1String("<!-- over -->"), 1);
    for (const QString &part : m_parts) {
        if (!QSvgRenderer(document(part)).isValid())
            m_error = QStringLiteral("%1 is no SVG that can be drawn").arg(path);
    }
}

QByteArray Glyph::document(const QString &part) const
{
    return QStringLiteral(
               "<svg xmlns=\"http://www.w3.org/2000/svg\""
               " xmlns:xlink=\"http://www.w3.org/1999/xlink\""
               " width=\"%1\" height=\"%1\" viewBox=\"0 0 %1 %1\"><defs>%2</defs>%3</svg>")
        .arg(QString::number(m_size), m_motifs, part)
        .toUtf8();
}

QImage Glyph::render(int scale) const
{
    return drawPicture(QSize(m_size, m_size) * scale, [this](QPainter *painter) {
        for (int part = 0; part < 3; ++part) {
            painter->setCompositionMode(part == 1 ? QPainter::CompositionMode_DestinationOut
                                                  : QPainter::CompositionMode_SourceOver);
            QSvgRenderer(document(m_parts[part])).render(painter);
        }
    });
}
