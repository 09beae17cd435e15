// variants: threaded scale2 x11
#include "pixels.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/Border>

#include <climits>

using namespace ta::ui;
using namespace ta::test;

namespace {

struct Look
{
    QRectF area = QRectF(20, 30, 100, 50);
    int width = 2;
    int dash = 8;
    int gap = 4;
    Border::BorderStyle style = Border::Dashed;
    QColor color = Qt::black;

    Border *make(QQuickItem *parent) const
    {
        auto *border = new Border(parent);
        apply(border);
        return border;
    }

    void apply(Border *border) const
    {
        border->setPosition(area.topLeft());
        border->setSize(area.size());
        border->setBorderWidth(width);
        border->setDashWidth(dash);
        border->setGapWidth(gap);
        border->setStyle(style);
        border->setColor(color);
    }

    double distance(double x, double y) const;
    QColor at(const QPointF &position) const;
};

// How far along the border a place of it is.
double Look::distance(double x, double y) const
{
    const double right = area.width() - width;
    const double bottom = area.height() - width;
    const double perX = right / (right - width); // the edges are shorter than what they count
    const double perY = bottom / (bottom - width);
    if (x < width && y < width)
        return x + y < width ? width - y : x;
    if (y < width)
        return x < right ? width + (x - width) * perX : area.width();
    if (x >= right)
        return area.width() + (y < bottom ? (y - width) * perY : bottom);
    if (y >= bottom)
        return area.width() + bottom + (x >= width ? (right - x) * perX : right);
    return area.width() + bottom + right + (bottom - y) * perY;
}

// White where the border is not.
QColor Look::at(const QPointF &position) const
{
    const QPointF inside = position - area.topLeft();
    const QRectF outer(QPointF(), area.size());
    if (!outer.contains(inside) || outer.adjusted(width, width, -width, -width).contains(inside))
        return Qt::white;
    if (style == Border::Solid)
        return color;
    const double along = modulo(distance(inside.x(), inside.y()), dash + gap);
    const double margin = 0.01;
    if (along < margin || std::abs(along - dash) < margin || along > dash + gap - margin)
        return QColor();
    return along < dash ? color : QColor(Qt::white);
}

QString difference(QQuickWindow *window, const QVector<Look> &looks)
{
    const qreal scale = window->effectiveDevicePixelRatio();
    return firstDifference(window, [&](const QPointF &pixel) {
        for (const Look &look : looks) {
            const QColor color = look.at(pixel / scale);
            if (color != Qt::white)
                return color;
        }
        return QColor(Qt::white);
    });
}

} // namespace

class tst_Border : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void leastWidths();
    void pixels();
    void neighbours();
    void translucent();
};

void tst_Border::leastWidths()
{
    Border border;
    SignalLog log;
    log.watch(&border);
    Look { QRectF(), 0, -1, INT_MIN }.apply(&border);
    QCOMPARE(border.borderWidth(), 1);
    QCOMPARE(border.dashWidth(), 1);
    QCOMPARE(border.gapWidth(), 1);
    Look { QRectF(), 1, 1, 1 }.apply(&border);
    QCOMPARE(log.take(), names({ "borderWidthChanged", "dashWidthChanged", "gapWidthChanged" }));
}

// Each row becomes the next one while the border is shown.
void tst_Border::pixels()
{
    const QRectF area(20, 30, 100, 50);
    const QRectF odd(20, 30, 100, 51);
    const QRectF other(33, 44, 155, 66);
    const Look looks[] = {
        {}, // all corners painted
        { QRectF(20, 30, 105, 50), 2, 8, 4 }, // two corners empty
        { odd, 12, 2, 3 }, // dashes within a corner
        { QRectF(20, 30, 100.125, 50.125), 3, 8, 4 },
        { QRectF(QPointF(), kWindow), 1, 5, 3 },
        { area, 3, 40, 1000 }, // no second dash
        { area, 3, 40, 7 },
        { area, 3, 11, 7 },
        { area, 3, 11, 7, Border::Dashed, Qt::darkGreen },
        { area, 5, 11, 7, Border::Dashed, Qt::darkGreen },
        { other, 5, 11, 7, Border::Dashed, Qt::darkGreen },
        { other, 7, 11, 7, Border::Solid, Qt::red },
        { QRectF(20, 30, 14, 50), 7, 11, 7, Border::Solid, Qt::red }, // nothing inside
        { other, 7, 11, 7, Border::Dashed, Qt::red },
    };
    Scene scene(whiteWindow(), kWindow);
    Border *border = looks[0].make(scene.root());
    for (const Look &look : looks) {
        look.apply(border);
        QCOMPARE(difference(scene.window(), { look }), QString());
    }
    border->setStyle(Border::BorderStyle(7)); // none that exists
    QCOMPARE(difference(scene.window(), QVector<Look>()), QString());
}

// Drawn one after the other, each of them with what is its own; the first and the last together.
void tst_Border::neighbours()
{
    const QVector<Look> looks = {
        { QRectF(5, 5, 60, 40), 3, 8, 4 },
        { QRectF(75, 5, 60, 40), 3, 8, 9 },
        { QRectF(145, 5, 60, 40), 3, 5, 9 },
        { QRectF(5, 55, 60, 40), 3, 5, 9, Border::Dashed, Qt::red },
        { QRectF(145, 55, 71, 43), 3, 8, 4 },
    };
    Scene scene(whiteWindow(), kWindow);
    for (const Look &look : looks)
        look.make(scene.root());
    QCOMPARE(difference(scene.window(), looks), QString());
}

// A dash adds its colour as it is, a solid border its share of it. Opacity takes from both.
void tst_Border::translucent()
{
    Scene scene(QStringLiteral("Rectangle { anchors.fill: parent; color: 'black' }"), kWindow);
    const QColor color(200, 100, 40, 128);
    Look look { QRectF(20, 20, 100, 50), 4, 1000, 4, Border::Dashed, color };
    Border *border = look.make(scene.root());
    const auto expect = [&](const QColor &drawn) {
        const Look seen { look.area, look.width, 8, 4, Border::Solid, drawn };
        const qreal scale = scene.window()->effectiveDevicePixelRatio();
        return firstDifference(scene.window(), [&](const QPointF &pixel) {
            const QColor found = seen.at(pixel / scale);
            return found == Qt::white ? QColor(Qt::black) : found;
        });
    };
    QCOMPARE(expect(QColor(200, 100, 40)), QString());
    border->setOpacity(0.5);
    QCOMPARE(expect(QColor(100, 50, 20)), QString());
    border->setOpacity(1);
    border->setStyle(Border::Solid);
    QCOMPARE(expect(QColor(100, 50, 20)), QString());
}

TAMBER_TEST_MAIN(tst_Border)
#include "tst_border.moc"
