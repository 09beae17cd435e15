#pragma once

#include "../foundation/export.h"

#include <QtGui/QColor>
#include <QtQuick/QSGGeometryNode>

namespace ta::ui {

/// Draws a border. Geometry and material belong to the node.
class TAMBERUI_PRIVATE_EXPORT BorderNode : public QSGGeometryNode
{
public:
    /// Fits the frame to an item of \a size.
    virtual void updateGeometry(const QSizeF &size, float borderWidth) = 0;
    virtual void updateMaterial(const QColor &color, float dashWidth, float gapWidth) = 0;
};

class TAMBERUI_PRIVATE_EXPORT SolidBorderNode : public BorderNode
{
public:
    SolidBorderNode();

    void updateGeometry(const QSizeF &size, float borderWidth) override;
    /// The widths are those of dashes; a solid border has none.
    void updateMaterial(const QColor &color, float dashWidth, float gapWidth) override;
};

/// What the dash shader draws with.
struct TAMBERUI_PRIVATE_EXPORT DashedBorderData
{
    /// 0 where both look alike; those borders go into one draw call.
    int compare(const DashedBorderData *other) const;

    float red = 0; ///< not multiplied with alpha
    float green = 0;
    float blue = 0;
    float alpha = 0;
    float dash = 0; ///< pixels of the item
    float gap = 0;
};

class TAMBERUI_PRIVATE_EXPORT DashedBorderNode : public BorderNode
{
public:
    DashedBorderNode();

    void updateGeometry(const QSizeF &size, float borderWidth) override;
    void updateMaterial(const QColor &color, float dashWidth, float gapWidth) override;
};

} // namespace ta::ui
