#include "popupplacement_p.h"

#include <QtCore/QtGlobal>

namespace ta::ui {

namespace {

constexpr int kWindowMargin = 10; // kept free between a popup and the window's border

} // namespace

PopupPlacement placePopup(const QPoint &anchor, const QSize &trigger, const QSize &popup,
                          const QSizeF &window)
{
    PopupPlacement placement;
    placement.layer = anchor;

    if (anchor.x() + popup.width() + kWindowMargin > window.width()) {
        placement.popupX = -popup.width();
        placement.layer.rx() += trigger.width();
    }

    const qreal below = window.height() - anchor.y() - kWindowMargin;
    const int above = anchor.y() - trigger.height() - kWindowMargin;
    if (popup.height() <= below) {
        placement.popupHeight = popup.height();
    } else if (below > above) {
        placement.popupHeight = below;
    } else {
        const int height = qMin(above, popup.height());
        placement.popupHeight = height;
        placement.popupY = -height - 2 * trigger.height() + 1;
        placement.layer.ry() += trigger.height();
    }
    return placement;
}

} // namespace ta::ui
