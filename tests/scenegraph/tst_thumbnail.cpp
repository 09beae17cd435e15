// variants: x11 threaded scale2
#include "support/colors.h"
#include "support/framecounter.h"
#include "support/probeimage.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/Thumbnail>

#include <QtCore/QElapsedTimer>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThreadPool>

using namespace ta::ui;
using namespace ta::test;

// Sizes and positions are those of the items, in logical pixels.
class tst_Thumbnail : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void fitting();
    void disabled();
    void nothingToShow();
    void latestSourceWins();
    void clearedWhileLoading();
    void sizeChanges();
    void otherScreen();
    void declaredPropertiesLoadOnce();
    void windowClosedWhileLoading();
    void arrivalsShareFrames();

private:
    QDir folder() const { return QDir(m_folder.path()); }
    QTemporaryDir m_folder;
};

namespace {

// A scene on white, with room for items of 400 x 400.
class Board : public Scene
{
public:
    explicit Board(const QString &body)
        : Scene(QStringLiteral("Rectangle { anchors.fill: parent }") + body, QSize(420, 420))
    {
    }

    // Invalid until the first frame is there.
    QColor pixel(const QPointF &position) const
    {
        return pixelAt(window()->grabWindow(), position);
    }

    Thumbnail *addThumbnail(const QUrl &source, const QRect &geometry)
    {
        auto *thumbnail = new Thumbnail(root());
        thumbnail->setPosition(geometry.topLeft());
        thumbnail->setSize(geometry.size());
        thumbnail->setSource(source);
        return thumbnail;
    }
};

// Every load that was asked for has ended, and the items know.
void waitForLoads()
{
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
}

} // namespace

void tst_Thumbnail::initTestCase()
{
    QThreadPool::globalInstance()->setMaxThreadCount(4); // while one of them waits
    qmlRegisterType<Thumbnail>("Test", 1, 0, "Thumbnail");
}

void tst_Thumbnail::cleanup()
{
    waitForLoads();
    TestCase::cleanup();
}

void tst_Thumbnail::fitting()
{
    const struct
    {
        QSize picture;
        QRect region;
        QSize item;
        QRect expected;
        bool leftOnly; // no black half
    } rows[] = {
        { { 4000, 3000 }, {}, { 200, 100 }, { 33, 0, 133, 100 }, false },
        { { 100, 50 }, {}, { 400, 400 }, { 0, 100, 400, 200 }, false },
        { { 200, 100 }, { 10, 10, 50, 40 }, { 100, 100 }, { 0, 10, 100, 80 }, true },
        { { 200, 100 }, { 80, 0, 40, 40 }, { 100, 100 }, { 0, 0, 100, 100 }, false },
    };
    int number = 0;
    for (const auto &row : rows) {
        const ProbeImage probe(folder(), QStringLiteral("fitting%1").arg(++number), row.picture);
        Board board({});
        Thumbnail *thumbnail = board.addThumbnail(probe.url(), QRect(QPoint(10, 10), row.item));
        thumbnail->setRegion(row.region);
        const QRectF area = QRectF(row.expected).translated(10, 10);
        QTRY_COMPARE(board.pixel(area.topLeft() + QPointF(1, 1)), QColor(Qt::red));
        QCOMPARE(board.pixel(QPointF(area.left() + area.width() / 4, area.bottom() - 2)),
                 QColor(Qt::red));
        QCOMPARE(board.pixel(area.bottomRight() - QPointF(2, 2)),
                 QColor(row.leftOnly ? Qt::red : Qt::black));
        for (const QPointF &outside :
             { area.topLeft() - QPointF(2, 0), area.topLeft() - QPointF(0, 2),
               area.bottomRight() + QPointF(1, -2), area.bottomRight() + QPointF(-2, 1) })
            QCOMPARE(board.pixel(outside), QColor(Qt::white));
        if (number == 1) {
            const bool doubled = board.window()->effectiveDevicePixelRatio() > 1.5;
            QCOMPARE(probe.decodedSize(), doubled ? QSize(266, 200) : QSize(133, 100));
        }
    }
}

void tst_Thumbnail::disabled()
{
    const QColor color(200, 100, 50);
    const ProbeImage probe(folder(), QStringLiteral("disabled"), QSize(40, 40), color);
    Board board({});
    Thumbnail *thumbnail = board.addThumbnail(probe.url(), QRect(0, 0, 100, 100));
    QTRY_COMPARE(board.pixel(QPointF(20, 50)), color);
    thumbnail->setEnabled(false);
    const int grey = qRound((0.344 * 200 + 0.5 * 100 + 0.156 * 50 + 255) / 2); // half on white
    QVERIFY(isNear(board.pixel(QPointF(20, 50)), QColor(grey, grey, grey)));
    QVERIFY(isNear(board.pixel(QPointF(80, 50)), QColor(128, 128, 128)));
    thumbnail->setEnabled(true);
    QCOMPARE(board.pixel(QPointF(20, 50)), color);

    // A child of something disabled becomes enabled once more in the middle of its destruction.
    thumbnail->parentItem()->setEnabled(false);
    delete thumbnail;
}

// What was shown before goes.
void tst_Thumbnail::nothingToShow()
{
    const ProbeImage probe(folder(), QStringLiteral("before"), QSize(40, 40));
    Board board({});
    Thumbnail *thumbnail = board.addThumbnail(QUrl(), QRect(0, 0, 100, 100));
    for (const char *source : { "", "qrc:/ui/images/checkmark.png", "http://localhost/a.png",
                                "file:///nowhere.png", "file:///tmp" }) {
        thumbnail->setSource(probe.url());
        QTRY_COMPARE(board.pixel(QPointF(20, 50)), QColor(Qt::red));
        thumbnail->setSource(QUrl(QLatin1String(source)));
        QTRY_COMPARE(board.pixel(QPointF(20, 50)), QColor(Qt::white));
        thumbnail->setEnabled(false);
        QCOMPARE(board.pixel(QPointF(20, 50)), QColor(Qt::white));
        thumbnail->setEnabled(true);
    }
}

void tst_Thumbnail::latestSourceWins()
{
    ProbeImage first(folder(), QStringLiteral("first"), QSize(40, 40), Qt::red);
    const ProbeImage second(folder(), QStringLiteral("second"), QSize(40, 40), Qt::green);
    first.hold();
    Board board({});
    Thumbnail *thumbnail = board.addThumbnail(QUrl(), QRect(0, 0, 100, 100));
    for (int i = 0; i < 50; ++i) {
        thumbnail->setSource(first.url());
        thumbnail->setSource(second.url());
    }
    QTRY_COMPARE(board.pixel(QPointF(20, 50)), QColor(Qt::green));
    QTRY_VERIFY(first.isBeingRead());
    first.release();
    waitForLoads();
    QCOMPARE(board.pixel(QPointF(20, 50)), QColor(Qt::green));
    QCOMPARE(first.readCount() + second.readCount(), 2);
    QVERIFY(thumbnail->children().isEmpty());
}

void tst_Thumbnail::clearedWhileLoading()
{
    ProbeImage probe(folder(), QStringLiteral("cleared"), QSize(40, 40));
    probe.hold();
    Board board({});
    Thumbnail *thumbnail = board.addThumbnail(probe.url(), QRect(0, 0, 100, 100));
    QTRY_VERIFY(probe.isBeingRead());
    thumbnail->setSource(QUrl());
    probe.release();
    waitForLoads();
    QCOMPARE(board.pixel(QPointF(20, 50)), QColor(Qt::white));

    // The same when the load has ended and no frame has shown it yet.
    thumbnail->setSource(probe.url());
    waitForLoads();
    thumbnail->setSource(QUrl());
    QCOMPARE(board.pixel(QPointF(20, 50)), QColor(Qt::white));
}

// A size that is the same in whole pixels loads nothing anew.
void tst_Thumbnail::sizeChanges()
{
    Board board({});
    const QString path = folder().filePath(QStringLiteral("later.png"));
    Thumbnail *thumbnail = board.addThumbnail(QUrl::fromLocalFile(path), QRect(0, 0, 100, 100));
    thumbnail->setWidth(100.4);
    waitForLoads();
    QImage picture(40, 40, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    QVERIFY(picture.save(path));
    thumbnail->setWidth(100.3);
    thumbnail->setHeight(100.4);
    waitForLoads();
    QCOMPARE(board.pixel(QPointF(50, 50)), QColor(Qt::white));
    thumbnail->setWidth(100.6);
    QTRY_COMPARE(board.pixel(QPointF(50, 50)), QColor(Qt::blue));
}

// Where the same item has more pixels.
void tst_Thumbnail::otherScreen()
{
    struct Access : Thumbnail
    {
        using Thumbnail::itemChange;
    };
    const ProbeImage probe(folder(), QStringLiteral("screen"), QSize(4000, 3000));
    Board board({});
    Thumbnail *thumbnail = board.addThumbnail(probe.url(), QRect(0, 0, 200, 100));
    QTRY_COMPARE(board.pixel(QPointF(40, 50)), QColor(Qt::red));
    (thumbnail->*&Access::itemChange)(QQuickItem::ItemDevicePixelRatioHasChanged, 3.0);
    QTRY_COMPARE(probe.decodedSize(), QSize(400, 300));
}

// Whatever the order in which they are declared.
void tst_Thumbnail::declaredPropertiesLoadOnce()
{
    const ProbeImage probe(folder(), QStringLiteral("declared"), QSize(400, 400));
    Board board({});
    const auto component = board.create(
        QStringLiteral(
            "import Test 1.0; Item { Thumbnail { source: '%1'; width: 50; height: width; "
            "region: Qt.rect(0, 0, 100, 100) } }")
            .arg(probe.url().toString()));
    QVERIFY(component);
    waitForLoads();
    QCOMPARE(probe.readCount(), 1);
}

void tst_Thumbnail::windowClosedWhileLoading()
{
    ProbeImage probe(folder(), QStringLiteral("closed"), QSize(40, 40));
    probe.hold();
    Board board({});
    for (int i = 0; i < 4; ++i)
        board.addThumbnail(probe.url(), QRect(i * 50, 0, 50 + i, 50));
    QTRY_VERIFY(probe.isBeingRead());
    board.destroyWindow();
    probe.release();
    waitForLoads();
    QCOMPARE(probe.readCount(), 4);
}

// There is one in 33 ms at most for all that arrive, and the last one is not forgotten.
void tst_Thumbnail::arrivalsShareFrames()
{
    constexpr int kPictures = 40;
    Board board({});
    const ProbeImage probe(folder(), QStringLiteral("shared"), QSize(8, kPictures));
    QVector<Thumbnail *> thumbnails;
    for (int i = 0; i < kPictures; ++i) {
        thumbnails.append(board.addThumbnail({}, QRect(i % 10 * 40, i / 10 * 40, 30, 30)));
        thumbnails.last()->setRegion(QRect(0, i, 8, 1)); // a load of its own
    }
    QVERIFY(board.waitForFrame());
    const FrameCounter frames(board.window());
    QElapsedTimer timer;
    timer.start();
    for (Thumbnail *thumbnail : qAsConst(thumbnails)) {
        thumbnail->setSource(probe.url());
        waitForLoads();
        QTest::qWait(5); // enough for a frame
    }
    const int most = 2 + int(timer.elapsed() / 33);
    QVERIFY2(frames.count() <= most,
             qPrintable(QStringLiteral("%1, not %2").arg(frames.count()).arg(most)));
    QTRY_VERIFY(board.pixel(QPointF(375, 135)) != QColor(Qt::white));
}

TAMBER_TEST_MAIN(tst_Thumbnail)
#include "tst_thumbnail.moc"
