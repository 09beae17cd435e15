#include "iconnode_p.h"

#include "iconatlas_p.h"
#include "iconimages_p.h"

#include <QtQuick/QQuickWindow>

namespace ta::ui {

QHash<IconNode::TextureKey, QWeakPointer<QSGTexture>> IconNode::m_existing;
QMutex IconNode::s_lock;

IconNode::IconNode() : m_material(IconShader::createShader)
{
    m_material.setFlag(QSGMaterial::Blending);
    setMaterial(&m_material);
}

void IconNode::updateGeometry(int size, double devicePixelRatio, const QString &name)
{
    QSharedPointer<IconGeometry> geometry = IconGeometry::get(size, devicePixelRatio, name);
    if (geometry == m_geometry)
        return;
    setGeometry(geometry.data());
    m_geometry = geometry; // the old one goes only now that the node does not point to it
    setFlag(OwnsGeometry, false);
    markDirty(DirtyGeometry);
}

void IconNode::updateMaterial(QQuickWindow *window, const QString &name, int size, double disabled,
                              double highlight, const QColor &highlightColor)
{
    Q_UNUSED(name) // the texture holds all glyphs of the size
    const QSharedPointer<QSGTexture> texture = atlasTexture(window, size);
    updateMaterial(texture.data(), disabled, highlight, highlightColor);
    if (bool(texture) != bool(m_texture))
        markDirty(DirtySubtreeBlocked);
    m_texture = texture;
}

void IconNode::updateMaterial(QSGTexture *texture, double disabled, double highlight,
                              const QColor &highlightColor)
{
    IconState *state = m_material.state();
    state->texture = texture;
    state->disabled = float(disabled);
    state->highlight = float(highlight);
    state->highlightColor = highlightColor;
    markDirty(DirtyMaterial);
}

bool IconNode::isSubtreeBlocked() const
{
    return !m_texture;
}

QSharedPointer<QSGTexture> IconNode::atlasTexture(QQuickWindow *window, int size)
{
    const double ratio = window->effectiveDevicePixelRatio();
    const TextureKey key(window->openglContext(), iconAtlasKey(size, ratio));
    const IconAtlas &atlas = getAtlas(size, ratio); // which warns each time where there is none
    {
        const QMutexLocker locker(&s_lock);
        const auto existing = m_existing.constFind(key);
        if (existing != m_existing.constEnd() && !existing->isNull())
            return existing->toStrongRef();
    }

    // No other thread makes this one, nor lets it go: a context is used on one thread.
    const QImage image = iconAtlasImage(atlas);
    if (image.isNull())
        return {};
    QSharedPointer<QSGTexture> texture(
        window->createTextureFromImage(image, QQuickWindow::TextureHasAlphaChannel));
    if (texture)
        remember(key, texture);
    return texture;
}

void IconNode::remember(const TextureKey &key, const QWeakPointer<QSGTexture> &texture)
{
    const QMutexLocker locker(&s_lock);
    for (auto entry = m_existing.begin(); entry != m_existing.end();)
        entry = entry->isNull() ? m_existing.erase(entry) : std::next(entry);
    m_existing.insert(key, texture);
}

} // namespace ta::ui
