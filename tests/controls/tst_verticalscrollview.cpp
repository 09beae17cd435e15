#include "controls/scrollposition_p.h"
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <QtCore/QAbstractEventDispatcher>

#include <limits>

using namespace ta::ui;
using namespace ta::test;

using View = VerticalScrollView;

class tst_VerticalScrollView : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void arithmetic();
    void targets_data();
    void targets();
    void geometry();
    void contentThatFollowsItsSize_data();
    void contentThatFollowsItsSize();
    void badContent();
    void badPositions();
    void requests_data();
    void requests();
    void animation();
    void handlersOfTheLastStep();
    void requestsDuringAnAnimation();
    void otherContent();
    void contentThatShrinks_data();
    void contentThatShrinks();
    void itemsOfAFlickable();
    void flickableThatMovesItsEnds();
    void longList();
    void bar();
};

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = qQNaN();

QString viewWith(const QString &content)
{
    return QStringLiteral("UiVerticalScrollView { objectName: 'view'; x: 100; y: 100; width: 300; "
                          "height: 200; focus: true; ")
           + content + QStringLiteral("}");
}

// 1000 high with an item at 450 to 490.
QString plain()
{
    return viewWith(QStringLiteral("Item { objectName: 'content'; implicitHeight: 1000\n"
                                   "Item { objectName: 'item'; y: 450; height: 40 } }"));
}

// The same from -100 to 900, with the item at 450, too.
QString flickable()
{
    return viewWith(QStringLiteral(
        "Item { id: flick; objectName: 'content'; property real contentY: -100\n"
        "property real originY: -100; property real contentHeight: 1000; property bool "
        "interactive\n"
        "property QtObject visibleArea: QtObject {\n"
        "property real heightRatio: flick.height / flick.contentHeight }\n"
        "Item { y: -flick.contentY; Item { objectName: 'item'; y: 450; height: 40 } } }"));
}

bool isAnimating(const View *view)
{
    // The timers of a view itself are all of animations.
    return !QAbstractEventDispatcher::instance()
                ->registeredTimers(const_cast<View *>(view))
                .isEmpty();
}

// A scene whose view has its geometry.
class ViewScene : public Scene
{
public:
    explicit ViewScene(const QString &body) : Scene(body)
    {
        view = find<View>("view");
        content = find("content");
        waitForFrame();
    }

    View *view = nullptr;
    QQuickItem *content = nullptr;
};

} // namespace

void tst_VerticalScrollView::arithmetic()
{
    QCOMPARE(scrollRange(1000, 200), 800.0);
    QCOMPARE(scrollRange(100, 200), 0.0);
    QCOMPARE(scrollRange(kNaN, 200), 0.0);
    QCOMPARE(boundedScrollPosition(900, -100, 800), 700.0);
    QCOMPARE(boundedScrollPosition(-kInf, -100, 800), -100.0);
    QCOMPARE(visibleRatio(200, 1000), 0.2);
    QCOMPARE(visibleRatio(200, 0.5), 1.0);
    QCOMPARE(visibleRatio(0.5, 0), 0.5);
    QCOMPARE(visibleRatio(-5, 100), 0.0);
    for (double ratio : { 0.0, -0.5, 1.01, kInf, -kInf, kNaN })
        QCOMPARE(usableRatio(ratio), 1.0);
    QCOMPARE(usableRatio(0.01), 0.01);
    const int most = std::numeric_limits<int>::max();
    QCOMPARE(scrolledContentWidth(300, true, { 3, 5, false }), 280.0);
    QCOMPARE(scrolledContentWidth(300, true, { 3, 5, true }), 292.0);
    QCOMPARE(scrolledContentWidth(300, false, { 3, 5, false }), 300.0);
    QCOMPARE(scrolledContentWidth(300, true, { most, most, false }), 0.0);

    const struct
    {
        double shown, target;
        qint64 elapsed;
        double position;
        bool isLast;
    } steps[] = {
        { 0, 110, 10, 10, false },   { 0, 110, 11, 11, false },    { 0, -110, 55, -55, false },
        { 0, 110, 110, 110, false }, { 0, 110, 5000, 110, false }, { 0, 110, -86400000, 10, false },
        { 0, 11, 10, 1, false },     { 0, 10.9, 10, 10.9, true },  { 5, 5, 10, 5, true },
    };
    for (const auto &step : steps) {
        const ScrollStep result = scrollStep(step.shown, step.target, step.elapsed);
        QCOMPARE(result.position, step.position);
        QCOMPARE(result.isLast, step.isLast);
    }

    QCOMPARE(wheelDistance(0.2, -120), 60.0);
    QCOMPARE(wheelDistance(0, 8), -5.0);
    QCOMPARE(autoScrollSpeedAt(80, 400, 0), -8.0);
    QCOMPARE(autoScrollSpeedAt(80, 400, 50), -8.0);
    QCOMPARE(autoScrollSpeedAt(0, 400, -50), -50.0);
    QCOMPARE(autoScrollSpeedAt(80.5, 400, -50), 0.0);
    QCOMPARE(autoScrollSpeedAt(319.5, 400, 50), 0.0);
    QCOMPARE(autoScrollSpeedAt(320, 400, -50), 8.0);
    QCOMPARE(autoScrollSpeedAt(400, 400, 50), 50.0);
    QCOMPARE(autoScrollSpeedAt(50, 100, 0), -8.0);
    QCOMPARE(acceleratedScrollSpeed(-8), -8.8);
    QCOMPARE(acceleratedScrollSpeed(190), 200.0);
}

void tst_VerticalScrollView::targets_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<double>("top");
    QTest::addColumn<double>("bottom");
    QTest::addColumn<double>("target");
    QTest::newRow("contained") << int(View::Contain) << 100.0 << 300.0 << kNaN;
    QTest::newRow("below") << int(View::Contain) << 290.0 << 310.0 << 110.0;
    QTest::newRow("above") << int(View::Contain) << 90.0 << 110.0 << 90.0;
    QTest::newRow("higher than the view, from below")
        << int(View::Contain) << 200.0 << 500.0 << 200.0;
    QTest::newRow("higher than the view, from above")
        << int(View::Contain) << -200.0 << 150.0 << -50.0;
    QTest::newRow("as far either way") << int(View::Contain) << 50.0 << 350.0 << 50.0;
    QTest::newRow("top") << int(View::Top) << 150.0 << 170.0 << 150.0;
    QTest::newRow("center") << int(View::Center) << 500.0 << 540.0 << 420.0;
    QTest::newRow("bottom") << int(View::Bottom) << 500.0 << 540.0 << 340.0;
    QTest::newRow("no mode") << 4 << 500.0 << 540.0 << kNaN;
}

// A view 200 high that shows 100 to 300.
void tst_VerticalScrollView::targets()
{
    QFETCH(int, mode);
    QFETCH(double, top);
    QFETCH(double, bottom);
    QFETCH(double, target);
    QCOMPARE(scrollTarget(View::ScrollPosition(mode), 100, 200, { top, bottom, bottom - top }),
             target);
}

void tst_VerticalScrollView::geometry()
{
    ViewScene scene(plain());
    QVERIFY(scene.isValid());
    const QQuickItem *bar = scene.view->childItems().constLast();
    QCOMPARE(scene.view->heightRatio(), 0.2);
    QCOMPARE(scene.content->size(), QSizeF(283, 1000));
    QCOMPARE(QRectF(bar->position(), bar->size()), QRectF(288, 0, 12, 200));
    QVERIFY(bar->property("enabled").toBool()); // a mouse area's own property
    QTRY_COMPARE(bar->opacity(), 1.0);

    SignalLog log;
    log.watch(scene.view);
    scene.view->setScrollbarOffset(4);
    scene.view->setScrollbarOverlapsContent(true);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(scene.content->width(), 283.0);
    scene.view->setHeight(250);
    scene.view->setWidth(310);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(scene.content->width(), 301.0);
    QCOMPARE(bar->x(), 294.0);
    QCOMPARE(log.take(), names({ "scrollbarOffsetChanged", "scrollbarOverlapsContentChanged",
                                 "heightRatioChanged" }));

    scene.content->setImplicitHeight(100);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(scene.view->heightRatio(), 1.0);
    QCOMPARE(scene.content->size(), QSizeF(310, 250));
    QVERIFY(!bar->property("enabled").toBool());
    scene.content->setImplicitHeight(1000);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(scene.view->heightRatio(), 0.25);
    delete scene.content;
    QVERIFY(scene.waitForFrame());
    QCOMPARE(scene.view->heightRatio(), 1.0);
    QVERIFY(!scene.view->contentItem());

    scene.view->setClipViewport(false);
    QVERIFY(!scene.view->childItems().constFirst()->clip());
    QCOMPARE(log.take(), names({ "heightRatioChanged", "heightRatioChanged", "heightRatioChanged",
                                 "clipViewportChanged" }));
    scene.view->setSize(QSizeF(-10, -20));
    QVERIFY(scene.waitForFrame());
}

void tst_VerticalScrollView::contentThatFollowsItsSize_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("height");
    QTest::newRow("higher where narrower")
        << "Item { implicitHeight: 60000 / width }" << 283.0 << 60000 / 283.0;
    QTest::newRow("fits only beside the bar")
        << "Item { implicitHeight: width * 0.7 }" << 283.0 << 200.0;
    QTest::newRow("the same, a frame's work later")
        << "Column { Item { width: parent.width; height: width * 0.7 } }" << 283.0 << 200.0;
    QTest::newRow("never enough") << "Item { implicitHeight: height + 1 }" << 283.0 << -1.0;
}

void tst_VerticalScrollView::contentThatFollowsItsSize()
{
    QFETCH(QString, content);
    QFETCH(double, width);
    QFETCH(double, height);
    if (height < 0)
        expectWarning(QStringLiteral("Binding loop detected for property \"implicitHeight\""));
    ViewScene scene(viewWith(content));
    QVERIFY(scene.isValid());
    QVERIFY(scene.waitForFrame());
    QCOMPARE(scene.view->contentItem()->width(), width);
    if (height >= 0)
        QCOMPARE(scene.view->contentItem()->height(), height);
}

void tst_VerticalScrollView::badContent()
{
    ViewScene scene(plain());
    QVERIFY(scene.isValid());
    SignalLog log;
    log.watch(scene.view);
    QObject object;
    expectWarning(QStringLiteral("^Cannot set object of type QObject as contentItem$"));
    scene.view->setContentItem(&object);
    scene.view->setContentItem(nullptr);
    scene.view->setContentItem(scene.content);
    expectWarning(QStringLiteral("Cannot set an item as contentItem of a view inside it"));
    scene.view->setContentItem(scene.root());
    scene.view->setContentItem(scene.view);
    QCOMPARE(scene.view->contentItem(), scene.content);
    QVERIFY(log.entries().isEmpty());

    View empty;
    empty.setScrollPosition(7);
    empty.scrollTo(0.5);
    empty.scrollTo(scene.root());
    QCOMPARE(empty.scrollPosition(), 0.0);
    QCOMPARE(empty.normalizedScrollPosition(), 0.0);
    QVERIFY(!isAnimating(&empty));
}

void tst_VerticalScrollView::badPositions()
{
    for (const QString &body : { plain(), flickable() }) {
        ViewScene scene(body);
        QVERIFY(scene.isValid());
        const double top = scene.view->scrollPosition();
        scene.view->setScrollPosition(kInf, true);
        QCOMPARE(scene.view->scrollPosition(), top + 800);
        scene.view->setScrollPosition(kNaN, true);
        scene.view->scrollTo(kNaN);
        scene.view->ensureVisible(nullptr);
        scene.view->ensureVisible(scene.root());
        QCOMPARE(scene.view->scrollPosition(), top + 800);
        QVERIFY(!isAnimating(scene.view));
        scene.view->scrollTo(-kInf, true);
        QCOMPARE(scene.view->scrollPosition(), top);
    }
}

void tst_VerticalScrollView::requests_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("end"); // from 300 below the top of the content
    QTest::newRow("Home") << QString() << int(Qt::Key_Home) << 0.0;
    QTest::newRow("End") << QString() << int(Qt::Key_End) << 800.0;
    QTest::newRow("Page Up") << QString() << int(Qt::Key_PageUp) << 100.0;
    QTest::newRow("Page Down") << QString() << int(Qt::Key_PageDown) << 500.0;
    QTest::newRow("Down") << QString() << int(Qt::Key_Down) << 300.0;
    QTest::newRow("wheel") << QString() << 0 << 360.0;
    QTest::newRow("property") << "view.scrollPosition = topEnd + 123.5" << 0 << 123.5;
    QTest::newRow("part") << "view.normalizedScrollPosition = 0.25" << 0 << 200.0;
    QTest::newRow("to a part") << "view.scrollTo(0.5, true)" << 0 << 400.0;
    // The item begins 450 below zero, wherever the content begins.
    QTest::newRow("visible") << "view.ensureVisible(item)" << 0 << -1.0;
    QTest::newRow("to an item") << "view.scrollTo(item, UiVerticalScrollView.Top)" << 0 << -450.0;
    QTest::newRow("its middle") << "view.scrollTo(item, UiVerticalScrollView.Center, true)" << 0
                                << -370.0;
    QTest::newRow("its end") << "view.scrollTo(item, UiVerticalScrollView.Bottom)" << 0 << -290.0;
}

void tst_VerticalScrollView::requests()
{
    QFETCH(QString, script);
    QFETCH(int, key);
    QFETCH(double, end);
    for (const QString &body : { plain(), flickable() }) {
        ViewScene scene(body
                        + QStringLiteral("property Item view: null; property Item item: null\n"
                                         "property real topEnd: 0; function request() { %1 }")
                              .arg(script));
        QVERIFY(scene.isValid());
        const double top = scene.view->scrollPosition();
        scene.root()->setProperty("view", QVariant::fromValue<QQuickItem *>(scene.view));
        scene.root()->setProperty("item", QVariant::fromValue(scene.find("item")));
        scene.root()->setProperty("topEnd", top);
        scene.view->setScrollPosition(top + 300, true);
        QCOMPARE(scene.view->normalizedScrollPosition(), 300.0 / 800);
        if (key) {
            QTest::keyClick(scene.window(), Qt::Key(key));
        } else if (script.isEmpty()) {
            wheel(scene.window(), QPoint(200, 200), -1);
        } else {
            QVERIFY(QMetaObject::invokeMethod(scene.root(), "request"));
        }
        QTRY_VERIFY(!isAnimating(scene.view));
        double expected = top + end;
        if (end == -1) // 300 to 500 shows the item, 200 to 400 does not
            expected = top == 0 ? 300 : 290;
        else if (end < 0)
            expected = -end;
        QCOMPARE(scene.view->scrollPosition(), expected);
        QCOMPARE(scene.find("item")->mapToItem(scene.view, QPointF()).y(), 450 - expected);
    }
}

// Whole pixels up to the last step, no step back, and signals of all that is seen.
void tst_VerticalScrollView::animation()
{
    ViewScene scene(plain());
    QVERIFY(scene.isValid());
    QVector<double> shown;
    double last = 0;
    bool isMonotone = true;
    connect(scene.view, &View::scrollPositionChanged, this, [&] {
        shown.append(-scene.content->y());
        isMonotone = isMonotone && scene.view->scrollPosition() >= last;
        last = scene.view->scrollPosition();
    });
    scene.view->setScrollPosition(400.5);
    QCOMPARE(shown, QVector<double>({ 0 })); // announced at once, shown later
    QTRY_VERIFY(!isAnimating(scene.view));
    QVERIFY(isMonotone);
    QVERIFY(shown.size() >= 3);
    QCOMPARE(shown.takeLast(), 400.5);
    for (double position : qAsConst(shown))
        QCOMPARE(position, std::floor(position));
    scene.view->setScrollPosition(400.5);
    QVERIFY(!isAnimating(scene.view));
    scene.view->setScrollPosition(100);
    scene.view->setScrollPosition(50, true);
    QCOMPARE(scene.content->y(), -50.0);
    QVERIFY(!isAnimating(scene.view));
}

// The last signal tells of the end, and what its handler asks for is not lost.
void tst_VerticalScrollView::handlersOfTheLastStep()
{
    for (const QString &body : { plain(), flickable() }) {
        ViewScene scene(body);
        QVERIFY(scene.isValid());
        const double top = scene.view->scrollPosition();
        double read = 0;
        bool again = true;
        connect(scene.view, &View::scrollPositionChanged, this, [&] {
            read = scene.view->scrollPosition();
            if (again && read == top + 100.25 && !isAnimating(scene.view)) {
                again = false;
                scene.view->setScrollPosition(top + 200.25);
            }
        });
        scene.view->setScrollPosition(top + 100.25);
        QTRY_COMPARE(read, top + 200.25);
        QVERIFY(!again && !isAnimating(scene.view));
        QCOMPARE(scene.view->scrollPosition(), read);
    }
}

// The wheel adds to the target, Page Down to what is shown.
void tst_VerticalScrollView::requestsDuringAnAnimation()
{
    for (const QString &body : { plain(), flickable() }) {
        ViewScene scene(body);
        QVERIFY(scene.isValid());
        const double top = scene.view->scrollPosition();
        for (int i = 0; i < 4; ++i)
            wheel(scene.window(), QPoint(200, 200), -1);
        QVERIFY(isAnimating(scene.view));
        QTRY_COMPARE(scene.view->scrollPosition(), top + 240);
        QKeyEvent pageDown(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
        QCoreApplication::sendEvent(scene.view, &pageDown); // both before a step is made
        QCoreApplication::sendEvent(scene.view, &pageDown);
        QTRY_VERIFY(!isAnimating(scene.view));
        QCOMPARE(scene.view->scrollPosition(), top + 440);
    }

    // What cannot be scrolled here is left to the view around it.
    ViewScene scene(viewWith(QStringLiteral("Item { implicitHeight: 1000; UiVerticalScrollView { "
                                            "width: 100; height: 150; Item {} } }")));
    QVERIFY(scene.isValid());
    wheel(scene.window(), QPoint(150, 150), -1);
    QTRY_COMPARE(scene.view->scrollPosition(), 60.0);
}

// Each content keeps its place.
void tst_VerticalScrollView::otherContent()
{
    ViewScene scene(plain()
                    + QStringLiteral("Item { objectName: 'other'; implicitHeight: 500 }\n"
                                     "Flickable { objectName: 'flick'; contentHeight: 600 }"));
    QVERIFY(scene.isValid());
    scene.view->setScrollPosition(300, true);
    scene.view->setScrollPosition(400);
    SignalLog log;
    log.watch(scene.view);
    auto *other = scene.find("other");
    scene.view->setContentItem(other);
    QVERIFY(!isAnimating(scene.view));
    QCOMPARE(log.take(), names({ "contentItemChanged", "scrollPositionChanged" }));
    QVERIFY(scene.waitForFrame());
    QCOMPARE(scene.view->scrollPosition(), 0.0);
    QCOMPARE(scene.view->heightRatio(), 0.4);
    QCOMPARE(scene.content->parentItem(), other->parentItem());
    log.take();
    scene.content->setImplicitHeight(2000); // not its business any more
    auto *flick = scene.find("flick");
    scene.view->setContentItem(flick);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(flick->size(), QSizeF(283, 200));
    QVERIFY(!flick->property("interactive").toBool());
    QCOMPARE(log.take(), names({ "contentItemChanged", "heightRatioChanged" }));
    flick->setProperty("contentHeight", 400);
    QTRY_COMPARE(scene.view->heightRatio(), 0.5);
    scene.view->setContentItem(scene.content);
    QCOMPARE(scene.view->scrollPosition(), 300.0);
}

void tst_VerticalScrollView::contentThatShrinks_data()
{
    QTest::addColumn<QString>("content");
    QTest::newRow("plain") << "Item { implicitHeight: parent ? rows * 50 : 0 }";
    QTest::newRow("column") << "Column { Repeater { model: rows; Item { width: 1; height: 50 } } }";
    QTest::newRow("flickable") << "Flickable { contentHeight: rows * 50 }";
}

void tst_VerticalScrollView::contentThatShrinks()
{
    QFETCH(QString, content);
    ViewScene scene(QStringLiteral("property int rows: 20\n") + viewWith(content));
    QVERIFY(scene.isValid());
    QTRY_COMPARE(scene.view->heightRatio(), 0.2);
    scene.view->scrollTo(1, true);
    QCOMPARE(scene.view->scrollPosition(), 800.0);
    scene.root()->setProperty("rows", 10);
    QTRY_COMPARE(scene.view->heightRatio(), 0.4);
    QTRY_COMPARE(scene.view->scrollPosition(), 300.0);
    QTRY_VERIFY(!isAnimating(scene.view));

    scene.view->setScrollPosition(0); // and while it goes somewhere else
    scene.view->setScrollPosition(300);
    scene.root()->setProperty("rows", 2);
    QTRY_COMPARE(scene.view->heightRatio(), 1.0);
    QTRY_COMPARE(scene.view->scrollPosition(), 0.0);
    QTRY_VERIFY(!isAnimating(scene.view));
}

// Real lists create their rows as they come into view.
void tst_VerticalScrollView::itemsOfAFlickable()
{
    ViewScene scene(viewWith(
        QStringLiteral("ListView { objectName: 'content'; model: 100\n"
                       "delegate: Item { objectName: 'row' + index; width: 10; height: 40 } }")));
    QVERIFY(scene.isValid());
    QTRY_COMPARE(scene.view->heightRatio(), 0.05);
    scene.view->ensureVisible(scene.find("row5"));
    QTRY_COMPARE(scene.view->scrollPosition(), 40.0);
    scene.view->scrollTo(scene.find("row5"), View::Top, true);
    QCOMPARE(scene.view->scrollPosition(), 200.0);
    scene.view->setScrollPosition(2000, true);
    QVERIFY(scene.waitForFrame());
    scene.view->scrollTo(scene.find("row52"), View::Bottom, true);
    QCOMPARE(scene.view->scrollPosition(), 53 * 40.0 - 200);
}

void tst_VerticalScrollView::flickableThatMovesItsEnds()
{
    ViewScene scene(flickable());
    QVERIFY(scene.isValid());
    SignalLog log;
    log.watch(scene.view);
    scene.view->setScrollPosition(kInf);
    scene.content->setProperty("contentHeight", 800); // ends at 700 now
    QTRY_VERIFY(!isAnimating(scene.view));
    QCOMPARE(scene.view->scrollPosition(), 500.0);
    QTest::keyClick(scene.window(), Qt::Key_Home);
    scene.content->setProperty("originY", -300);
    QTRY_COMPARE(scene.view->scrollPosition(), -300.0);
    QTRY_VERIFY(!isAnimating(scene.view));
    QCOMPARE(scene.view->normalizedScrollPosition(), 0.0);
    log.take();
    scene.content->setProperty("originY", -500);
    QCOMPARE(log.take(), names({ "scrollPositionChanged" }));
    QCOMPARE(scene.view->normalizedScrollPosition(), 200.0 / 600);
    scene.view->setNormalizedScrollPosition(0, true);
    QCOMPARE(scene.view->scrollPosition(), -500.0);

    // Whoever moves it while it waits at its end has it.
    QTest::keyClick(scene.window(), Qt::Key_Home);
    QTest::qWait(30);
    scene.content->setProperty("contentY", 77);
    QTRY_VERIFY(!isAnimating(scene.view));
    QCOMPARE(scene.view->scrollPosition(), 77.0);
}

// A list only guesses where it begins and ends while rows of different heights are out of sight.
void tst_VerticalScrollView::longList()
{
    ViewScene scene(viewWith(
        QStringLiteral("ListView { objectName: 'content'; model: 1000\n"
                       "delegate: Item { height: 20 + index % 50 + (index < 500 ? 30 : 0) } }")));
    QVERIFY(scene.isValid());
    for (int round = 0; round < 2; ++round) {
        QTest::keyClick(scene.window(), Qt::Key_End);
        QTRY_VERIFY(!isAnimating(scene.view));
        QVERIFY(scene.content->property("atYEnd").toBool());
        QCOMPARE(scene.view->normalizedScrollPosition(), 1.0);
        QTest::keyClick(scene.window(), Qt::Key_Home);
        QTRY_VERIFY(!isAnimating(scene.view));
        QVERIFY(scene.content->property("atYBeginning").toBool());
        QCOMPARE(scene.view->normalizedScrollPosition(), 0.0);
    }
}

// A press on the bar goes there; the handle is dragged by the point where it was grabbed.
void tst_VerticalScrollView::bar()
{
    ViewScene scene(plain());
    QVERIFY(scene.isValid());
    QTRY_COMPARE(scene.view->childItems().constLast()->opacity(), 1.0);
    QQuickItem *handle = scene.view->childItems().constLast()->childItems().constFirst();
    const auto at = [](int y) { return QPoint(100 + 294, 100 + y); };
    QCOMPARE(handle->height(), 40.0);
    press(scene.window(), at(100));
    QTRY_COMPARE(scene.view->scrollPosition(), 400.0);
    QCOMPARE(handle->y(), 80.0);
    move(scene.window(), at(110));
    QCOMPARE(handle->y(), 90.0);
    QCOMPARE(scene.view->scrollPosition(), 450.0);
    release(scene.window(), at(110));
    press(scene.window(), at(120)); // 30 of 40 below its top
    move(scene.window(), at(190));
    QCOMPARE(scene.view->scrollPosition(), 800.0);
    move(scene.window(), QPoint(20, 100 + 80)); // far beside it
    QCOMPARE(handle->y(), 50.0);
    release(scene.window(), QPoint(20, 20));
    scene.content->setImplicitHeight(10000);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(handle->height(), 20.0);
    QCOMPARE(handle->y(), scene.view->normalizedScrollPosition() * 180);
    const double position = scene.view->scrollPosition();
    scene.content->setImplicitHeight(20000);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(handle->y(), position / 19800 * 180);
}

TAMBER_TEST_MAIN(tst_VerticalScrollView)
#include "tst_verticalscrollview.moc"
