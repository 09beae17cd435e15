#include "icongeometry_p.h"

#include "iconatlas_p.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

namespace ta::ui {

QHash<QByteArray, QWeakPointer<IconGeometry>> IconGeometry::m_existing;
QMutex IconGeometry::s_lock;
QByteArray IconGeometry::s_key;

namespace {

constexpr int kKeySize = 64; // enough for all names

} // namespace

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
    const QMutexLocker locker(&s_lock);
    // Looking up allocates nothing: with many icons, that would be most of what it costs.
    QByteArray &key = s_key;
    key.reserve(kKeySize); // and keep that
    key.resize(name.size());
    std::transform(name.begin(), name.end(), key.begin(), [](QChar character) {
        return character.unicode() > 0xff ? '?' : char(character.unicode());
    });
    key += '#';
    char digits[std::numeric_limits<int>::digits10 + 2];
    key.append(digits, int(std::to_chars(digits, std::end(digits), size).ptr - digits));
    if (devicePixelRatio > 1.1)
        key += "@2x";

    const auto existing = m_existing.constFind(key);
    QSharedPointer<IconGeometry> geometry;
    if (existing != m_existing.constEnd())
        geometry = existing->toStrongRef();
    if (!geometry) {
        geometry = QSharedPointer<IconGeometry>::create(size, devicePixelRatio,
                                                        key.left(name.size()));
        m_existing.insert(QByteArray(key.constData(), key.size()), geometry);
    }
    return geometry;
}

} // namespace ta::ui
