#pragma once

#include <QtCore/QPoint>
#include <QtCore/Qt>

class QQuickItem;
class QWindow;

namespace ta::test {

// Input as a person gives it: through the window, so that the application's filters, the window and
// the items see it in their order. Positions are in the window, in logical pixels.

void press(QWindow *window, const QPoint &position, Qt::MouseButton button = Qt::LeftButton);
void move(QWindow *window, const QPoint &position);
void release(QWindow *window, const QPoint &position, Qt::MouseButton button = Qt::LeftButton);
void click(QWindow *window, const QPoint &position, Qt::MouseButton button = Qt::LeftButton);
/// Turns the wheel by \a steps notches; upwards (away from the hand) is positive.
void wheel(QWindow *window, const QPoint &position, int steps);

/// The middle of \a item, in its window.
QPoint center(const QQuickItem *item);

} // namespace ta::test
