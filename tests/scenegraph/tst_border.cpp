// variants: threaded scale2 x11
#include "pixels.h"
#include "support/paintprobe.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include "scenegraph/bordernode_p.h"

#include <TamberUi/Border>

#include <QtQuick/QSGFlatColorMaterial>

#include <climits>
#include <limits>

using namespace ta::ui;
using namespace ta::test;

namespace {

using Probe = PaintProbe<Border>;

struct Look
{
    QRectF area = QRectF(20, 30, 100, 50);
    int width = 2;
    int dash = 8;
    int gap = 4;
    Border::BorderStyle style = Border::Dashed;
    QColor color = Qt::black;

    template <typename Item = Border>
    Item *make(QQuickItem *parent) const
    {
        auto *border = new Item(parent);
        border->setPosition(area.topLeft());
        border->setSize(area.size());
        border->setBorderWidth(width);
        border->setDashWidth(dash);
        border->setGapWidth(gap);
        border->setStyle(style);
        border->setColor(color);
        return border;
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

QColor nodeColor(QSGGeometryNode *node)
{
    return static_cast<QSGFlatColorMaterial *>(node->material())->color();
}

} // namespace

Q_DECLARE_METATYPE(Look)

class tst_Border : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void setters();
    void nodes();
    void lookAlikes();
    void pixels_data();
    void pixels();
    void translucent();
    void changes();
    void neighbours();
    void windows();
    void strangeSizes();
    void fromQml();
};

// What is stored, what is said about it, and that nothing is drawn anew where nothing has changed.
void tst_Border::setters()
{
    Scene scene(whiteWindow(), kWindow);
    QVERIFY(scene.isValid());
    auto *border = new Probe(scene.root());
    border->setSize(QSizeF(100, 50));
    QVERIFY(scene.waitForFrame());
    QVERIFY(border->paints > 0);

    SignalLog log;
    log.watch(border);
    log.watch(border, { QStringLiteral("widthChanged") });
    border->paints = 0;
    const int minimum = std::numeric_limits<int>::min();
    border->setColor(Qt::black);
    border->setBorderWidth(2);
    border->setDashWidth(8);
    border->setGapWidth(4);
    border->setStyle(Border::Dashed);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(border->paints, 0);

    for (int bad : { 0, -1, minimum, 1 }) {
        border->setBorderWidth(bad);
        border->setDashWidth(bad);
        border->setGapWidth(bad);
        QCOMPARE(border->borderWidth(), 1);
        QCOMPARE(border->dashWidth(), 1);
        QCOMPARE(border->gapWidth(), 1);
    }
    border->setStyle(Border::Solid);
    border->setColor(Qt::red);
    border->setWidth(99);
    QCOMPARE(log.take().join(u' '),
             QStringLiteral("borderWidthChanged dashWidthChanged gapWidthChanged styleChanged "
                            "colorChanged widthChanged"));
    QVERIFY(scene.waitForFrame());
    QVERIFY(border->paints > 0);
}

// A node of the style, with everything in it at once, whatever has been drawn before.
void tst_Border::nodes()
{
    Probe border;
    border.setSize(QSizeF(100, 50));
    QSGNode root;
    const auto paint = [&] {
        QSGGeometryNode *node = border.paint(root.firstChild());
        if (node && !node->parent())
            root.appendChildNode(node);
        return node;
    };
    QSGGeometryNode *node = paint();
    QCOMPARE(node->geometry()->drawingMode(), uint(QSGGeometry::DrawTriangles));
    QCOMPARE(node->geometry()->vertexCount(), 18);
    QCOMPARE(node->geometry()->sizeOfVertex(), 12);
    QVERIFY(node->material()->flags() & QSGMaterial::Blending);

    border.setColor(Qt::red);
    border.setStyle(Border::Solid);
    node = paint();
    QCOMPARE(root.childCount(), 1);
    QCOMPARE(node->geometry()->drawingMode(), uint(QSGGeometry::DrawTriangleStrip));
    QCOMPARE(nodeColor(node), QColor(Qt::red));
    QCOMPARE(node->geometry()->vertexDataAsPoint2D()[6].x, 98.0f);

    // Each change reaches the node that is there.
    border.setBorderWidth(5);
    QCOMPARE(paint(), node);
    QCOMPARE(node->geometry()->vertexDataAsPoint2D()[6].x, 95.0f);
    border.setSize(QSizeF(60, 50));
    connect(&border, &Border::colorChanged, this, [&] {
        paint(); // what the signal says is on its way already
        QCOMPARE(nodeColor(node), QColor(Qt::blue));
    });
    border.setColor(Qt::blue);
    QCOMPARE(node->geometry()->vertexDataAsPoint2D()[6].x, 55.0f);

    // Nothing is dirty, but there is no node any more: the window was another one.
    delete node;
    node = paint();
    QVERIFY(node);
    QCOMPARE(node->geometry()->vertexDataAsPoint2D()[6].x, 55.0f);
    QCOMPARE(nodeColor(node), QColor(Qt::blue));

    // No node for a style that does not exist, and one again for the next that does.
    for (int style : { 2, -1, std::numeric_limits<int>::max() }) {
        border.setStyle(Border::BorderStyle(style));
        QVERIFY(!paint());
        QVERIFY(!paint());
        QCOMPARE(root.childCount(), 0);
    }
    border.setStyle(Border::Dashed);
    node = paint();
    QVERIFY(node);
    const float *last = static_cast<const float *>(node->geometry()->vertexData()) + 3 * 17;
    QCOMPARE(last[2], 2 * 60 + 2 * 50 - 3 * 5.0f);
    delete node;
}

// Those that look alike may be drawn together, and no others.
void tst_Border::lookAlikes()
{
    const auto compare = [](const QColor &color, float dash, float gap) {
        DashedBorderNode usual;
        usual.updateMaterial(QColor(10, 20, 30, 40), 8, 4);
        DashedBorderNode other;
        other.updateMaterial(color, dash, gap);
        const int there = usual.material()->compare(other.material());
        const int back = other.material()->compare(usual.material());
        return there == -back ? there : INT_MAX;
    };
    QCOMPARE(compare(QColor(10, 20, 30, 40), 8, 4), 0);
    QCOMPARE(compare(QColor(11, 20, 30, 40), 8, 4), -1);
    QCOMPARE(compare(QColor(10, 19, 30, 40), 8, 4), 1);
    QCOMPARE(compare(QColor(10, 20, 31, 40), 8, 4), -1);
    QCOMPARE(compare(QColor(10, 20, 30, 39), 8, 4), 1);
    QCOMPARE(compare(QColor(10, 20, 30, 40), 9, 4), -1);
    QCOMPARE(compare(QColor(10, 20, 30, 40), 8, 3), 1);
}

void tst_Border::pixels_data()
{
    QTest::addColumn<Look>("look");
    const auto row = [](const char *name, const QRectF &area, int width, int dash, int gap) {
        QTest::newRow(name) << Look { area, width, dash, gap };
    };
    row("usual, all corners painted", QRectF(20, 30, 100, 50), 2, 8, 4);
    row("two corners empty", QRectF(20, 30, 105, 50), 2, 8, 4);
    row("wide", QRectF(20, 30, 100, 51), 9, 8, 4);
    row("dashes within a corner", QRectF(20, 30, 100, 51), 12, 2, 3);
    row("hairline", QRectF(0, 0, 240, 160), 1, 5, 3);
    row("gap longer than the border", QRectF(20, 30, 100, 50), 3, 40, 1000);
    row("dash longer than the border", QRectF(20, 30, 100, 50), 3, 1000, 1);
    QTest::newRow("solid") << Look { QRectF(20, 30, 100, 50), 3, 8, 4, Border::Solid };
    QTest::newRow("solid, filling") << Look { QRectF(20, 30, 10, 50), 5, 8, 4, Border::Solid };
    QTest::newRow("solid, red") << Look {
        QRectF(0, 0, 240, 160), 20, 8, 4, Border::Solid, Qt::red
    };
}

void tst_Border::pixels()
{
    QFETCH(Look, look);
    Scene scene(whiteWindow(), kWindow);
    QVERIFY(scene.isValid());
    look.make(scene.root());
    QCOMPARE(difference(scene.window(), { look }), QString());
}

// A dash adds its colour as it is, a solid border its share of it. Opacity takes from both.
void tst_Border::translucent()
{
    Scene scene(QStringLiteral("Rectangle { anchors.fill: parent; color: 'black' }"), kWindow);
    QVERIFY(scene.isValid());
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

// Every property reaches the screen while the border is shown.
void tst_Border::changes()
{
    Scene scene(whiteWindow(), kWindow);
    QVERIFY(scene.isValid());
    Look look;
    Border *border = look.make(scene.root());
    QCOMPARE(difference(scene.window(), { look }), QString());
    const auto check = [&] {
        border->setPosition(look.area.topLeft());
        border->setSize(look.area.size());
        border->setBorderWidth(look.width);
        border->setDashWidth(look.dash);
        border->setGapWidth(look.gap);
        border->setStyle(look.style);
        border->setColor(look.color);
        return difference(scene.window(), { look });
    };
    look.dash = 11;
    QCOMPARE(check(), QString());
    look.gap = 7;
    QCOMPARE(check(), QString());
    look.color = Qt::darkGreen;
    QCOMPARE(check(), QString());
    look.width = 5;
    QCOMPARE(check(), QString());
    look.area = QRectF(33, 44, 155, 66);
    QCOMPARE(check(), QString());
    look.style = Border::Solid;
    QCOMPARE(check(), QString());
    look.color = Qt::red;
    look.width = 7;
    QCOMPARE(check(), QString());
    look.style = Border::Dashed;
    QCOMPARE(check(), QString());
    border->setStyle(Border::BorderStyle(7));
    QCOMPARE(difference(scene.window(), QVector<Look>()), QString());
    border->setStyle(Border::Dashed);
    QCOMPARE(difference(scene.window(), { look }), QString());
}

// Drawn one after the other, each of them with what is its own; the first and the last together.
void tst_Border::neighbours()
{
    Scene scene(whiteWindow(), kWindow);
    QVERIFY(scene.isValid());
    const QVector<Look> looks = {
        { QRectF(5, 5, 60, 40), 3, 8, 4 },
        { QRectF(75, 5, 60, 40), 3, 8, 9 },
        { QRectF(145, 5, 60, 40), 3, 5, 9 },
        { QRectF(5, 55, 60, 40), 3, 5, 9, Border::Dashed, Qt::red },
        { QRectF(75, 55, 60, 40), 3, 5, 9, Border::Solid, Qt::red },
        { QRectF(145, 55, 71, 43), 3, 8, 4 },
    };
    for (const Look &look : looks)
        look.make(scene.root());
    QCOMPARE(difference(scene.window(), looks), QString());
}

// Two windows at once, from one to the other, and into a window that was away in between.
void tst_Border::windows()
{
    Scene first(whiteWindow(), kWindow);
    Scene second(whiteWindow(), kWindow);
    QVERIFY(first.isValid() && second.isValid());
    const Look dashed { QRectF(5, 5, 60, 40), 3, 8, 4 };
    const Look solid { QRectF(75, 5, 60, 40), 3, 5, 9, Border::Solid, Qt::red };
    Border *border = dashed.make(first.root());
    solid.make(second.root());
    QCOMPARE(difference(first.window(), { dashed }), QString());
    QCOMPARE(difference(second.window(), { solid }), QString());

    border->setParent(second.root());
    border->setParentItem(second.root());
    QCOMPARE(difference(first.window(), QVector<Look>()), QString());
    QCOMPARE(difference(second.window(), { dashed, solid }), QString());

    second.window()->setPersistentOpenGLContext(false);
    second.window()->setPersistentSceneGraph(false);
    second.window()->hide();
    QTRY_VERIFY(!second.window()->isExposed());
    second.window()->show();
    QCOMPARE(difference(second.window(), { dashed, solid }), QString());
    first.destroyWindow();
    QCOMPARE(difference(second.window(), { dashed, solid }), QString());
}

// They draw nothing that could be relied on, but they harm nobody either.
void tst_Border::strangeSizes()
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Scene scene(whiteWindow(), kWindow);
    QVERIFY(scene.isValid());
    const Look usual { QRectF(80, 80, 60, 40) };
    usual.make(scene.root());
    // Clipped and white, so that what is left to be seen is the usual one.
    auto *clip = new QQuickItem(scene.root());
    clip->setClip(true);
    clip->setSize(QSizeF(60, 60));
    for (Border::BorderStyle style : { Border::Dashed, Border::Solid }) {
        Border *narrow = Look { QRectF(), 3, 8, 4, style, Qt::white }.make(clip);
        Border *wide = Look { QRectF(), INT_MAX, INT_MAX, INT_MAX, style, Qt::white }.make(clip);
        for (double extent : { 0.0, -70.0, 1e9, 1e300, infinity, nan }) {
            narrow->setSize(QSizeF(extent, 20));
            wide->setSize(QSizeF(extent, extent));
            QCOMPARE(difference(scene.window(), { usual }), QString());
        }
    }
}

// QML names the styles, and gives any number where it wants to.
void tst_Border::fromQml()
{
    Scene::useKit();
    Scene scene(whiteWindow()
                    + QStringLiteral(
                        "UiBorder { x: 5; y: 5; width: 60; height: 40; style: UiBorder.Solid }"
                        "UiBorder { x: 75; y: 5; width: 60; height: 40 }"
                        "UiBorder { objectName: 'odd'; width: 200; height: 99; style: 2 + 3 }"),
                kWindow);
    QVERIFY(scene.isValid());
    QCOMPARE(scene.find("odd")->property("style").toInt(), 5);
    const Look solid { QRectF(5, 5, 60, 40), 2, 8, 4, Border::Solid };
    const Look dashed { QRectF(75, 5, 60, 40) };
    QCOMPARE(difference(scene.window(), { solid, dashed }), QString());
}

TAMBER_TEST_MAIN(tst_Border)
#include "tst_border.moc"
