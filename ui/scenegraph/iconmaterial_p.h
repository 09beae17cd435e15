#pragma once

#include "../foundation/export.h"

#include <QtGui/QColor>
#include <QtQuick/QSGSimpleMaterial>
#include <QtQuick/QSGTexture>

namespace ta::ui {

/// What the icons' shader needs. Icons whose states are equal are drawn in one call.
struct TAMBERUI_PRIVATE_EXPORT IconState
{
    float disabled = 0; ///< 0 to 1
    float highlight = 0; ///< 0 to 1
    QColor highlightColor = Qt::white;
    QSGTexture *texture = nullptr; ///< not owned

    /// The order in which the renderer sorts materials.
    int compare(const IconState *other) const;
};

using IconMaterial = QSGSimpleMaterialComparableMaterial<IconState>;

/// Draws a glyph, greyed out or tinted.
class IconShader : public QSGSimpleMaterialShader<IconState>
{
public:
    IconShader();

    static QSGMaterialShader *createShader();

    QList<QByteArray> attributes() const override;
    void resolveUniforms() override;
    void updateState(const IconState *state, const IconState *oldState) override;

private:
    int m_disabled = -1;
    int m_highlight = -1;
    int m_highlightColor = -1;
};

} // namespace ta::ui
