#include "focusitem_p.h"

#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace ta::ui {

QQuickItem *focusItem(const QQuickWindow *window)
{
    if (!window)
        return nullptr;
    if (QQuickItem *item = window->activeFocusItem())
        return item;
    QQuickItem *item = window->contentItem();
    while (item->isFocusScope() && item->scopedFocusItem())
        item = item->scopedFocusItem();
    return item == window->contentItem() ? nullptr : item;
}

bool isInside(const QQuickItem *ancestor, const QQuickItem *item)
{
    return ancestor && item && (ancestor == item || ancestor->isAncestorOf(item));
}

} // namespace ta::ui
