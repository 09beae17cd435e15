#pragma once

#include "icongeometry_p.h"
#include "iconmaterial_p.h"

#include "../foundation/export.h"

#include <QtCore/QHash>
#include <QtCore/QMutex>
#include <QtQuick/QSGGeometryNode>

class QOpenGLContext;
class QQuickWindow;

namespace ta::ui {

/// Draws one icon. It shares its geometry with all icons that show the same glyph, and its texture
/// with all of the same size in the same graphics context. Without a texture it draws nothing.
class TAMBERUI_PRIVATE_EXPORT IconNode : public QSGGeometryNode
{
public:
    IconNode();

    void updateGeometry(int size, double devicePixelRatio, const QString &name);
    void updateMaterial(QQuickWindow *window, const QString &name, int size, double disabled,
                        double highlight, const QColor &highlightColor);
    void updateMaterial(QSGTexture *texture, double disabled, double highlight,
                        const QColor &highlightColor);

    bool isSubtreeBlocked() const override;

private:
    using TextureKey = QPair<QOpenGLContext *, int>;

    static QSharedPointer<QSGTexture> atlasTexture(QQuickWindow *window, int size);
    static void remember(const TextureKey &key, const QWeakPointer<QSGTexture> &texture);

    IconMaterial m_material; // a part of the node: one allocation less for each icon
    QSharedPointer<IconGeometry> m_geometry;
    QSharedPointer<QSGTexture> m_texture;

    // Written on the render threads of all windows, under the lock. A texture belongs to the
    // context that it was made in and dies with the last node there, on that context's thread: a
    // window with a render thread has a context of its own, windows without render threads share
    // one.
    static QHash<TextureKey, QWeakPointer<QSGTexture>> m_existing;
    static QMutex s_lock;
};

} // namespace ta::ui
