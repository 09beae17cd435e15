#include "thumbnailnode_p.h"

#include "resourcedeleter_p.h"

#include <QtQuick/QQuickWindow>

namespace ta::ui {

namespace {

constexpr int kVertexCount = 4;

QSharedPointer<QSGTexture> createTexture(QQuickWindow *window, const QImage &image)
{
    QSGTexture *texture = window->createTextureFromImage(image);
    if (!texture)
        return {};
    texture->setFiltering(QSGTexture::Linear); // a small picture is stretched to its item
    return QSharedPointer<QSGTexture>(texture, ResourceDeleter<QSGTexture>(window));
}

} // namespace

QHash<QOpenGLContext *, QWeakPointer<QSGTexture>> ThumbnailNode::m_fallbackTexture;
QMutex ThumbnailNode::s_fallbackLock;

ThumbnailNode::ThumbnailNode()
    : m_geometry(QSGGeometry::defaultAttributes_TexturedPoint2D(), kVertexCount)
{
    m_geometry.setDrawingMode(QSGGeometry::DrawTriangleStrip);
    setGeometry(&m_geometry);
    setMaterial(ThumbnailShader::createMaterial());
    setFlag(OwnsMaterial);
    setRect({});
}

bool ThumbnailNode::isSubtreeBlocked() const
{
    return !m_hasPicture;
}

void ThumbnailNode::setImage(QQuickWindow *window, const QImage &image)
{
    QSharedPointer<QSGTexture> texture;
    if (!image.isNull())
        texture = createTexture(window, image);
    DirtyState dirty = DirtyMaterial;
    if (bool(texture) != m_hasPicture)
        dirty |= DirtySubtreeBlocked;
    m_hasPicture = bool(texture);
    state()->texture = texture ? texture : fallbackTexture(window);
    markDirty(dirty);
}

QSize ThumbnailNode::textureSize() const
{
    return state()->texture ? state()->texture->textureSize() : QSize();
}

void ThumbnailNode::setEnabled(bool enabled)
{
    state()->enabled = enabled;
    markDirty(DirtyMaterial);
}

void ThumbnailNode::setRect(const QRect &rect)
{
    const float left = float(rect.x());
    const float top = float(rect.y());
    const float right = left + float(rect.width());
    const float bottom = top + float(rect.height());
    QSGGeometry::TexturedPoint2D *vertices = m_geometry.vertexDataAsTexturedPoint2D();
    vertices[0].set(left, top, 0, 0);
    vertices[1].set(right, top, 1, 0);
    vertices[2].set(left, bottom, 0, 1);
    vertices[3].set(right, bottom, 1, 1);
    markDirty(DirtyGeometry);
}

QSharedPointer<QSGTexture> ThumbnailNode::fallbackTexture(QQuickWindow *window)
{
    QOpenGLContext *context = window->openglContext();
    {
        const QMutexLocker locker(&s_fallbackLock);
        if (const auto texture = m_fallbackTexture.value(context).toStrongRef())
            return texture;
    }

    // No other thread makes this one: a context is used on one thread.
    QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const auto texture = createTexture(window, image);
    const QMutexLocker locker(&s_fallbackLock);
    for (auto entry = m_fallbackTexture.begin(); entry != m_fallbackTexture.end();)
        entry = entry->isNull() ? m_fallbackTexture.erase(entry) : std::next(entry);
    m_fallbackTexture.insert(context, texture);
    return texture;
}

ThumbnailState *ThumbnailNode::state() const
{
    return static_cast<ThumbnailMaterial *>(material())->state();
}

} // namespace ta::ui
