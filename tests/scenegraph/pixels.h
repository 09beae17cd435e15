#pragma once

#include "support/colors.h"
#include "support/scene.h"

#include <QtGui/QImage>
#include <QtTest/QtTest>

#include <cmath>
#include <functional>

namespace ta::test {

/// What the middle of a device pixel, in device pixels from the window's top-left corner, has to
/// look like; an invalid colour where it could be the one or the other.
using Expected = std::function<QColor(const QPointF &pixel)>;

/// Compares all pixels of the window with what is expected. Returns the first difference, or an
/// empty string; says so, too, where too much was left open for the comparison to be worth
/// anything.
inline QString firstDifference(QQuickWindow *window, const Expected &expected)
{
    // A window that was shown just now may be taken away and mapped again by the window manager.
    QImage picture;
    const bool grabbed = QTest::qWaitFor([&] {
        picture = window->isExposed() ? window->grabWindow() : QImage();
        return !picture.isNull();
    });
    if (!grabbed)
        return QStringLiteral("There is no picture");
    const QSize size = window->size() * window->effectiveDevicePixelRatio();
    if (picture.size() != size)
        return QStringLiteral("The picture measures %1 x %2 pixels")
            .arg(picture.width())
            .arg(picture.height());
    int open = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QColor wanted = expected(QPointF(x + 0.5, y + 0.5));
            if (!wanted.isValid()) {
                ++open;
                continue;
            }
            const QColor found = picture.pixelColor(x, y);
            if (!isNear(found, wanted, 1)) // the last bit belongs to the driver
                return QStringLiteral("%1 instead of %2 at %3, %4")
                    .arg(found.name(), wanted.name())
                    .arg(x)
                    .arg(y);
        }
    }
    return open * 20 > size.width() * size.height() ? QStringLiteral("Too much is open")
                                                    : QString();
}

/// What is left after taking \a period away as often as possible; never negative.
inline double modulo(double value, double period)
{
    return value - period * std::floor(value / period);
}

/// A white window that items are put into by hand.
inline QString whiteWindow()
{
    return QStringLiteral("Rectangle { anchors.fill: parent }");
}
const QSize kWindow(240, 160);

} // namespace ta::test
