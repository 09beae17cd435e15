#pragma once

class QQuickItem;
class QQuickWindow;

namespace ta::ui {

/// The item of \a window that has the active focus. In a window that is not active none has: it is
/// the one that gets it back with the window then. Null where there is none, and without a window.
QQuickItem *focusItem(const QQuickWindow *window);

/// Whether \a item is \a ancestor or lies inside of it. Both may be null, which is inside of
/// nothing.
bool isInside(const QQuickItem *ancestor, const QQuickItem *item);

} // namespace ta::ui
