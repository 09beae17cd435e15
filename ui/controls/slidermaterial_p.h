#pragma once

#include <QtQuick/QSGMaterial>

namespace ta::ui {

// The materials of a slider's rectangles: everything that differs between two of them is in the
// vertices, so all materials of a kind are the same, and rectangles of many sliders share a draw
// call.

/// Fades each edge over one pixel of the screen.
class SliderAAMaterial : public QSGMaterial
{
public:
    SliderAAMaterial() { setFlag(Blending); }

    QSGMaterialType *type() const override;
    QSGMaterialShader *createShader() const override;
    int compare(const QSGMaterial *other) const override;
};

/// Hard edges.
class SliderSimpleMaterial : public QSGMaterial
{
public:
    QSGMaterialType *type() const override;
    QSGMaterialShader *createShader() const override;
    int compare(const QSGMaterial *other) const override;
};

} // namespace ta::ui
