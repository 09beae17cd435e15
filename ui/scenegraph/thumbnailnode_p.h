#pragma once

#include "thumbnailmaterial_p.h"

#include "../foundation/export.h"

#include <QtCore/QHash>
#include <QtCore/QMutex>
#include <QtQuick/QSGGeometryNode>

class QOpenGLContext;
class QQuickWindow;

namespace ta::ui {

/// Draws a texture, which lives as long as the node or until the next one is set. All members run
/// on the render thread of the window.
class TAMBERUI_PRIVATE_EXPORT ThumbnailNode : public QSGGeometryNode
{
public:
    ThumbnailNode();

    /// There is no draw call for a texture that is transparent.
    bool isSubtreeBlocked() const override;

    /// A null \a image stands for the transparent texture.
    void setImage(QQuickWindow *window, const QImage &image);
    QSize textureSize() const;
    void setEnabled(bool enabled);
    void setRect(const QRect &rect);

    /// The transparent texture of the window's graphics context. All nodes there share it.
    static QSharedPointer<QSGTexture> fallbackTexture(QQuickWindow *window);

private:
    ThumbnailState *state() const;

    QSGGeometry m_geometry;
    bool m_hasPicture = false;

    // Written on the render threads of all windows, under the lock. A texture belongs to the
    // context that it was made in and dies with the last node there: a window with a render thread
    // has a context of its own, windows without render threads share one.
    static QHash<QOpenGLContext *, QWeakPointer<QSGTexture>> m_fallbackTexture;
    static QMutex s_fallbackLock;
};

} // namespace ta::ui
