#pragma once

#include "../foundation/export.h"

#include <QtCore/QSizeF>
#include <QtGui/QColor>
#include <QtQuick/QSGGeometry>

#include <array>

namespace ta::ui {

/// A vertex of a slider's rectangles, as it lies in the vertex buffer.
struct SliderPoint2D
{
    float x; ///< item pixels
    float y;
    float dx; ///< -1 at the left edge, +1 at the right one
    float dy; ///< -1 at the upper edge, +1 at the lower one
    uchar red; ///< not premultiplied
    uchar green;
    uchar blue;
    uchar alpha;
};
static_assert(sizeof(SliderPoint2D) == 20, "what SliderPoint2D_Attributes say");

constexpr int kSliderAttributeCount = 3;
extern TAMBERUI_PRIVATE_EXPORT const QSGGeometry::Attribute
    SliderPoint2D_Attributes[kSliderAttributeCount];
extern TAMBERUI_PRIVATE_EXPORT const QSGGeometry::AttributeSet SliderPoint2D_AttributeSet;

/// A triangle strip: top left, top right, bottom left, bottom right.
using SliderQuad = std::array<SliderPoint2D, 4>;

/// What all rectangles of a slider depend on.
struct SliderFrame
{
    QSizeF size; ///< of the item
    int margin = 0;
    double position = 0; ///< of the value on the track, 0..1
    bool antialiasing = false; ///< then edges lie half a pixel further out, and fade there
};

/// The track: \a height pixels thick, across the middle; its colour runs from \a left to \a right.
TAMBERUI_PRIVATE_EXPORT SliderQuad sliderTrack(const SliderFrame &frame, int height,
                                               const QColor &left, const QColor &right);

/// The handle: \a width pixels wide, as high as the item, centred on a whole pixel at the value.
TAMBERUI_PRIVATE_EXPORT SliderQuad sliderHandle(const SliderFrame &frame, int width,
                                                const QColor &color);

/// The bar from \a origin (a fraction of the track) to the value, whichever is further left; its
/// ends do not reach further out with anti-aliasing, but further in.
TAMBERUI_PRIVATE_EXPORT SliderQuad sliderValueBar(const SliderFrame &frame, int height,
                                                  float origin, const QColor &color);

} // namespace ta::ui
