#pragma once

#include "../foundation/export.h"

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QSizeF>

namespace ta::ui {

/// Where a popup and the layer that carries it go.
struct PopupPlacement
{
    QPoint layer; ///< position of the layer in the window
    int popupX = 0; ///< position of the popup in the layer
    qreal popupY = 0;
    qreal popupHeight = 0;
};

/*!
    Fits a popup of the implicit size \a popup into a window whose content measures \a window.

    \a anchor is the anchor's position in the window, \a trigger the size of the control that the
    anchor belongs to: the popup hangs below the anchor, its left edge on the anchor's. Where it
    would come closer than 10 pixels to the right border it hangs to the left instead, from the
    control's right edge. Where it would come closer than 10 pixels to the lower border it stays
    below, cut to the room there, or goes above the control, whichever side has more room; above,
    its lower edge overlaps the control's border by a pixel. The width is the popup's own business.
*/
TAMBERUI_PRIVATE_EXPORT PopupPlacement placePopup(const QPoint &anchor, const QSize &trigger,
                                                  const QSize &popup, const QSizeF &window);

} // namespace ta::ui
