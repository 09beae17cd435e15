#include "support/input.h"

#include <QtGui/QWheelEvent>
#include <QtQuick/QQuickItem>
#include <QtTest/QtTest>

namespace ta::test {

constexpr int kNotch = 120; // eighths of a degree, as QWheelEvent counts

void press(QWindow *window, const QPoint &position, Qt::MouseButton button)
{
    QTest::mousePress(window, button, {}, position);
}

void move(QWindow *window, const QPoint &position)
{
    // The platform's cursor outlives windows: a move that changes nothing would reach no item.
    QTest::mouseMove(window, position + QPoint(1, 0));
    QTest::mouseMove(window, position);
}

void release(QWindow *window, const QPoint &position, Qt::MouseButton button)
{
    QTest::mouseRelease(window, button, {}, position);
}

void click(QWindow *window, const QPoint &position, Qt::MouseButton button)
{
    press(window, position, button);
    release(window, position, button);
}

void wheel(QWindow *window, const QPoint &position, int steps)
{
    QWheelEvent event(position, window->mapToGlobal(position), QPoint(), QPoint(0, steps * kNotch),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window, &event);
}

QPoint center(const QQuickItem *item)
{
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

} // namespace ta::test
