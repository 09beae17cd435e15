#pragma once

class QQuickItem;

namespace ta::ui {

/// So many event loops of this thread run inside each other, that of the application included even
/// where it has not begun yet.
int loopLevel();

/// Destroys \a item, which was made at \a itemLevel, after \a delay ms; later where another event
/// loop runs inside of that one then: the item's own code may have started it, from a click for
/// instance, and may not be destroyed before it returns.
void destroyLater(QQuickItem *item, int itemLevel, int delay);

} // namespace ta::ui
