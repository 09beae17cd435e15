// variants: threaded scale2 x11
#include "pixels.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include "scenegraph/checkerboardmaterial_p.h"

#include <TamberUi/CheckerBoard>

#include <climits>

using namespace ta::ui;
using namespace ta::test;

namespace {

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
    void tileSizes();
    void material();
    void pixels();
    void moves();
    void translucent();
};

void tst_CheckerBoard::tileSizes()
{
    CheckerBoard board;
    SignalLog log;
    log.watch(&board);
    const QPair<int, int> rows[] = { { 1, 2 }, { INT_MIN, 2 }, { 101, 100 }, { INT_MAX, 100 } };
    for (const auto &row : rows) {
        board.setTileSize(row.first);
        QCOMPARE(board.tileSize(), row.second);
    }
    QCOMPARE(log.take(), names({ "tileSizeChanged", "tileSizeChanged" }));
}

void tst_CheckerBoard::material()
{
    const auto compare = [](QRgb a0, QRgb a1, int aTile, QRgb b0, QRgb b1, int bTile) {
        CheckerBoardMaterial a;
        a.update(aTile, QColor::fromRgba(a0), QColor::fromRgba(a1));
        CheckerBoardMaterial b;
        b.update(bTile, QColor::fromRgba(b0), QColor::fromRgba(b1));
        return a.compare(&b);
    };
    // The first colour decides, then the second, then the size.
    QCOMPARE(compare(0xFF0000FF, 0xFF000000, 12, 0xFF0000FF, 0xFF000000, 12), 0);
    QCOMPARE(compare(0xFF000005, 0xFF000000, 12, 0xFF000001, 0xFF0000FF, 99), 4);
    QCOMPARE(compare(0xFF000001, 0xFF000000, 12, 0xFF000001, 0xFF0000FF, 99), -255);
    QCOMPARE(compare(0xFF000001, 0xFF0000FF, 12, 0xFF000001, 0xFF0000FF, 99), -87);
}

// The item turns and grows with its parent, the squares do not.
void tst_CheckerBoard::pixels()
{
    const struct
    {
        QRectF area;
        int tileSize;
        double rotation;
        double scale;
    } rows[] = {
        { { 20, 30, 100, 50 }, 12, 0, 1 },
        { { 20, 30, 9, 5 }, 100, 0, 1 }, // smaller than a square
        { { 20.3, 30.6, 80, 50 }, 12, 0, 1 }, // between pixels
        { { -31, -17, 200, 120 }, 12, 0, 1 }, // left and above the window
        { { 20, 30, 60, 40 }, 12, 0, 1.75 },
        { { 60, 40, 100, 60 }, 12, 180, 1 },
        { { 90, 30, 60, 40 }, 9, -75, 1.5 },
    };
    Scene scene(whiteWindow(), kWindow);
    QQuickItem parent(scene.root());
    parent.setSize(kWindow);
    for (const auto &row : rows) {
        parent.setRotation(row.rotation);
        parent.setScale(row.scale);
        const std::unique_ptr<CheckerBoard> board(makeBoard(&parent, row.area, row.tileSize));
        board->setPrimaryColor(Qt::yellow); // not that of the window
        QCOMPARE(difference(scene.window(), { board.get() }), QString());
    }
}

// The squares stay with the item, and every change reaches the screen.
void tst_CheckerBoard::moves()
{
    Scene scene(whiteWindow(), kWindow);
    CheckerBoard *board = makeBoard(scene.root(), QRectF(20, 30, 100, 50));
    const std::function<void()> changes[] = {
        [] {},
        [&] { board->setX(25); },
        [&] { board->setSize(QSizeF(77, 66)); },
        [&] { scene.root()->setY(9); },
        [&] { board->setTileSize(5); },
        [&] { board->setPrimaryColor(Qt::red); },
        [&] { board->setSecondaryColor(Qt::darkBlue); },
    };
    for (const auto &change : changes) {
        change();
        QCOMPARE(difference(scene.window(), { board }), QString());
    }
    // Beside others, each unlike the one before in one respect.
    CheckerBoard *second = makeBoard(scene.root(), QRectF(5, 105, 61, 37), 5);
    second->setPrimaryColor(Qt::red);
    const CheckerBoard *third = makeBoard(scene.root(), QRectF(75, 105, 61, 37), 5);
    const CheckerBoard *fourth = makeBoard(scene.root(), QRectF(145, 105, 61, 37), 9);
    QCOMPARE(difference(scene.window(), { board, second, third, fourth }), QString());
}

void tst_CheckerBoard::translucent()
{
    Scene scene(whiteWindow(), kWindow);
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

TAMBER_TEST_MAIN(tst_CheckerBoard)
#include "tst_checkerboard.moc"
