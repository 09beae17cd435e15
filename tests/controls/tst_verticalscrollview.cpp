#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/VerticalScrollView>

#include <QtCore/QAbstractEventDispatcher>

#include <algorithm>
#include <limits>

using namespace ta::ui;
using namespace ta::test;

using View = VerticalScrollView;

class tst_VerticalScrollView : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void geometry();
    void contentThatFollowsItsSize();
    void badInput();
    void requests();
    void animation();
    void handlersOfTheLastStep();
    void requestsDuringAnAnimation();
    void otherContent();
    void contentThatShrinks();
    void flickableThatMovesItsEnds();
    void lists();
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

void tst_VerticalScrollView::geometry()
{
    ViewScene scene(plain());
    const QQuickItem *bar = scene.view->childItems().constLast();
    SignalLog log;
    log.watch(scene.view);
    const auto settled = [&](double ratio, const QSizeF &content, double barX) {
        return scene.waitForFrame() && scene.view->heightRatio() == ratio
               && scene.content->size() == content && bar->x() == barX
               && bar->height() == scene.view->height()
               && bar->property("enabled").toBool() == (ratio < 1); // a mouse area's own property
    };
    QVERIFY(settled(0.2, QSizeF(283, 1000), 288));
    QTRY_COMPARE(bar->opacity(), 1.0);
    scene.view->setScrollbarOffset(4);
    scene.view->setScrollbarOverlapsContent(true);
    QVERIFY(settled(0.2, QSizeF(283, 1000), 284)); // not before there is another size
    scene.view->setSize(QSizeF(310, 250));
    QVERIFY(settled(0.25, QSizeF(306 - 5, 1000), 294));
    scene.content->setImplicitHeight(100);
    QVERIFY(settled(1, QSizeF(310, 250), 294));
    scene.content->setImplicitHeight(1000);
    QVERIFY(settled(0.25, QSizeF(301, 1000), 294));
    delete scene.content;
    QTRY_COMPARE(scene.view->heightRatio(), 1.0);
    scene.view->setClipViewport(false);
    QVERIFY(!scene.view->childItems().constFirst()->clip());
    QCOMPARE(log.take(), names({ "scrollbarOffsetChanged", "scrollbarOverlapsContentChanged",
                                 "heightRatioChanged", "heightRatioChanged", "heightRatioChanged",
                                 "heightRatioChanged", "clipViewportChanged" }));
}

void tst_VerticalScrollView::contentThatFollowsItsSize()
{
    const struct
    {
        const char *content;
        double height;
    } rows[] = {
        { "Item { implicitHeight: 60000 / width }", 60000 / 283.0 },
        { "Item { implicitHeight: width * 0.7 }", 200 }, // fits only beside the bar
        { "Column { Item { width: parent.width; height: width * 0.7 } }", 200 }, // a frame later
        { "Item { implicitHeight: height + 1 }", -1 }, // never enough
    };
    expectWarning(QStringLiteral("Binding loop detected for property \"implicitHeight\""));
    for (const auto &row : rows) {
        ViewScene scene(viewWith(QLatin1String(row.content)));
        QVERIFY(scene.waitForFrame());
        QCOMPARE(scene.view->contentItem()->width(), 283.0);
        if (row.height >= 0)
            QCOMPARE(scene.view->contentItem()->height(), row.height);
    }
}

void tst_VerticalScrollView::badInput()
{
    expectWarning(QStringLiteral("^Cannot set object of type QObject as contentItem$"));
    expectWarning(QStringLiteral("Cannot set an item as contentItem of a view inside it"));
    for (const QString &body : { plain(), flickable() }) {
        ViewScene scene(body);
        SignalLog log;
        log.watch(scene.view);
        QObject object;
        scene.view->setContentItem(&object);
        scene.view->setContentItem(nullptr);
        scene.view->setContentItem(scene.content);
        scene.view->setContentItem(scene.root());
        scene.view->setContentItem(scene.view);
        QCOMPARE(scene.view->contentItem(), scene.content);
        QCOMPARE(log.entries(), QStringList());

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
        scene.view->setSize(QSizeF(-10, -20));
        QVERIFY(scene.waitForFrame());
        delete scene.content;
        scene.view->setScrollPosition(7);
        scene.view->scrollTo(0.5);
        scene.view->scrollTo(scene.root());
        QCOMPARE(scene.view->normalizedScrollPosition(), 0.0);
        QVERIFY(!isAnimating(scene.view));
    }
}

// Where each leads to from 300 below the top.
void tst_VerticalScrollView::requests()
{
    const struct
    {
        int key;
        const char *script;
        double end; // in content that begins at 0
        double flickedEnd; // and at -100
    } rows[] = {
        { Qt::Key_Home, "", 0, -100 },
        { Qt::Key_End, "", 800, 700 },
        { Qt::Key_PageUp, "", 100, 0 },
        { Qt::Key_PageDown, "", 500, 400 },
        { Qt::Key_Down, "", 300, 200 },
        { 0, "wheel", 360, 260 },
        { 0, "view.scrollPosition = 123.5", 123.5, 123.5 },
        // Parts of the range count from 0, wherever the content begins.
        { 0, "view.normalizedScrollPosition = 0.25", 200, 200 },
        { 0, "view.scrollTo(0.5, true)", 400, 400 },
        { 0, "view.scrollTo(1)", 800, 700 },
        { 0, "view.ensureVisible(item)", 300, 290 },
        { 0, "view.scrollTo(item, UiVerticalScrollView.Top)", 450, 450 },
        { 0, "view.scrollTo(item, UiVerticalScrollView.Center, true)", 370, 370 },
        { 0, "view.scrollTo(item, UiVerticalScrollView.Bottom)", 290, 290 },
    };
    for (const auto &row : rows) {
        for (bool flicks : { false, true }) {
            ViewScene scene((flicks ? flickable() : plain())
                            + QStringLiteral("property Item view; property Item item\n"
                                             "function request() { %1 }")
                                  .arg(QLatin1String(row.script)));
            scene.root()->setProperty("view", QVariant::fromValue<QQuickItem *>(scene.view));
            scene.root()->setProperty("item", QVariant::fromValue(scene.find("item")));
            scene.view->setScrollPosition(scene.view->scrollPosition() + 300, true);
            QCOMPARE(scene.view->normalizedScrollPosition(), 300.0 / 800);
            if (row.key)
                QTest::keyClick(scene.window(), Qt::Key(row.key));
            else if (qstrcmp(row.script, "wheel") == 0)
                wheel(scene.window(), QPoint(200, 200), -1);
            else
                QVERIFY(QMetaObject::invokeMethod(scene.root(), "request"));
            QTRY_VERIFY(!isAnimating(scene.view));
            QVERIFY2(scene.view->scrollPosition() == (flicks ? row.flickedEnd : row.end),
                     row.script);
            QCOMPARE(scene.find("item")->mapToItem(scene.view, QPointF()).y(),
                     450 - scene.view->scrollPosition());
        }
    }
}

// Whole pixels up to the last step, no step back, and signals of all that is seen.
void tst_VerticalScrollView::animation()
{
    ViewScene scene(plain());
    QVector<double> shown;
    on(scene.view, QStringLiteral("scrollPositionChanged"),
       [&] { shown.append(-scene.content->y()); });
    scene.view->setScrollPosition(400.5);
    QCOMPARE(shown, QVector<double>({ 0 })); // announced at once, shown later
    QTRY_VERIFY(!isAnimating(scene.view));
    QCOMPARE(shown.takeLast(), 400.5); // back from 401, where a slow machine came there in one step
    QVERIFY(std::is_sorted(shown.cbegin(), shown.cend()));
    for (double position : qAsConst(shown))
        QCOMPARE(position, std::floor(position));
    scene.view->setScrollPosition(400.5);
    QVERIFY(!isAnimating(scene.view));
    scene.view->setScrollPosition(100);
    scene.view->setScrollPosition(50, true);
    QCOMPARE(scene.content->y(), -50.0);
    QVERIFY(!isAnimating(scene.view));
}

// The last signal tells of the end, and what its handler asks for is not lost. Nothing runs then.
void tst_VerticalScrollView::handlersOfTheLastStep()
{
    for (const QString &body : { plain(), flickable() }) {
        ViewScene scene(body);
        const double top = scene.view->scrollPosition();
        bool again = true;
        on(scene.view, QStringLiteral("scrollPositionChanged"), [&] {
            if (!again || scene.view->scrollPosition() != top + 100.25 || isAnimating(scene.view))
                return;
            again = false;
            scene.view->setScrollPosition(kInf);
        });
        scene.view->setScrollPosition(top + 100.25);
        QTRY_VERIFY(!again && scene.view->scrollPosition() == top + 800
                    && !isAnimating(scene.view));
    }
}

// The wheel adds to the target, Page Down to what is shown.
void tst_VerticalScrollView::requestsDuringAnAnimation()
{
    for (const QString &body : { plain(), flickable() }) {
        ViewScene scene(body);
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
    wheel(scene.window(), QPoint(150, 150), -1);
    QTRY_COMPARE(scene.view->scrollPosition(), 60.0);
}

// Each content keeps its place, and has no say any more once there is another one.
void tst_VerticalScrollView::otherContent()
{
    ViewScene scene(plain()
                    + QStringLiteral("Item { objectName: 'other'; implicitHeight: 500 }\n"
                                     "Flickable { objectName: 'flick'; contentHeight: 600 }"));
    scene.view->setScrollPosition(300, true);
    scene.view->setScrollPosition(400);
    SignalLog log;
    log.watch(scene.view);
    auto *other = scene.find("other");
    scene.view->setContentItem(other);
    QVERIFY(!isAnimating(scene.view));
    QTRY_COMPARE(scene.view->heightRatio(), 0.4);
    QCOMPARE(log.take(),
             names({ "contentItemChanged", "scrollPositionChanged", "heightRatioChanged" }));
    QCOMPARE(scene.content->parentItem(), other->parentItem());
    scene.content->setImplicitHeight(2000);
    auto *flick = scene.find("flick");
    scene.view->setContentItem(flick);
    QTRY_COMPARE(flick->size(), QSizeF(283, 200));
    QVERIFY(!flick->property("interactive").toBool());
    QCOMPARE(log.take(), names({ "contentItemChanged", "heightRatioChanged" }));
    scene.view->setContentItem(scene.content);
    QCOMPARE(scene.view->scrollPosition(), 300.0);
}

void tst_VerticalScrollView::contentThatShrinks()
{
    for (const char *content : { "Item { implicitHeight: parent ? rows * 50 : 0 }",
                                 "Flickable { contentHeight: rows * 50 }" }) {
        ViewScene scene(QStringLiteral("property int rows: 20\n")
                        + viewWith(QLatin1String(content)));
        QTRY_COMPARE(scene.view->heightRatio(), 0.2);
        scene.view->scrollTo(1, true);
        QCOMPARE(scene.view->scrollPosition(), 800.0);
        scene.root()->setProperty("rows", 10);
        QTRY_COMPARE(scene.view->heightRatio(), 0.4);
        QTRY_COMPARE(scene.view->scrollPosition(), 300.0);
        scene.view->setScrollPosition(0); // and while it goes somewhere else
        scene.view->setScrollPosition(300);
        scene.root()->setProperty("rows", 2);
        QTRY_COMPARE(scene.view->heightRatio(), 1.0);
        QTRY_COMPARE(scene.view->scrollPosition(), 0.0);
        QTRY_VERIFY(!isAnimating(scene.view));
    }
}

// What was asked for beyond an end leads to where that end is in the end.
void tst_VerticalScrollView::flickableThatMovesItsEnds()
{
    ViewScene scene(flickable());
    scene.view->setScrollPosition(kInf);
    scene.content->setProperty("contentHeight", 800); // ends at 700 now
    QTRY_COMPARE(scene.view->scrollPosition(), 500.0);
    QTest::keyClick(scene.window(), Qt::Key_Home);
    scene.content->setProperty("originY", -300);
    QTRY_COMPARE(scene.view->scrollPosition(), -300.0);
    QTRY_VERIFY(!isAnimating(scene.view));
    QCOMPARE(scene.view->normalizedScrollPosition(), 0.0);

    SignalLog log;
    log.watch(scene.view);
    scene.content->setProperty("originY", -500);
    QCOMPARE(log.take(), names({ "scrollPositionChanged" }));
    QCOMPARE(scene.view->normalizedScrollPosition(), 200.0 / 600);

    // Whoever moves it once it is there has it.
    on(scene.content, QStringLiteral("contentYChanged"), [&] {
        if (scene.content->property("contentY") == -500)
            scene.content->setProperty("contentY", 77);
    });
    QTest::keyClick(scene.window(), Qt::Key_Home);
    QTRY_COMPARE(scene.view->scrollPosition(), 77.0);
    scene.content->setProperty("contentHeight", 900);
    QTRY_COMPARE(scene.view->heightRatio(), 200.0 / 900);
    QCOMPARE(scene.view->scrollPosition(), 77.0);
    QVERIFY(!isAnimating(scene.view));
}

// Rows come to be as they come into view; where they differ, a list only guesses where it ends.
void tst_VerticalScrollView::lists()
{
    ViewScene even(viewWith(
        QStringLiteral("ListView { objectName: 'content'; model: 100\n"
                       "delegate: Item { objectName: 'row' + index; width: 10; height: 40 } }")));
    QTRY_COMPARE(even.view->heightRatio(), 0.05);
    even.view->ensureVisible(even.find("row5"));
    QTRY_COMPARE(even.view->scrollPosition(), 40.0);
    even.view->scrollTo(even.find("row5"), View::Top, true);
    QCOMPARE(even.view->scrollPosition(), 200.0);
    even.view->setScrollPosition(2000, true);
    QVERIFY(even.waitForFrame());
    even.view->scrollTo(even.find("row52"), View::Bottom, true);
    QCOMPARE(even.view->scrollPosition(), 53 * 40.0 - 200);

    ViewScene uneven(viewWith(
        QStringLiteral("ListView { objectName: 'content'; model: 1000\n"
                       "delegate: Item { height: 20 + index % 50 + (index < 500 ? 30 : 0) } }")));
    const auto restsAt = [&](const char *end) {
        return uneven.content->property(end).toBool() && !isAnimating(uneven.view);
    };
    for (int round = 0; round < 2; ++round) {
        QTest::keyClick(uneven.window(), Qt::Key_End);
        QTRY_VERIFY(restsAt("atYEnd"));
        QCOMPARE(uneven.view->normalizedScrollPosition(), 1.0);
        QTest::keyClick(uneven.window(), Qt::Key_Home);
        QTRY_VERIFY(restsAt("atYBeginning"));
        QCOMPARE(uneven.view->normalizedScrollPosition(), 0.0);
    }
}

// A press on the bar goes there; the handle is dragged by the point where it was grabbed, from the
// first pixel of the content to the last, wherever it begins.
void tst_VerticalScrollView::bar()
{
    for (const QString &body : { plain(), flickable() }) {
        ViewScene scene(body);
        const double top = scene.view->scrollPosition();
        QTRY_COMPARE(scene.view->childItems().constLast()->opacity(), 1.0);
        const auto *handle = scene.view->childItems().constLast()->childItems().constFirst();
        const auto at = [](int y) { return QPoint(100 + 294, 100 + y); };
        QCOMPARE(handle->height(), 40.0);
        press(scene.window(), at(100));
        QTRY_COMPARE(scene.view->scrollPosition(), top + 400);
        for (const int y : { 110, 5, 199 }) {
            move(scene.window(), at(y));
            QCOMPARE(handle->y(), qBound(0.0, y - 20.0, 160.0));
            QCOMPARE(scene.view->scrollPosition(), top + handle->y() * 5);
        }
        release(scene.window(), at(199));
        press(scene.window(), at(190)); // 30 of 40 below its top
        move(scene.window(), QPoint(20, 100 + 80)); // far beside it
        QCOMPARE(handle->y(), 50.0);
        release(scene.window(), QPoint(20, 20));

        scene.content->setProperty(top < 0 ? "contentHeight" : "implicitHeight", 10000);
        QTRY_COMPARE(handle->height(), 20.0);
        QCOMPARE(handle->y(), scene.view->normalizedScrollPosition() * 180);
    }
}

TAMBER_TEST_MAIN(tst_VerticalScrollView)
#include "tst_verticalscrollview.moc"
