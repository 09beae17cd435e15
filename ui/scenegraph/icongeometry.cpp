#include "icongeometry_p.h"

#include "iconatlas_p.h"

#include <QtCore/QVarLengthArray>

namespace ta::ui {

QHash<QByteArray, QWeakPointer<IconGeometry>> IconGeometry::m_existing;
QMutex IconGeometry::s_lock;

QRectF iconCell(int size, double devicePixelRatio, const QByteArray &name)
{
    const IconAtlas &atlas = getAtlas(size, devicePixelRatio);
    int column = 0;
    int row = 0;
    for (int i = 0; i < atlas.entryCount; ++i) {
        if (name == atlas.entries[i].name) {
            column = atlas.entries[i].column;
            row = atlas.entries[i].row;
            break;
        }
    }
    const float pitch = atlas.cellFraction + atlas.gapFraction;
    return QRectF(column * pitch, row * pitch, atlas.cellFraction, atlas.cellFraction);
}

IconGeometry::IconGeometry(int size, double devicePixelRatio, const QByteArray &name)
    : QSGGeometry(QSGGeometry::defaultAttributes_TexturedPoint2D(), 4)
{
    setDrawingMode(QSGGeometry::DrawTriangleStrip);
    setVertexDataPattern(QSGGeometry::StaticPattern);
    updateTexturedRectGeometry(this, QRectF(0, 0, size, size),
                               iconCell(size, devicePixelRatio, name));
}

QSharedPointer<IconGeometry> IconGeometry::get(int size, double devicePixelRatio,
                                               const QString &name)
{
    // Looking up allocates nothing: with many icons, that would be most of what it costs.
    QVarLengthArray<char, 64> key;
    for (const QChar character : name)
        key.append(character.unicode() > 0xff ? '?' : char(character.unicode()));
    const int nameLength = key.size();
    char suffix[24];
    key.append(suffix, qsnprintf(suffix, sizeof suffix, "#%d%s", size,
                                 devicePixelRatio > 1.1 ? "@2x" : ""));

    const QMutexLocker locker(&s_lock);
    const auto existing = m_existing.constFind(QByteArray::fromRawData(key.data(), key.size()));
    QSharedPointer<IconGeometry> geometry;
    if (existing != m_existing.constEnd())
        geometry = existing->toStrongRef();
    if (!geometry) {
        geometry = QSharedPointer<IconGeometry>::create(size, devicePixelRatio,
                                                        QByteArray(key.data(), nameLength));
        m_existing.insert(QByteArray(key.data(), key.size()), geometry);
    }
    return geometry;
}

} // namespace ta::ui
