#pragma once

#include "../foundation/export.h"

#include <QtGui/QColor>
#include <QtQuick/QSGMaterial>

namespace ta::ui {

/// The look of a checker board. The shader needs the item's own origin, so boards are never merged
/// into one draw call.
class TAMBERUI_PRIVATE_EXPORT CheckerBoardMaterial : public QSGMaterial
{
public:
    CheckerBoardMaterial();

    QSGMaterialType *type() const override;
    QSGMaterialShader *createShader() const override;
    int compare(const QSGMaterial *other) const override;

    /// Returns whether anything is different now. Blending is on where a colour is translucent.
    bool update(int tileSize, const QColor &color0, const QColor &color1);

    int tileSize() const { return m_tileSize; }
    QColor color0() const { return m_color0; }
    QColor color1() const { return m_color1; }

private:
    QColor m_color0;
    QColor m_color1;
    int m_tileSize = 0; // logical pixels; never 0 after the first update
};

} // namespace ta::ui
