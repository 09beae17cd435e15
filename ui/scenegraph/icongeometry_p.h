#pragma once

#include "../foundation/export.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QMutex>
#include <QtCore/QRectF>
#include <QtCore/QSharedPointer>
#include <QtCore/QWeakPointer>
#include <QtQuick/QSGGeometry>

namespace ta::ui {

/// The part of an atlas that the glyph \a name takes, in texture coordinates; a name that the atlas
/// does not hold gets the transparent cell. \a name is Latin-1.
TAMBERUI_PRIVATE_EXPORT QRectF iconCell(int size, double devicePixelRatio, const QByteArray &name);

/*!
    The quad of one glyph: \c size logical pixels a side, from the item's top-left corner.

    It never changes, so all icons that show the same glyph share one.
*/
class TAMBERUI_PRIVATE_EXPORT IconGeometry : public QSGGeometry
{
public:
    IconGeometry(int size, double devicePixelRatio, const QByteArray &name);

    /// The geometry for the three values; any render thread may ask.
    static QSharedPointer<IconGeometry> get(int size, double devicePixelRatio, const QString &name);

private:
    // Written on the render threads of all windows, under the lock. Keys stay; what they point to
    // goes with the last node that uses it.
    static QHash<QByteArray, QWeakPointer<IconGeometry>> m_existing;
    static QMutex s_lock;
    static QByteArray s_key; // room for the key that is looked up
};

} // namespace ta::ui
