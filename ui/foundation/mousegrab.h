#pragma once

#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace ta::ui {

/// Ends the mouse grab of \a item if it has it. For \c releaseResources(), which is called when an
/// item leaves its window, of items that tell of the end of a grab.
///
/// The window itself ends the grab only after it has taken the item off the list of those to draw.
/// A handler that then changes the item, its colour for instance, would put it on that list again,
/// and there it would stay, even destroyed.
inline void endMouseGrab(QQuickItem *item)
{
    if (item->window() && item->window()->mouseGrabberItem() == item)
        item->ungrabMouse();
}

} // namespace ta::ui
