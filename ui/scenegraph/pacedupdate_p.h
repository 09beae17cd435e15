#pragma once

class QQuickItem;

namespace ta::ui {

/// Asks for an update of \a item, at once or together with others about 33 ms later.
///
/// For what arrives from other threads by the dozen, at its own pace: a frame for each of them
/// would take the GUI thread's time, and on few processors that of those threads. What arrives
/// alone is not kept waiting. GUI thread only.
void updatePaced(QQuickItem *item);

} // namespace ta::ui
