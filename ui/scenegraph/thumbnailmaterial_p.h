#pragma once

#include <QtCore/QSharedPointer>
#include <QtQuick/QSGSimpleMaterial>
#include <QtQuick/QSGTexture>

namespace ta::ui {

/// What the thumbnails' shader needs.
struct ThumbnailState
{
    bool enabled = true; ///< otherwise grey, at half strength
    QSharedPointer<QSGTexture> texture;
};

using ThumbnailMaterial = QSGSimpleMaterial<ThumbnailState>;

/// Draws a picture as it is, or in grey at half strength.
class ThumbnailShader : public QSGSimpleMaterialShader<ThumbnailState>
{
public:
    static QSGMaterialShader *createShader();
    static ThumbnailMaterial *createMaterial();

    QList<QByteArray> attributes() const override;
    void resolveUniforms() override;
    void updateState(const ThumbnailState *state, const ThumbnailState *oldState) override;

protected:
    const char *vertexShader() const override;
    const char *fragmentShader() const override;

private:
    int m_source = -1;
    int m_enabled = -1;
};

} // namespace ta::ui
