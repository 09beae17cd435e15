// variants: threaded scale2 x11
#include "controls/slidergeometry_p.h"
#include "support/colors.h"
#include "support/paintprobe.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/DefaultSlider>

#include <QtQuick/QSGNode>

using namespace ta::ui;
using namespace ta::test;

namespace {

using BareSlider = PaintProbe<DefaultSlider>;

struct Nodes
{
    explicit Nodes(QSGGeometryNode *root)
        : track(root), valueBar(static_cast<QSGGeometryNode *>(root->childAtIndex(0))),
          opacity(static_cast<QSGOpacityNode *>(root->childAtIndex(1))),
          handle(static_cast<QSGGeometryNode *>(opacity->firstChild()))
    {
    }

    QSGGeometryNode *track;
    QSGGeometryNode *valueBar;
    QSGOpacityNode *opacity;
    QSGGeometryNode *handle;
};

SliderPoint2D *vertices(const QSGGeometryNode *node)
{
    return static_cast<SliderPoint2D *>(const_cast<QSGGeometry *>(node->geometry())->vertexData());
}

// Left, top, right, bottom, where the edge distances say that these are.
QVector<double> edges(const SliderPoint2D *quad)
{
    const float distances[4][2] = { { -1, -1 }, { 1, -1 }, { -1, 1 }, { 1, 1 } };
    for (int i = 0; i < 4; ++i) {
        if (quad[i].dx != distances[i][0] || quad[i].dy != distances[i][1]
            || quad[i].x != quad[i % 2].x || quad[i].y != quad[i / 2 * 2].y)
            return {};
    }
    return { quad[0].x, quad[0].y, quad[3].x, quad[3].y };
}

QColor color(const SliderPoint2D &point)
{
    return QColor(point.red, point.green, point.blue, point.alpha);
}

// How much of black covers white there: 0 to 1.
double coverage(const QImage &image, int x, int y)
{
    return 1 - image.pixelColor(x, y).redF();
}

QString sliderQml(const char *properties)
{
    return QStringLiteral("Rectangle { anchors.fill: parent }\n"
                          "UiDefaultSlider { objectName: 'slider'; x: 20; y: 10; width: 100;"
                          "height: 20; trackBaseColor: 'black'; handleColor: 'blue';"
                          "valueBarColor: 'red'; ")
           + QLatin1String(properties) + QLatin1String("}");
}

const QSize kWindow(200, 60);

} // namespace

class tst_DefaultSlider : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void rectangles();
    void whatIsRewritten();
    void softEdges();
    void hardEdges();
    void blending();
    void changes();
};

void tst_DefaultSlider::initTestCase()
{
    Scene::useKit();
}

// Left, top, right and bottom of each; those of a value bar are the right and the left end of it.
void tst_DefaultSlider::rectangles()
{
    using Edges = QVector<double>;
    const struct
    {
        const char *name;
        SliderFrame frame;
        int handleWidth;
        float origin;
        Edges track;
        Edges handle;
        Edges valueBar;
    } rows[] = {
        // clang-format off
        { "defaults", { { 100, 20 }, 3, 0.5, true }, 3, 0,
          { 2.5, 8.5, 94.5, 11.5 }, { 47, -0.5, 51, 20.5 }, { 49, 7.5, 3.5, 12.5 } },
        { "hard", { { 100, 20 }, 3, 0.5, false }, 3, 0,
          { 3, 9, 94, 11 }, { 47.5, 0, 50.5, 20 }, { 49.5, 8, 3, 12 } },
        { "left end", { { 100, 20 }, 3, 0, true }, 3, 0.5f,
          { 2.5, 8.5, 94.5, 11.5 }, { 1, -0.5, 5, 20.5 }, { 49, 7.5, 3.5, 12.5 } },
        // An even handle has its centre between pixels, and the track one pixel more to run.
        { "even handle", { { 100, 20 }, 3, 1, false }, 4, 1,
          { 3, 9, 94, 11 }, { 94, 0, 98, 20 }, { 96, 8, 96, 12 } },
        // Fractions: cut, rounded, or kept.
        { "fractions", { { 100.75, 21.5 }, 3, 0.5, false }, 3, 0,
          { 3, 9.75, 94, 11.75 }, { 47.5, 0, 50.5, 22 }, { 49.875, 9, 3, 13 } },
        { "nothing", { { 0, 0 }, 0, 0.5, true }, 3, 0,
          { -0.5, -1.5, 0.5, 1.5 }, { -3, -0.5, 1, 0.5 }, { -0.5, -2.5, 0, 2.5 } },
        // clang-format on
    };
    for (const auto &row : rows) {
        const SliderQuad track = sliderTrack(row.frame, 2, Qt::red, QColor(1, 2, 3, 4));
        const SliderQuad handle = sliderHandle(row.frame, row.handleWidth, Qt::green);
        const SliderQuad valueBar = sliderValueBar(row.frame, 4, row.origin, Qt::blue);
        QVERIFY2(edges(track.data()) == row.track, row.name);
        QVERIFY2(edges(handle.data()) == row.handle, row.name);
        QVERIFY2(edges(valueBar.data()) == row.valueBar, row.name);
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(color(track[i]), i % 2 ? QColor(1, 2, 3, 4) : QColor(Qt::red));
            QCOMPARE(color(handle[i]), QColor(Qt::green));
            QCOMPARE(color(valueBar[i]), QColor(Qt::blue));
        }
    }
}

// Moving a slider writes two rectangles; everything else one, or none. The vertices are spoilt
// before: what is right afterwards was written.
void tst_DefaultSlider::whatIsRewritten()
{
    const QVariant red = QColor(Qt::red);
    const struct
    {
        const char *property;
        QVariant value;
        QByteArray rewritten; // t: track, b: value bar, h: handle, o: opacity
        QVariant same = {}; // as good as equal
    } rows[] = {
        { "value", 0.25, "bh", 0.2500000000001 },
        { "trackHeight", 7, "t" },
        { "trackBaseColor", red, "t" },
        { "trackMaximumColor", red, "t" },
        { "handleWidth", 7, "h" },
        { "handleColor", red, "h" },
        { "handleOpacity", 0.25, "o", 0.2500000000001 },
        { "valueBarOrigin", 0.25f, "b", 0.250001f },
        { "valueBarHeight", 7, "b" },
        { "valueBarColor", red, "b" },
        { "margin", 9, "tbh" },
        { "minimumValue", 0.25, "" }, // while the value stays
    };
    for (const auto &row : rows) {
        BareSlider slider;
        slider.setSize(QSizeF(100, 20));
        slider.setValueBarVisible(true);
        const std::unique_ptr<QSGGeometryNode> root(slider.paint());
        const Nodes nodes(root.get());
        const float spoilt = -12345;
        for (const QSGGeometryNode *node : { nodes.track, nodes.valueBar, nodes.handle })
            vertices(node)->x = spoilt;
        nodes.opacity->setOpacity(0.125);

        SignalLog log;
        const QString changed = QLatin1String(row.property) + QStringLiteral("Changed");
        log.watch(&slider, { changed });
        QVERIFY(slider.setProperty(row.property, row.value));
        QVERIFY(slider.setProperty(row.property, row.same.isNull() ? row.value : row.same));
        if (!row.same.isNull())
            QVERIFY(slider.setProperty(row.property, qQNaN()));
        QCOMPARE(slider.property(row.property), row.value);
        QCOMPARE(log.take(), QStringList(changed));
        QCOMPARE(slider.paint(root.get()), root.get());
        QByteArray rewritten;
        rewritten += vertices(nodes.track)->x != spoilt ? "t" : "";
        rewritten += vertices(nodes.valueBar)->x != spoilt ? "b" : "";
        rewritten += vertices(nodes.handle)->x != spoilt ? "h" : "";
        rewritten += nodes.opacity->opacity() != 0.125 ? "o" : "";
        QVERIFY2(rewritten == row.rewritten, row.property);
    }
}

// On whole pixels, half of the fringe lies outside of them and half inside: full cover within, a
// small one at both sides of the edge, none beyond.
void tst_DefaultSlider::softEdges()
{
    Scene scene(sliderQml("antialiasing: true; handleOpacity: 0"), kWindow);
    const QImage image = scene.window()->grabWindow();
    const int scale = int(image.devicePixelRatio());
    // The track's upper edge is at 10 + 8.5, its lower one at 10 + 11.5; in between, the pixels'
    // centres are so far from the edge:
    const auto expected = [&](int y) {
        const double center = (y + 0.5) / scale;
        const double distance = qAbs(center - 20) / 1.5; // 1 at the edge
        const double fw = 2.0 / (3 * scale);
        const double t = qBound(0.0, (distance - (1 - fw)) / fw, 1.0);
        return distance > 1 ? 0 : 1 - t * t * (3 - 2 * t);
    };
    for (int y = 16 * scale; y < 24 * scale; ++y) {
        const double cover = coverage(image, 70 * scale, y);
        QVERIFY2(qAbs(cover - expected(y)) < 0.03,
                 qPrintable(QStringLiteral("%1: %2, not %3").arg(y).arg(cover).arg(expected(y))));
    }
    QVERIFY(coverage(image, 20 * scale, 20 * scale) < 0.01);
    QVERIFY(coverage(image, 24 * scale, 20 * scale) > 0.99);
}

void tst_DefaultSlider::hardEdges()
{
    Scene scene(sliderQml("value: 0.25; valueBarVisible: true; valueBarOrigin: 0.5;"
                          "handleWidth: 4; trackMaximumColor: '#ff0'; valueBarHeight: 6"),
                kWindow);
    const QImage image = scene.window()->grabWindow();
    const auto at = [&](double x, double y) { return pixelAt(image, QPointF(20 + x, 10 + y)); };
    // Every pixel is one colour or another: the handle, x 24 to 28 around 26; the bar, from there
    // to 49.5 and between y 7 and 13; the track, between y 9 and 11, from black to yellow.
    QVERIFY(isNear(at(24.5, 0.5), Qt::blue));
    QCOMPARE(at(28.5, 0.5), QColor(Qt::white));
    QVERIFY(isNear(at(48.5, 12.5), Qt::red));
    QCOMPARE(at(48.5, 13.5), QColor(Qt::white));
    for (double x : { 3.5, 60.5, 93.5 }) {
        const int level = qRound(255 * (x - 3) / 91);
        QVERIFY2(isNear(at(x, 9.5), QColor(level, level, 0), 4), qPrintable(at(x, 9.5).name()));
        QCOMPARE(at(x, 11.5), QColor(Qt::white));
        QCOMPARE(at(x, 8.5), QColor(Qt::white));
    }
}

// The item's opacity lies on everything, that of the handle on the handle alone.
void tst_DefaultSlider::blending()
{
    Scene scene(sliderQml("handleWidth: 8; handleOpacity: 0.5; trackHeight: 4"), kWindow);
    auto *slider = scene.find<DefaultSlider>("slider");
    const QPointF handle(20 + 49.5, 15.5);
    const QPointF track(20 + 80.5, 20.5);
    QImage image = scene.window()->grabWindow();
    QVERIFY(isNear(pixelAt(image, handle), QColor(128, 128, 255)));
    QVERIFY(isNear(pixelAt(image, track), Qt::black));
    slider->setOpacity(0.5);
    image = scene.window()->grabWindow();
    QVERIFY(isNear(pixelAt(image, handle), QColor(191, 191, 255)));
    QVERIFY(isNear(pixelAt(image, track), QColor(128, 128, 128)));
    slider->setOpacity(1);
    slider->setHandleOpacity(0);
    image = scene.window()->grabWindow();
    QVERIFY(isNear(pixelAt(image, handle), Qt::white));
}

// What changes, and what is switched on and off, is on the screen with the next frame.
void tst_DefaultSlider::changes()
{
    Scene scene(sliderQml("antialiasing: true; handleWidth: 5"), kWindow);
    auto *slider = scene.find<DefaultSlider>("slider");
    const auto colorAt = [&](double x, double y) {
        return pixelAt(scene.window()->grabWindow(), QPointF(20 + x, 10 + y));
    };
    QVERIFY(isNear(colorAt(49.5, 5.5), Qt::blue));
    slider->setValue(1);
    QVERIFY(isNear(colorAt(49.5, 5.5), Qt::white));
    QVERIFY(isNear(colorAt(95.5, 5.5), Qt::blue));
    slider->setValueBarVisible(true);
    QVERIFY(isNear(colorAt(50.5, 8.25), Qt::red));
    slider->setValueBarVisible(false);
    QVERIFY(isNear(colorAt(50.5, 8.25), Qt::white));
    slider->setValue(0.5);
    slider->setSize(QSizeF(60, 30));
    QVERIFY(isNear(colorAt(29.5, 28.5), Qt::blue));
    QVERIFY(isNear(colorAt(49.5, 14.5), Qt::black));
}

TAMBER_TEST_MAIN(tst_DefaultSlider)
#include "tst_defaultslider.moc"
