// variants: threaded scale2 x11
#include "pixels.h"
#include "support/paintprobe.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include "scenegraph/checkerboardmaterial_p.h"

#include <TamberUi/CheckerBoard>

#include <QtQuick/QSGGeometryNode>

#include <limits>

using namespace ta::ui;
using namespace ta::test;

namespace {

using Probe = PaintProbe<CheckerBoard>;

CheckerBoard *makeBoard(QQuickItem *parent, const QRectF &area, int tileSize = 12)
{
    auto *board = new CheckerBoard(parent);
    board->setPosition(area.topLeft());
    board->setSize(area.size());
    board->setTileSize(tileSize);
    return board;
}

bool inSecondHalf(double offset, int tile)
{
    return modulo(offset, 2 * tile) >= tile;
}

bool nearAnEdge(double offset, int tile)
{
    const double margin = 0.02;
    const double within = modulo(offset, tile);
    return within < margin || within > tile - margin;
}

/*
    The colour of a pixel of the board, counted along the axes of the screen from where the item's
    own top-left corner is, upwards as OpenGL does: the square at that corner has the second colour.
    White outside of the item.
*/
QColor boardColor(const CheckerBoard *board, const QPointF &pixel)
{
    const qreal scale = board->window()->effectiveDevicePixelRatio();
    const QPointF place = board->mapFromScene(pixel / scale);
    const QRectF area(QPointF(), board->size());
    if (!area.adjusted(-1, -1, 1, 1).contains(place))
        return Qt::white;
    const QPointF origin = board->mapToScene(QPointF()) * scale;
    const double right = pixel.x() - origin.x();
    const double up = origin.y() - pixel.y();
    const int tile = int(board->tileSize() * scale);
    const double margin = 0.01;
    if (nearAnEdge(right, tile) || nearAnEdge(up, tile)
        || area.adjusted(-margin, -margin, margin, margin).contains(place)
               != area.adjusted(margin, margin, -margin, -margin).contains(place))
        return QColor();
    if (!area.contains(place))
        return Qt::white;
    return inSecondHalf(right, tile) != inSecondHalf(up, tile) ? board->secondaryColor()
                                                               : board->primaryColor();
}

QString difference(QQuickWindow *window, const QVector<const CheckerBoard *> &boards)
{
    return firstDifference(window, [&](const QPointF &pixel) {
        for (const CheckerBoard *board : boards) {
            const QColor color = boardColor(board, pixel);
            if (color != Qt::white)
                return color;
        }
        return QColor(Qt::white);
    });
}

} // namespace

class tst_CheckerBoard : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void setters();
    void handlersThatDestroy();
    void nodes();
    void material();
    void comparison();
    void pixels_data();
    void pixels();
    void moves();
    void neighbours();
    void translucent();
    void windows();
    void strangeSizes();
    void fromQml();
};

void tst_CheckerBoard::setters()
{
    Scene scene(whiteWindow(), kWindow);
    QVERIFY(scene.isValid());
    auto *board = new Probe(scene.root());
    board->setSize(QSizeF(100, 50));
    QVERIFY(scene.waitForFrame());
    SignalLog log;
    log.watch(board);
    log.watch(board, { QStringLiteral("widthChanged") });
    board->paints = 0;
    board->setTileSize(12);
    board->setPrimaryColor(Qt::white);
    board->setSecondaryColor(QColor(0xDD, 0xDD, 0xDD));
    QVERIFY(scene.waitForFrame());
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(board->paints, 0);

    for (int small : { 1, 0, -5, std::numeric_limits<int>::min(), 2 }) {
        board->setTileSize(small);
        QCOMPARE(board->tileSize(), 2);
    }
    for (int large : { 101, 500, std::numeric_limits<int>::max(), 100 }) {
        board->setTileSize(large);
        QCOMPARE(board->tileSize(), 100);
    }
    board->setPrimaryColor(Qt::red);
    board->setSecondaryColor(Qt::blue);
    board->setWidth(99);
    QCOMPARE(log.take().join(u' '),
             QStringLiteral("tileSizeChanged tileSizeChanged primaryColorChanged "
                            "secondaryColorChanged widthChanged"));
    QVERIFY(scene.waitForFrame());
    QVERIFY(board->paints > 0);
}

void tst_CheckerBoard::handlersThatDestroy()
{
    const auto destroy = [this](auto signal, auto action) {
        auto *board = new CheckerBoard;
        const QPointer<CheckerBoard> guard(board);
        connect(board, signal, this, [board] { delete board; });
        action(board);
        return guard.isNull();
    };
    QVERIFY(destroy(&CheckerBoard::tileSizeChanged, [](auto *board) { board->setTileSize(5); }));
    QVERIFY(destroy(&CheckerBoard::primaryColorChanged,
                    [](auto *board) { board->setPrimaryColor(Qt::red); }));
    QVERIFY(destroy(&CheckerBoard::secondaryColorChanged,
                    [](auto *board) { board->setSecondaryColor(Qt::red); }));
}

void tst_CheckerBoard::nodes()
{
    Probe board;
    board.setSize(QSizeF(100, 50));
    const auto corner = [](QSGGeometryNode *node) {
        const QSGGeometry::Point2D last = node->geometry()->vertexDataAsPoint2D()[3];
        return QPointF(last.x, last.y);
    };
    const auto look = [](QSGGeometryNode *node) {
        return static_cast<CheckerBoardMaterial *>(node->material());
    };
    std::unique_ptr<QSGGeometryNode> node(board.paint(nullptr));
    QCOMPARE(corner(node.get()), QPointF(100, 50));
    QCOMPARE(look(node.get())->tileSize(), 12);

    board.setSize(QSizeF(30, 40));
    board.setTileSize(20);
    QCOMPARE(board.paint(node.get()), node.get());
    QCOMPARE(corner(node.get()), QPointF(30, 40));
    QCOMPARE(look(node.get())->tileSize(), 20);

    // Nothing is dirty, but the old node is gone with its window.
    node.reset(board.paint(nullptr));
    QCOMPARE(corner(node.get()), QPointF(30, 40));
    QCOMPARE(look(node.get())->tileSize(), 20);

    // The signal comes first, but what a handler draws too early is not lost.
    connect(&board, &CheckerBoard::primaryColorChanged, this, [&] { board.paint(node.get()); });
    board.setPrimaryColor(Qt::red);
    board.paint(node.get());
    QCOMPARE(look(node.get())->color0(), QColor(Qt::red));
}

// Blending goes on and off with the colours, and that alone is a change, too.
void tst_CheckerBoard::material()
{
    CheckerBoardMaterial material;
    const auto blends = [&] { return material.flags().testFlag(QSGMaterial::Blending); };
    const QColor opaque(1, 2, 3);
    const QColor translucent(1, 2, 3, 254);
    QVERIFY(material.flags().testFlag(QSGMaterial::RequiresFullMatrix));
    QVERIFY(material.update(12, opaque, opaque));
    QVERIFY(!blends());
    QVERIFY(!material.update(12, opaque, opaque));
    QVERIFY(material.update(13, opaque, opaque));
    QVERIFY(material.update(13, translucent, opaque));
    QVERIFY(blends());
    QVERIFY(material.update(13, opaque, translucent));
    QVERIFY(blends());
    QVERIFY(!material.update(13, opaque, translucent));
    material.setFlag(QSGMaterial::Blending, false);
    QVERIFY(material.update(13, opaque, translucent));
    QVERIFY(material.update(13, opaque, opaque));
    QVERIFY(!blends());
}

void tst_CheckerBoard::comparison()
{
    const auto compare = [](QRgb a0, QRgb a1, int aTile, QRgb b0, QRgb b1, int bTile) {
        CheckerBoardMaterial a;
        a.update(aTile, QColor::fromRgba(a0), QColor::fromRgba(a1));
        CheckerBoardMaterial b;
        b.update(bTile, QColor::fromRgba(b0), QColor::fromRgba(b1));
        return a.compare(&b);
    };
    QCOMPARE(compare(0xFF0000FF, 0xFF000000, 12, 0xFF0000FF, 0xFF000000, 12), 0);
    // The first colour decides, then the second, then the size.
    QCOMPARE(compare(0xFF000005, 0xFF000000, 12, 0xFF000001, 0xFF0000FF, 99), 4);
    QCOMPARE(compare(0xFF000001, 0xFF000000, 12, 0xFF000001, 0xFF0000FF, 99), -255);
    QCOMPARE(compare(0xFF000001, 0xFF0000FF, 12, 0xFF000001, 0xFF0000FF, 99), -87);
    // Whatever is lost of a difference of 32 bits, different colours never look the same.
    QVERIFY(compare(0xFFFFFFFF, 0xFF000000, 12, 0x00000000, 0xFF000000, 12) != 0);
    QVERIFY(compare(0x80000000, 0xFF000000, 12, 0x00000000, 0xFF000000, 12) != 0);
}

void tst_CheckerBoard::pixels_data()
{
    QTest::addColumn<QRectF>("area");
    QTest::addColumn<int>("tileSize");
    QTest::addColumn<qreal>("rotation"); // of the parent
    QTest::addColumn<qreal>("scale");
    QTest::newRow("usual") << QRectF(20, 30, 100, 50) << 12 << 0.0 << 1.0;
    QTest::newRow("whole window") << QRectF(0, 0, 240, 160) << 7 << 0.0 << 1.0;
    QTest::newRow("smaller than a square") << QRectF(20, 30, 9, 5) << 100 << 0.0 << 1.0;
    QTest::newRow("finest") << QRectF(20, 30, 51, 33) << 2 << 0.0 << 1.0;
    QTest::newRow("between pixels") << QRectF(20.3, 30.6, 80, 50) << 12 << 0.0 << 1.0;
    QTest::newRow("left and above the window") << QRectF(-31, -17, 200, 120) << 12 << 0.0 << 1.0;
    // The item turns and grows, the squares do not.
    QTest::newRow("larger") << QRectF(20, 30, 60, 40) << 12 << 0.0 << 1.75;
    QTest::newRow("smaller") << QRectF(40, 50, 160, 100) << 12 << 0.0 << 0.4;
    QTest::newRow("turned") << QRectF(90, 40, 100, 60) << 12 << 30.0 << 1.0;
    QTest::newRow("upside down") << QRectF(60, 40, 100, 60) << 12 << 180.0 << 1.0;
    QTest::newRow("turned and larger") << QRectF(90, 30, 60, 40) << 9 << -75.0 << 1.5;
}

void tst_CheckerBoard::pixels()
{
    QFETCH(QRectF, area);
    QFETCH(int, tileSize);
    QFETCH(qreal, rotation);
    QFETCH(qreal, scale);
    Scene scene(whiteWindow(), kWindow);
    QVERIFY(scene.isValid());
    auto *parent = new QQuickItem(scene.root());
    parent->setSize(kWindow);
    parent->setRotation(rotation);
    parent->setScale(scale);
    CheckerBoard *board = makeBoard(parent, area, tileSize);
    board->setPrimaryColor(Qt::yellow); // not that of the window
    QCOMPARE(difference(scene.window(), { board }), QString());
}

// The squares stay with the item, and every change reaches the screen.
void tst_CheckerBoard::moves()
{
    Scene scene(whiteWindow(), kWindow);
    QVERIFY(scene.isValid());
    CheckerBoard *board = makeBoard(scene.root(), QRectF(20, 30, 100, 50));
    QCOMPARE(difference(scene.window(), { board }), QString());
    board->setX(25);
    QCOMPARE(difference(scene.window(), { board }), QString());
    board->setSize(QSizeF(77, 66));
    QCOMPARE(difference(scene.window(), { board }), QString());
    scene.root()->setY(9);
    QCOMPARE(difference(scene.window(), { board }), QString());
    board->setTileSize(5);
    QCOMPARE(difference(scene.window(), { board }), QString());
    board->setPrimaryColor(Qt::red);
    QCOMPARE(difference(scene.window(), { board }), QString());
    board->setSecondaryColor(Qt::darkBlue);
    QCOMPARE(difference(scene.window(), { board }), QString());
}

// One after the other, each unlike the one before in one respect or in all or in none.
void tst_CheckerBoard::neighbours()
{
    Scene scene(whiteWindow(), kWindow);
    QVERIFY(scene.isValid());
    struct Kind
    {
        int tileSize;
        QColor primary;
        QColor secondary;
    };
    const Kind kinds[] = {
        { 6, Qt::red, Qt::blue },   { 9, Qt::red, Qt::blue },     { 9, Qt::green, Qt::blue },
        { 9, Qt::green, Qt::cyan }, { 4, Qt::yellow, Qt::black }, { 4, Qt::yellow, Qt::black },
    };
    QVector<const CheckerBoard *> boards;
    for (const Kind &kind : kinds) {
        const int index = boards.count();
        CheckerBoard *board = makeBoard(scene.root(),
                                        QRectF(index % 3 * 75 + 5, index / 3 * 75 + 5, 61, 67),
                                        kind.tileSize);
        board->setPrimaryColor(kind.primary);
        board->setSecondaryColor(kind.secondary);
        boards.append(board);
    }
    QCOMPARE(difference(scene.window(), boards), QString());
}

void tst_CheckerBoard::translucent()
{
    Scene scene(whiteWindow(), kWindow);
    QVERIFY(scene.isValid());
    CheckerBoard *board = makeBoard(scene.root(), QRectF(0, 0, 240, 160));
    board->setPrimaryColor(QColor(200, 100, 50, 51)); // a fifth
    board->setSecondaryColor(Qt::black);
    const auto expect = [&](const QColor &primary, const QColor &secondary) {
        return firstDifference(scene.window(), [&](const QPointF &pixel) {
            const QColor color = boardColor(board, pixel);
            return color == board->primaryColor() ? primary : secondary;
        });
    };
    QCOMPARE(expect(QColor(244, 224, 214), Qt::black), QString());
    board->setOpacity(0.5);
    QCOMPARE(expect(QColor(250, 240, 235), QColor(128, 128, 128)), QString());
    board->setOpacity(1);
    board->setPrimaryColor(Qt::red);
    QCOMPARE(expect(Qt::red, Qt::black), QString());
}

// Two windows of different sizes at once, from one to the other, and into one that was away.
void tst_CheckerBoard::windows()
{
    Scene first(whiteWindow(), kWindow);
    Scene second(whiteWindow(), kWindow - QSize(20, 40));
    QVERIFY(first.isValid() && second.isValid());
    CheckerBoard *board = makeBoard(first.root(), QRectF(5, 5, 60, 40));
    const CheckerBoard *other = makeBoard(second.root(), QRectF(75, 5, 60, 40), 7);
    QCOMPARE(difference(first.window(), { board }), QString());
    QCOMPARE(difference(second.window(), { other }), QString());

    board->setParent(second.root());
    board->setParentItem(second.root());
    QCOMPARE(difference(first.window(), QVector<const CheckerBoard *>()), QString());
    QCOMPARE(difference(second.window(), { board, other }), QString());

    second.window()->setPersistentOpenGLContext(false);
    second.window()->setPersistentSceneGraph(false);
    second.window()->hide();
    QTRY_VERIFY(!second.window()->isExposed());
    second.window()->show();
    QCOMPARE(difference(second.window(), { board, other }), QString());
}

void tst_CheckerBoard::strangeSizes()
{
    Scene scene(whiteWindow(), kWindow);
    QVERIFY(scene.isValid());
    auto *clip = new QQuickItem(scene.root());
    clip->setClip(true);
    clip->setSize(QSizeF(60, 60));
    CheckerBoard *strange = makeBoard(clip, QRectF());
    strange->setSecondaryColor(Qt::white);
    const CheckerBoard *usual = makeBoard(scene.root(), QRectF(80, 80, 60, 40));
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (double extent : { 0.0, -70.0, 1e9, 1e300, infinity, nan }) {
        strange->setSize(QSizeF(extent, 20));
        QCOMPARE(difference(scene.window(), { usual }), QString());
        strange->setSize(QSizeF(extent, extent));
        QCOMPARE(difference(scene.window(), { usual }), QString());
    }
}

void tst_CheckerBoard::fromQml()
{
    Scene::useKit();
    Scene scene(whiteWindow()
                    + QStringLiteral("UiCheckerBoard { objectName: 'board'; x: 20; y: 20; "
                                     "width: 90; height: 70 }"),
                kWindow);
    QVERIFY(scene.isValid());
    const auto *board = scene.find<CheckerBoard>("board");
    QVERIFY(board);
    QCOMPARE(board->secondaryColor(), QColor(0xDD, 0xDD, 0xDD));
    QCOMPARE(difference(scene.window(), { board }), QString());
}

TAMBER_TEST_MAIN(tst_CheckerBoard)
#include "tst_checkerboard.moc"
